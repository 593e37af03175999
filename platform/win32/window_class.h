// A window class of this module.
#pragma once

#include "platform/com.h"

namespace platform {

// Registered on demand and taken back when the module goes: the system does not do that for a library, and
// a window of a class that was left behind would run code that is no more. Make one for each class, static;
// by then its windows must be gone.
class window_class {
public:
    // Keeps the name, which must outlive the object..
    constexpr window_class(const wchar_t* name, WNDPROC procedure) noexcept
        : m_name(name), m_procedure(procedure) {}
    ~window_class();
    window_class(const window_class&) = delete;
    window_class& operator=(const window_class&) = delete;

    // Any thread; at each use, a class that is there already is a success. False with the thread's last
    // error.
    bool Register() noexcept;

    const wchar_t* name() const noexcept { return m_name; }

    // Whose class it is: another module with the same code must not get our procedure.
    static HINSTANCE module() noexcept;

private:
    const wchar_t* m_name;
    WNDPROC m_procedure;
};

}  // namespace platform
