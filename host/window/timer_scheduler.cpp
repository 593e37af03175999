#include "window/timer_scheduler.h"

#include <stdexcept>
#include <utility>

namespace host {
namespace {

constexpr const wchar_t* class_name = L"OrderDeckHostTimers";

}  // namespace

timer_scheduler::timer_scheduler() {
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = &timer_scheduler::procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = class_name;
    RegisterClassExW(&description);
    m_window = CreateWindowExW(0, class_name, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                               description.hInstance, nullptr);
    if (m_window == nullptr) {
        throw std::runtime_error("The timer window can't be made");
    }
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

timer_scheduler::~timer_scheduler() {
    DestroyWindow(m_window);
    UnregisterClassW(class_name, GetModuleHandleW(nullptr));
}

void timer_scheduler::after(unsigned milliseconds, std::function<void()> work) {
    const UINT_PTR id = ++m_last_id;
    m_waiting.emplace(id, std::move(work));
    SetTimer(m_window, id, milliseconds, nullptr);
}

LRESULT CALLBACK timer_scheduler::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<timer_scheduler*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_TIMER && self != nullptr) {
        self->run(wparam);
        return 0;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

void timer_scheduler::run(UINT_PTR id) {
    KillTimer(m_window, id);
    const auto found = m_waiting.find(id);
    if (found == m_waiting.end()) {
        return;
    }
    const std::function<void()> work = std::move(found->second);
    m_waiting.erase(found);
    try {
        work();
    } catch (const std::exception& error) {
        // Nobody waits for the work, and no exception may leave a window procedure.
        OutputDebugStringA(error.what());
    }
}

}  // namespace host
