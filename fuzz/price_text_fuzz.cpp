// Typed prices: any text under any code and locale, and back again.
#include <cmath>
#include <cstdint>

#include "fuzz/input.h"
#include "platform/posix/icu_number_locale.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"

namespace {

using fuzz::require;

// A locale of ICU's under any of the five negative forms.
class fuzzed_locale final : public platform::number_locale {
public:
    explicit fuzzed_locale(const char* name) : m_locale(name) {}

    platform::number_conventions user_conventions() override {
        platform::number_conventions result = m_locale.user_conventions();
        result.negative_form = m_negative_form;
        return result;
    }
    std::optional<CString> format_number(const CString& text,
                                         const platform::number_format& format) override {
        return m_locale.format_number(text, format);
    }
    CString double_to_text(double value) override { return m_locale.double_to_text(value); }
    std::optional<double> text_to_double(const CString& text) override {
        return m_locale.text_to_double(text);
    }

    UINT m_negative_form = 1;

private:
    platform::icu_number_locale m_locale;
};

fuzzed_locale& locale_of(std::uint8_t choice) {
    static fuzzed_locale locales[] = {fuzzed_locale("en_US"), fuzzed_locale("de_DE"), fuzzed_locale("fr_FR"),
                                      fuzzed_locale("hi_IN")};
    fuzzed_locale& result = locales[choice % 4];
    result.m_negative_form = choice / 4 % 5;
    return result;
}

void check_shown_again(const CPriceScale& scale, double value, const CString& shown, LONG multiple) {
    constexpr double largest_on_grid = 9e9;
    constexpr double most_exact_steps = 1e12;
    const double step = scale.GetStep();
    if (step < 0.0 || std::fabs(value) > largest_on_grid || std::fabs(value) / step > most_exact_steps) {
        return;
    }
    double back = 0.0;
    require(scale.Parse(shown, back));
    require(scale.Format(back, true, multiple) == shown);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t header = 3;
    if (size < header) {
        return 0;
    }
    const CPriceScale scale(static_cast<LONG>(data[0]) - 1);
    const LONG multiple = data[1];
    const platform::port<platform::number_locale>::replacement replacement(locale_of(data[2]));
    locale_records::read_again();
    const CString text = fuzz::text_of(fuzz::bytes(data, size).subspan(header));

    constexpr double untouched = -77.25;
    double value = untouched;
    if (!scale.Parse(text, value)) {
        require(value == untouched);
        return 0;
    }
    require(std::isfinite(value));
    const CString shown = scale.Format(value, true, multiple);
    require(!shown.empty());
    require(shown.find_first_of(L"123456789") != CString::npos || shown.find(L'-') == CString::npos);
    require(scale.GetTextWidthInChars(shown) > 0);
    check_shown_again(scale, value, shown, multiple);
    return 0;
}
