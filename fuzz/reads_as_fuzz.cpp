// What a shown text reads as: any text under any conventions of a user.
#include <cmath>
#include <cstdint>
#include <limits>

#include "fuzz/input.h"
#include "platform/posix/icu_number_locale.h"
#include "platform/posix/number_reader.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"
#include "unicomp/FormatUtil/interface/PriceScale.h"
#include "unicomp/FormatUtil/interface/ReadsAs.h"

namespace {

using fuzz::require;

struct marks {
    const wchar_t* decimal;
    const wchar_t* group;
    const wchar_t* grouping;
};

constexpr marks all_marks[] = {{L".", L",", L"3;0"}, {L",", L".", L"3;0"},   {L",", L"\u202F", L"3;0"},
                               {L".", L"'", L"3;0"}, {L".", L",", L"3;2;0"}, {L".", L",", L"3"},
                               {L",", L".", L""},    {L".", L",", L"4;0"},   {L",", L",", L"3;0"},
                               {L"", L",", L"3;0"},  {L".", L"", L"3;0"}};

// A user who may have set anything. The system's part is done as the native one does it.
class fuzzed_user final : public platform::number_locale {
public:
    void be(std::uint8_t choice) {
        const marks& chosen = all_marks[choice % std::size(all_marks)];
        m_conventions.decimal_separator = chosen.decimal;
        m_conventions.group_separator = chosen.group;
        m_conventions.grouping = chosen.grouping;
        m_conventions.negative_form = choice / std::size(all_marks) % 5;
        m_conventions.leading_zero = choice % 2;
    }

    platform::number_conventions user_conventions() override { return m_conventions; }
    std::optional<CString> format_number(const CString& text,
                                         const platform::number_format& format) override {
        return m_system.format_number(text, format);
    }
    CString double_to_text(double value) override { return m_system.double_to_text(value); }
    std::optional<double> text_to_double(const CString& text) override {
        return platform::read_number(text, m_conventions);
    }

private:
    platform::icu_number_locale m_system{"en_US"};
    platform::number_conventions m_conventions;
};

// A text that reads is parsed as the number that it reads as.
void check_price(const CString& text, const CPriceScale& scale) {
    const std::optional<double> reads = local_format::PriceReadsAs(text);
    if (!reads) {
        return;
    }
    require(std::isfinite(*reads));
    double parsed = std::numeric_limits<double>::quiet_NaN();
    require(scale.Parse(text, parsed));
    require(local_format::IsSamePrice(*reads, parsed, 0.0));
}

void check_quantity(const CString& text) {
    constexpr LONG none = std::numeric_limits<LONG>::max();
    const std::optional<LONG> reads = local_format::QuantityReadsAs(text);
    if (!reads) {
        return;
    }
    require(*reads >= 0 && *reads < none);
    require(local_format::QuantityReadsAs(local_format::CNumberFormat::IntegerToText(*reads)) == reads);
    require(local_format::QuantityReadsAs(std::to_wstring(*reads)) == reads);
}

}  // namespace

// The first byte chooses the scale and the second the user.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t header = 2;
    if (size < header) {
        return 0;
    }
    static fuzzed_user user;
    user.be(data[1]);
    const platform::port<platform::number_locale>::replacement replacement(user);
    locale_records::read_again();
    const CString text = fuzz::text_of(fuzz::bytes(data, size).subspan(header));
    check_price(text, CPriceScale(static_cast<LONG>(data[0]) - 1));
    check_quantity(text);
    return 0;
}
