#pragma once

#include "platform/win32/frame/message_map.h"

namespace frame {

// Sits before the window procedure of a control. Lives on the control's thread; the window stays the
// control's owner's. m_hWnd is null before SubclassWindow and after the window was destroyed.
class subclassed_window : public message_map {
public:
    subclassed_window() = default;
    subclassed_window(const subclassed_window&) = delete;
    subclassed_window& operator=(const subclassed_window&) = delete;

    // False when the window can't be subclassed.
    bool SubclassWindow(HWND hWnd);
    HWND get_Hwnd() const { return m_hWnd; }

protected:
    ~subclassed_window();

    // What the window does without this object.
    LRESULT DefWindowProc(UINT uMsg, WPARAM wParam, LPARAM lParam) const;

    HWND m_hWnd = nullptr;

private:
    static LRESULT CALLBACK procedure(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);
};

}  // namespace frame
