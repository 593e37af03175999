#pragma once

#include <string>

#include "platform/com.h"

namespace test {

// Another process that shows a window of the frame's class until this object goes: a hidden one, or a
// top-level one for the kind "top".
class foreign_process {
public:
    explicit foreign_process(const std::wstring& kind = L"hidden") {
        const std::wstring suffix = std::to_wstring(GetCurrentProcessId());
        m_ready = CreateEventW(nullptr, TRUE, FALSE, (L"foreign_frame_ready_" + suffix).c_str());
        m_end = CreateEventW(nullptr, TRUE, FALSE, (L"foreign_frame_end_" + suffix).c_str());
        std::wstring command = L"foreign_frame.exe " + suffix + L" " + kind;
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        m_started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &startup, &m_process) != FALSE;
        if (m_started) {
            const HANDLE both[] = {m_ready, m_process.hProcess};
            m_started = WaitForMultipleObjects(2, both, FALSE, INFINITE) == WAIT_OBJECT_0;
        }
    }
    ~foreign_process() {
        SetEvent(m_end);
        if (m_process.hProcess != nullptr) {
            WaitForSingleObject(m_process.hProcess, INFINITE);
            CloseHandle(m_process.hProcess);
            CloseHandle(m_process.hThread);
        }
        CloseHandle(m_ready);
        CloseHandle(m_end);
    }
    foreign_process(const foreign_process&) = delete;
    foreign_process& operator=(const foreign_process&) = delete;

    // Null when the process did not come up.
    HWND hidden_window() const { return find(HWND_MESSAGE); }
    HWND top_window() const { return find(nullptr); }

private:
    HWND find(HWND parent) const {
        return m_started ? FindWindowExW(parent, nullptr, L"ATL_QVMDIMainFrame", nullptr) : nullptr;
    }

    HANDLE m_ready;
    HANDLE m_end;
    PROCESS_INFORMATION m_process{};
    bool m_started = false;
};

}  // namespace test
