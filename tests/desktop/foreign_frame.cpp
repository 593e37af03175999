// A process with a frame of its own, for the tests of the frame's finder: its window stands between the
// two events that the test made. The arguments are what their names end with, and the kind of window.
#include <string>

#include "platform/com.h"

namespace {

HANDLE open_event(const wchar_t* start, const wchar_t* suffix) {
    return OpenEventW(SYNCHRONIZE | EVENT_MODIFY_STATE, FALSE, (std::wstring(start) + suffix).c_str());
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 3) {
        return 2;
    }
    const HANDLE ready = open_event(L"foreign_frame_ready_", argv[1]);
    const HANDLE end = open_event(L"foreign_frame_end_", argv[1]);
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = DefWindowProcW;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = L"ATL_QVMDIMainFrame";
    RegisterClassW(&window_class);
    const bool top = std::wstring(argv[2]) == L"top";
    const HWND window =
        CreateWindowExW(0, window_class.lpszClassName, L"", WS_POPUP, 0, 0, 10, 10,
                        top ? nullptr : HWND_MESSAGE, nullptr, window_class.hInstance, nullptr);
    if (window == nullptr || ready == nullptr || end == nullptr) {
        return 1;
    }
    SetEvent(ready);
    // Messages must not wait while the test looks for the window.
    while (MsgWaitForMultipleObjects(1, &end, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }
    return 0;
}
