#pragma once

#include <utility>

#include "platform/com.h"

namespace OV_OrderDeck {

// A text that the host gave away, freed at the end. Reading one costs no allocation of ours.
class owned_text {
public:
    owned_text() = default;
    ~owned_text() { SysFreeString(m_text); }
    owned_text(owned_text&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
    owned_text(const owned_text&) = delete;
    owned_text& operator=(const owned_text&) = delete;

    BSTR* receive() { return &m_text; }
    BSTR get() const { return m_text; }
    BSTR release() { return std::exchange(m_text, nullptr); }
    // Never null: a null text reads as the empty one.
    const wchar_t* c_str() const { return m_text != nullptr ? m_text : L""; }

private:
    BSTR m_text = nullptr;
};

// Whether two texts are equal but for the case of the letters A to Z. Other letters differ by case, in
// whatever locale the host has put the process. Neither may be null.
inline bool equal_without_case(const wchar_t* left, const wchar_t* right) {
    const auto folded = [](wchar_t c) {
        return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
    };
    while (folded(*left) == folded(*right)) {
        if (*left == L'\0') {
            return true;
        }
        ++left;
        ++right;
    }
    return false;
}

}  // namespace OV_OrderDeck
