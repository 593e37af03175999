// A price to text and back, beside the C library's conversion of the same number. The bar does this for
// every quote of the shown tab.

#include <benchmark/benchmark.h>

#include <array>
#include <cwchar>

#include "unicomp/FormatUtil/interface/PriceToString.h"

namespace {

constexpr std::array<LONG, 4> codes{2, 5, 'k', 'x'};

double price_of(LONG index) {
    return 4000.0 + static_cast<double>(index % 4096) / 64.0;
}

void price_to_text(benchmark::State& state) {
    const CPriceToString format(codes[static_cast<std::size_t>(state.range(0))]);
    LONG index = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(format.ToText(price_of(++index)));
    }
}

void text_to_price(benchmark::State& state) {
    const CPriceToString format(codes[static_cast<std::size_t>(state.range(0))]);
    const CString text = format.ToPlainText(price_of(1234));
    double price = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(format.Scale->Parse(text, price));
    }
}

void c_library_to_text(benchmark::State& state) {
    std::array<wchar_t, 64> text{};
    LONG index = 0;
    for (auto _ : state) {
        std::swprintf(text.data(), text.size(), L"%.2f", price_of(++index));
        benchmark::DoNotOptimize(text);
    }
}

void c_library_from_text(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::wcstod(L"4019.28125", nullptr));
    }
}

BENCHMARK(price_to_text)->DenseRange(0, 3)->ArgName("scale 2,5,k,x");
BENCHMARK(c_library_to_text);
BENCHMARK(text_to_price)->DenseRange(0, 3)->ArgName("scale 2,5,k,x");
BENCHMARK(c_library_from_text);

}  // namespace

BENCHMARK_MAIN();
