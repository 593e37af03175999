#include "tests/monkey/quantity_model.h"

#include <algorithm>

#include "tests/monkey/price_model.h"

namespace monkey {

namespace {

constexpr long long lowest = 1;
constexpr long long highest = 1000000000;

CString digits_of(const CString& text) {
    CString digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                 [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    return digits;
}

}  // namespace

CString shown_quantity(LONG value) {
    const auto tenths = [](LONG count) {
        return grouped(count / 10) + (count % 10 != 0 ? L"." + std::to_wstring(count % 10) : CString());
    };
    if (value != 0 && value % 100000 == 0) {
        return tenths(value / 100000) + L"M";
    }
    return value % 100 == 0 && value >= 1000 ? tenths(value / 100) + L"K" : grouped(value);
}

const std::vector<CString>& odd_quantities() {
    static const std::vector<CString> all = {L"",           L"0",    L"007", L"12a3", L"-5",
                                             L"1.5",        L"1K",   L"00",  L"abc",  L"2000000000",
                                             L"1000000001", L"0000", L" 8",  L"1000", L"1,500"};
    return all;
}

void quantity_model::reset() {
    m_text.clear();
    m_value = 1;
    m_step = 1;
    m_inside = false;
}

// A short form is no number, and an empty text is none that is wrong.
bool quantity_model::valid() const {
    if (m_text.empty()) {
        return true;
    }
    const CString digits = digits_of(m_text);
    const bool number = m_text.find_first_not_of(L"0123456789,") == CString::npos && digits.size() <= 10;
    const long long found = number ? std::stoll(digits) : 0;
    return number && found >= lowest && found <= highest;
}

void quantity_model::take() {
    if (m_text.empty()) {
        m_tell({L"", std::nullopt, DISP_E_TYPEMISMATCH});
        return;
    }
    m_value = static_cast<LONG>(std::stoll(digits_of(m_text)));
    m_tell({m_text, m_value});
}

void quantity_model::write(const CString& text) {
    if (text != m_text) {
        m_text = text;
        if (valid()) {
            take();
        }
    }
}

void quantity_model::put_value(LONG value) {
    if (value < lowest || value > highest || std::to_wstring(value) == m_text) {
        return;
    }
    write(std::to_wstring(value));
    if (!m_inside) {
        write(shown_quantity(m_value));
    }
}

void quantity_model::enter() {
    m_inside = true;
    if (!m_text.empty()) {
        put_value(m_value);
    }
}

void quantity_model::leave() {
    if (valid()) {
        take();
    } else {
        put_value(m_value);
    }
    if (!m_text.empty()) {
        write(shown_quantity(m_value));
    }
    m_inside = false;
}

// The first digit takes the place of what was there.
void quantity_model::type(const CString& keys) {
    if (keys.empty()) {
        write(CString());
    }
    CString typed;
    for (const wchar_t digit : digits_of(keys)) {
        typed += digit;
        // A digit that is typed over the same one is a change all the same.
        m_text.clear();
        write(typed);
    }
}

void quantity_model::step(int direction) {
    const long long wanted = static_cast<long long>(m_value) + direction * static_cast<long long>(m_step);
    if (wanted >= lowest && wanted <= highest) {
        put_value(static_cast<LONG>(wanted));
    }
}

}  // namespace monkey
