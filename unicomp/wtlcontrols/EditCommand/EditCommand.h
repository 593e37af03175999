#pragma once

#include "platform/win32/frame/subclassed_window.h"
#include "unicomp/wtlcontrols/EditCommand/DrawnButton.h"
#include "unicomp/wtlcontrols/EditCommand/IEditCommandSink2.h"

namespace WTLControls {

// An edit with a small button at its right end. It tells its sink of the button, of the focus, and of
// Enter and Esc. Lives on the edit's thread.
class CEditCommandCtrlWnd2 final : public frame::subclassed_window {
public:
    // The sink is not owned and outlives the edit.
    CEditCommandCtrlWnd2(IEditCommandSink2& sink, LONG id) : m_button(sink), m_id(id), m_sink(&sink) {}
    ~CEditCommandCtrlWnd2();

    // Makes the button as a child of the edit; the pictures come from a strip of the module's resources.
    // After SubclassWindow. False when there is no button.
    bool CreateButton(int button_id, UINT image_strip);
    HWND get_Button() const { return m_button.get_Hwnd(); }

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void _place_button();
    LRESULT _paint_child_edit(HDC target);

    RECT m_button_rect = {};
    HIMAGELIST m_images = nullptr;
    // The list is this object's to destroy.
    bool m_owns_images = false;
    CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications m_button;
    LONG m_id;
    IEditCommandSink2* m_sink;
};

}  // namespace WTLControls
