#include "platform/message_pump.h"

#include <utility>

#include "platform/win32/window_class.h"

namespace platform {
namespace {

struct target_data {
    message_target::handler handle;
    void* context;
};

LRESULT CALLBACK target_procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        return TRUE;
    }
    auto* const data = reinterpret_cast<target_data*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        delete data;
        return 0;
    }
    if (data != nullptr && (message >= WM_USER || message == WM_TIMER)) {
        return data->handle(data->context, message, wParam, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

window_class the_class(L"OrderDeck.MessageTarget", &target_procedure);

}  // namespace

bool message_target::Create(handler handle, void* context) noexcept {
    Destroy();
    if (!the_class.Register()) {
        return false;
    }
    auto* const data = new (std::nothrow) target_data{handle, context};
    if (data == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    m_handle = CreateWindowExW(0, the_class.name(), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                               window_class::module(), data);
    // A window that was refused before its first message never took the data over; one that was refused
    // later has deleted it. The first can't be told from the second, and neither happens to a
    // message-only window of a registered class, so the few bytes are let go.
    return m_handle != nullptr;
}

bool message_target::Destroy() noexcept {
    const HWND handle = std::exchange(m_handle, nullptr);
    return handle != nullptr && DestroyWindow(handle) != FALSE;
}

bool message_target::Post(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return m_handle != nullptr && PostMessageW(m_handle, message, wParam, lParam) == 1;
}

LRESULT message_target::Send(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return m_handle != nullptr ? SendMessageW(m_handle, message, wParam, lParam) : 0;
}

bool message_target::SendBlocking(UINT message, WPARAM wParam, LPARAM lParam, DWORD timeout) noexcept {
    DWORD_PTR result = 0;
    return m_handle != nullptr &&
           SendMessageTimeoutW(m_handle, message, wParam, lParam, SMTO_BLOCK, timeout, &result) != 0;
}

bool message_target::SetTimer(UINT_PTR id, UINT period) noexcept {
    return m_handle != nullptr && ::SetTimer(m_handle, id, period, nullptr) != 0;
}

bool message_target::KillTimer(UINT_PTR id) noexcept {
    return m_handle != nullptr && ::KillTimer(m_handle, id) != FALSE;
}

bool message_target::is_alive() const noexcept {
    return m_handle != nullptr && IsWindow(m_handle);
}

bool peek_message(MSG& message) noexcept {
    return PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;
}

void dispatch_message(const MSG& message) noexcept {
    DispatchMessageW(&message);
}

void post_quit_message(int exit_code) noexcept {
    PostQuitMessage(exit_code);
}

bool post_thread_message(DWORD thread_id, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return PostThreadMessageW(thread_id, message, wParam, lParam) != FALSE;
}

DWORD wait_for_event_or_message(event& what, DWORD timeout, bool alertable) noexcept {
    const HANDLE handle = what.get();
    return MsgWaitForMultipleObjectsEx(1, &handle, timeout, QS_ALLINPUT,
                                       MWMO_INPUTAVAILABLE | (alertable ? MWMO_ALERTABLE : 0));
}

}  // namespace platform
