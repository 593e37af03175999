#include "platform/win32/frame/window_text.h"

namespace frame {

CString window_text(HWND window) {
    CString text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace frame
