#include <comdef.h>

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <new>

namespace {

struct message {
    HRESULT result;
    const wchar_t* text;
};

constexpr message k_messages[] = {
    {S_OK, L"Success."},
    {S_FALSE, L"False."},
    {E_NOTIMPL, L"Not implemented."},
    {E_NOINTERFACE, L"No such interface."},
    {E_POINTER, L"Invalid pointer."},
    {E_ABORT, L"Aborted."},
    {E_FAIL, L"Call failed."},
    {E_UNEXPECTED, L"Unexpected failure."},
    {E_ACCESSDENIED, L"Access denied."},
    {E_OUTOFMEMORY, L"Out of memory."},
    {E_INVALIDARG, L"Invalid parameter."},
    {DISP_E_TYPEMISMATCH, L"Type mismatch."},
    {DISP_E_OVERFLOW, L"Out of range."},
    {DISP_E_BADINDEX, L"Invalid index."},
    {REGDB_E_CLASSNOTREG, L"Class not registered."},
};

// Codes that an automation server gave a number of its own.
constexpr HRESULT k_first_server_code = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x200);
constexpr HRESULT k_last_server_code = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0xFFFF);

std::wstring unnamed(HRESULT result) {
    wchar_t text[32];
    if (result > k_first_server_code && result <= k_last_server_code) {
        std::swprintf(text, std::size(text), L"IDispatch error #%d", result - k_first_server_code);
    } else {
        std::swprintf(text, std::size(text), L"Unknown error 0x%0X", static_cast<unsigned>(result));
    }
    return text;
}

}  // namespace

_com_error::_com_error(HRESULT result) noexcept : m_result(result) {}

// The text is made on demand, so a copy needs no memory and cannot fail.
_com_error::_com_error(const _com_error& other) noexcept : m_result(other.m_result) {}

_com_error& _com_error::operator=(const _com_error& other) noexcept {
    if (this != &other) {
        m_result = other.m_result;
        m_message.clear();
    }
    return *this;
}

_com_error::~_com_error() = default;

HRESULT _com_error::Error() const noexcept {
    return m_result;
}

const wchar_t* _com_error::ErrorMessage() const noexcept {
    const auto* const known = std::find_if(std::begin(k_messages), std::end(k_messages),
                                           [&](const message& m) { return m.result == m_result; });
    if (known != std::end(k_messages)) {
        return known->text;
    }
    try {
        if (m_message.empty()) {
            m_message = unnamed(m_result);
        }
        return m_message.c_str();
    } catch (const std::bad_alloc&) {
        return L"Unknown error";
    }
}

void _com_issue_error(HRESULT result) {
    throw _com_error(result);
}
