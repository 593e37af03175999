#include "platform/win32/window_class.h"

#include "platform/process.h"

namespace platform {

window_class::~window_class() {
    // A process that ends gives its classes back by itself, and the windows' own library may be gone.
    if (!process_is_ending()) {
        UnregisterClassW(m_name, module());
    }
}

bool window_class::Register() noexcept {
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = m_procedure;
    description.hInstance = module();
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    description.lpszClassName = m_name;
    return RegisterClassExW(&description) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

HINSTANCE window_class::module() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&window_class::module), &module);
    return module;
}

}  // namespace platform
