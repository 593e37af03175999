// The bar in a host with one, fifty and five hundred profiles: its start, a quote up to the repainted button,
// a quote of a tab that nobody sees, a switch of tabs, and what a tab keeps in memory. Natively the bar has
// no windows and what is measured is the logic.
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

#include "benchmarks/bar_of_benchmark.h"
#include "benchmarks/stopwatch.h"

namespace {

// Bytes that are allocated and not yet given back. One thread counts.
long long living = 0;

constexpr std::size_t head = alignof(std::max_align_t);

// Null when there is none.
void* allocate(std::size_t size) noexcept {
    auto* const block = static_cast<std::byte*>(std::malloc(size + head));
    if (block == nullptr) {
        return nullptr;
    }
    *reinterpret_cast<std::size_t*>(block) = size;
    living += static_cast<long long>(size);
    return block + head;
}

void* allocate_or_throw(std::size_t size) {
    void* const memory = allocate(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}

void give_back(void* memory) {
    if (memory == nullptr) {
        return;
    }
    auto* const block = static_cast<std::byte*>(memory) - head;
    living -= static_cast<long long>(*reinterpret_cast<std::size_t*>(block));
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate_or_throw(size);
}
void* operator new[](std::size_t size) {
    return allocate_or_throw(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    give_back(memory);
}
void operator delete[](void* memory) noexcept {
    give_back(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    give_back(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    give_back(memory);
}

namespace {

using benchmarks::bar_of_benchmark;
using benchmarks::nanoseconds_of_one;

struct costs {
    double start;
    double quote;
    double unseen_quote;
    double tab_switch;
    long long memory;
};

costs measure(int profiles) {
    costs result{};
    benchmarks::host_of_benchmark host(profiles);
    result.start = nanoseconds_of_one(profiles, [&] { bar_of_benchmark(host).fill(); });
    const long long before = living;
    bar_of_benchmark bar(host);
    bar.fill();
    result.memory = (living - before) / profiles;
    bar.connect();
    double price = 100.0;
    const auto next = [&] { return price = price < 200.0 ? price + 0.25 : 100.0; };
    result.quote = nanoseconds_of_one(1, [&] { bar.quote(0, next()); });
    if (profiles > 1) {
        result.unseen_quote = nanoseconds_of_one(1, [&] { bar.quote(1, next()); });
        int shown = 0;
        result.tab_switch = nanoseconds_of_one(1, [&] { bar.select(shown = 1 - shown); });
    }
    return result;
}

}  // namespace

int main() {
    const benchmarks::apartment_of_benchmark apartment;
    benchmarks::print_head("a tab's share, and one event", "of one profile's");
    const costs one = measure(1);
    const costs few = measure(50);
    const costs many = measure(500);
    benchmarks::print_line("start with 1 profile, each", one.start, one.start);
    benchmarks::print_line("start with 50 profiles, each", few.start, one.start);
    benchmarks::print_line("start with 500 profiles, each", many.start, one.start);
    benchmarks::print_line("quote of the shown tab, 1 profile", one.quote, one.quote);
    benchmarks::print_line("quote of the shown tab, 500 profiles", many.quote, one.quote);
    benchmarks::print_line("quote of another tab, 50 profiles", few.unseen_quote, one.quote);
    benchmarks::print_line("quote of another tab, 500 profiles", many.unseen_quote, one.quote);
    benchmarks::print_line("switch of tabs, 50 profiles", few.tab_switch, few.tab_switch);
    benchmarks::print_line("switch of tabs, 500 profiles", many.tab_switch, few.tab_switch);
    std::printf("bytes that a tab keeps, without its profile: %lld with 1, %lld with 50, %lld with 500\n",
                one.memory, few.memory, many.memory);
}
