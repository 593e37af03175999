#pragma once

#include "platform/win32/frame/message_map.h"

namespace frame {

// A modeless dialog from a template of the module. Lives on the thread that makes its window. The
// window ends with the object, or before it; m_hWnd is null from then on. What its controls ask and it does
// not take itself goes back to them (reflect).
class dialog : public message_map {
public:
    dialog() = default;
    dialog(const dialog&) = delete;
    dialog& operator=(const dialog&) = delete;

    // False when there is no window. Messages come from within this call on.
    bool Create(UINT template_id, HWND parent);
    void DestroyWindow();

    HWND get_Item(int id) const { return GetDlgItem(m_hWnd, id); }

protected:
    // A derived class destroys the window in its own destructor, so that the last messages still find it.
    ~dialog();

    HWND m_hWnd = nullptr;

private:
    static INT_PTR CALLBACK procedure(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
};

}  // namespace frame
