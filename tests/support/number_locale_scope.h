// Number conventions that a test chooses.
#pragma once

#include <charconv>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "platform/number_locale.h"
#include "platform/number_text.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"

// A number_locale with the given conventions, the same on both systems. Number formatting is the
// system's; what it is asked for is kept. Double to text and back know signs, group separators and the
// decimal separator, and nothing else.
class test_number_locale : public platform::number_locale {
public:
    explicit test_number_locale(platform::number_conventions conventions)
        : m_conventions(std::move(conventions)) {}

    platform::number_conventions user_conventions() override {
        ++m_reads;
        return m_conventions;
    }

    std::optional<CString> format_number(const CString& text,
                                         const platform::number_format& format) override {
        m_formatted.emplace_back(text, format);
        if (m_fails) {
            return std::nullopt;
        }
        return platform::port<platform::number_locale>::system().format_number(text, format);
    }

    CString double_to_text(double value) override {
        char buffer[64];
        const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
        CString result;
        for (const char* at = buffer; at != end.ptr; ++at) {
            result += *at == '.' ? m_conventions.decimal_separator : CString(1, static_cast<wchar_t>(*at));
        }
        return result;
    }

    std::optional<double> text_to_double(const CString& text) override {
        std::string plain;
        const CString trimmed = platform::trim(text);
        for (std::size_t at = 0; at < trimmed.size();) {
            if (starts(trimmed, at, m_conventions.decimal_separator)) {
                plain += '.';
                at += m_conventions.decimal_separator.size();
            } else if (starts(trimmed, at, m_conventions.group_separator)) {
                at += m_conventions.group_separator.size();
            } else {
                const wchar_t character = trimmed[at++];
                plain += character < 128 ? static_cast<char>(character) : '?';
            }
        }
        double value = 0.0;
        const auto end = std::from_chars(plain.data(), plain.data() + plain.size(), value);
        const bool whole = end.ec == std::errc() && end.ptr == plain.data() + plain.size();
        return whole && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
    }

    // How often the conventions were read.
    int m_reads = 0;
    // Every later formatting fails.
    bool m_fails = false;
    // Each text to be formatted with its format, in order.
    std::vector<std::pair<CString, platform::number_format>> m_formatted;

private:
    static bool starts(const CString& text, std::size_t at, const CString& part) {
        return !part.empty() && text.compare(at, part.size(), part) == 0;
    }

    platform::number_conventions m_conventions;
};

inline platform::number_conventions conventions_of(const wchar_t* decimal, const wchar_t* group,
                                                   const wchar_t* grouping, UINT negative_form = 1) {
    platform::number_conventions result;
    result.decimal_separator = decimal;
    result.group_separator = group;
    result.grouping = grouping;
    result.locale = 0x400;
    result.leading_zero = 1;
    result.negative_form = negative_form;
    return result;
}

inline platform::number_conventions english(UINT negative_form = 1) {
    return conventions_of(L".", L",", L"3;0", negative_form);
}
inline platform::number_conventions german() {
    return conventions_of(L",", L".", L"3;0");
}
inline platform::number_conventions french() {
    return conventions_of(L",", L"\u202F", L"3;0");
}
inline platform::number_conventions hindi() {
    return conventions_of(L".", L",", L"3;2;0");
}

// The user has these conventions while it lives: the number_locale stands in and the module's records are
// read again, now and when they end.
class number_locale_scope {
public:
    explicit number_locale_scope(platform::number_conventions conventions)
        : m_locale(std::move(conventions)), m_replacement(std::in_place, m_locale) {
        locale_records::read_again();
    }
    ~number_locale_scope() {
        m_replacement.reset();
        locale_records::read_again();
    }
    number_locale_scope(const number_locale_scope&) = delete;
    number_locale_scope& operator=(const number_locale_scope&) = delete;

    test_number_locale& locale() { return m_locale; }

private:
    test_number_locale m_locale;
    std::optional<platform::port<platform::number_locale>::replacement> m_replacement;
};
