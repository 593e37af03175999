#include "platform/win32/find_frame.h"

#include <array>
#include <cwchar>

namespace platform::win32 {

namespace {

constexpr wchar_t s_frame_class[] = L"ATL_QVMDIMainFrame";

bool has_frame_class(HWND window) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    // With its terminator, so that a longer name is another class.
    return std::wmemcmp(name.data(), s_frame_class, std::size(s_frame_class)) == 0;
}

bool matches(HWND window, const frame_search& search) {
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(window, &process);
    if (search.mode == frame_search::frame_class) {
        return process == GetCurrentProcessId() && has_frame_class(window);
    }
    return thread != search.thread && GetWindowLongPtrW(window, GWLP_USERDATA) == search.value;
}

BOOL CALLBACK on_window(HWND window, LPARAM parameter) {
    return examine_window(window, *reinterpret_cast<frame_search*>(parameter)) ? TRUE : FALSE;
}

}  // namespace

bool examine_window(HWND window, frame_search& search) {
    if (!IsWindow(window) || !matches(window, search)) {
        return true;
    }
    if (IsWindow(window)) {
        search.result = window;
    }
    return false;
}

HWND find_frame(frame_search search) {
    EnumWindows(on_window, reinterpret_cast<LPARAM>(&search));
    return search.result;
}

}  // namespace platform::win32
