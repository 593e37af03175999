#include "platform/event.h"

#include <utility>

namespace platform {

bool event::Create(reset_mode mode) noexcept {
    Close();
    m_mode = mode;
    m_handle = CreateEventW(nullptr, mode == reset_mode::manual, FALSE, nullptr);
    return m_handle != nullptr;
}

bool event::Set() noexcept {
    return SetEvent(m_handle) == 1;
}

bool event::Reset() noexcept {
    return ResetEvent(m_handle) != FALSE;
}

DWORD event::Wait(DWORD timeout, bool alertable) noexcept {
    return WaitForSingleObjectEx(m_handle, timeout, alertable);
}

bool event::Close() noexcept {
    const HANDLE handle = std::exchange(m_handle, nullptr);
    return handle != nullptr && CloseHandle(handle) == 1;
}

}  // namespace platform
