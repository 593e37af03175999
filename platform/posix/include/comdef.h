// The exception that carries an HRESULT, with the owning text and variant.
#pragma once

#include <string>

#include "comutil.h"

// Error information objects are not in use, so an error is its code.
class _com_error {
public:
    explicit _com_error(HRESULT result) noexcept;
    _com_error(const _com_error& other) noexcept;
    _com_error& operator=(const _com_error& other) noexcept;
    virtual ~_com_error();

    HRESULT Error() const noexcept;
    // A line of English; lives as long as this object. "Unknown error 0x..." for a code without one.
    const wchar_t* ErrorMessage() const noexcept;

private:
    HRESULT m_result;
    mutable std::wstring m_message;
};
