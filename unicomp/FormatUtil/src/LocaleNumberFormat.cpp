#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"

#include "platform/number_text.h"

namespace {

constexpr std::size_t longest_text = 9;

CString short_text(const CString& text) {
    return text.size() <= longest_text ? text : CString();
}

void fill(SLocaleNumberFormat& record, const platform::number_conventions& conventions) {
    record.m_sDecimalSeparator = short_text(conventions.decimal_separator);
    record.m_sGroupSeparator = short_text(conventions.group_separator);
    record.m_nLocale = conventions.locale;
    record.m_nLeadingZero = conventions.leading_zero;
    record.m_nGrouping = fold_grouping(short_text(conventions.grouping));
    record.m_nNegativeForm = conventions.negative_form;
}

SLocaleNumberFormat s_number = SLocaleNumberFormat::Read();
SPriceLocaleFormat s_price = SPriceLocaleFormat::Read();

}  // namespace

SLocaleNumberFormat SLocaleNumberFormat::Read() {
    SLocaleNumberFormat result;
    fill(result, platform::port<platform::number_locale>::get().user_conventions());
    return result;
}

SPriceLocaleFormat SPriceLocaleFormat::Read() {
    const platform::number_conventions conventions =
        platform::port<platform::number_locale>::get().user_conventions();
    SPriceLocaleFormat result;
    fill(result, conventions);
    result.m_sGrouping = short_text(conventions.grouping);
    result.m_nDecimalSeparatorLength = result.m_sDecimalSeparator.size();
    result.m_nGroupSeparatorLength = result.m_sGroupSeparator.size();
    return result;
}

platform::number_format SLocaleNumberFormat::GetFormat(UINT decimals, bool group) const {
    platform::number_format result;
    result.decimals = decimals;
    result.leading_zero = m_nLeadingZero;
    result.grouping = group ? m_nGrouping : 0;
    result.decimal_separator = m_sDecimalSeparator;
    result.group_separator = m_sGroupSeparator;
    result.negative_form = m_nNegativeForm;
    result.locale = m_nLocale;
    return result;
}

CString SLocaleNumberFormat::MakeNegative(const CString& text) const {
    return GetNegativePrefix() + text + GetNegativeSuffix();
}

CString SLocaleNumberFormat::GetNegativePrefix() const {
    switch (m_nNegativeForm) {
        case 0:
            return L"(";
        case 1:
            return L"-";
        case 2:
            return L"- ";
        default:
            return {};
    }
}

CString SLocaleNumberFormat::GetNegativeSuffix() const {
    switch (m_nNegativeForm) {
        case 0:
            return L")";
        case 3:
            return L"-";
        case 4:
            return L" -";
        default:
            return {};
    }
}

bool SLocaleNumberFormat::SplitSign(const CString& text, CString& body) const {
    body = platform::trim(text);
    if (body.empty()) {
        return false;
    }
    if (body.front() == L'-' || body.front() == L'+') {
        const bool negative = body.front() == L'-';
        body.erase(0, 1);
        return negative;
    }
    if (m_nNegativeForm == 0 && body.front() == L'(' && body.back() == L')') {
        body = body.substr(1, body.size() - 2);
        return true;
    }
    if ((m_nNegativeForm == 3 || m_nNegativeForm == 4) && body.back() == L'-') {
        body.pop_back();
        return true;
    }
    return false;
}

UINT fold_grouping(const CString& grouping) {
    UINT total = 0;
    std::size_t at = 0;
    while (at < grouping.size()) {
        UINT size = 0;
        for (; at < grouping.size() && platform::is_digit(grouping[at]); ++at) {
            size = size * 10 + static_cast<UINT>(grouping[at] - L'0');
        }
        total += size;
        if (grouping.compare(at, CString::npos, L";0") == 0) {
            break;
        }
        ++at;
        total *= 10;
    }
    return total;
}

namespace locale_records {

const SLocaleNumberFormat& number() {
    return s_number;
}

const SPriceLocaleFormat& price() {
    return s_price;
}

void read_again() {
    s_number = SLocaleNumberFormat::Read();
    s_price = SPriceLocaleFormat::Read();
}

}  // namespace locale_records
