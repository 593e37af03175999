#pragma once

#include <windows.h>

#include <commctrl.h>

#include "platform/win32/frame/subclassed_window.h"
#include "unicomp/wtlcontrols/EditCommand/IEditCommandSink2.h"

namespace WTLControls {

// A small button inside an edit that draws itself from the messages that it gets directly, so its parent
// need not reflect any.
class CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications final
    : public frame::subclassed_window {
public:
    // The sink is not owned and outlives the button. It hears of presses, always with the id 0.
    explicit CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications(IEditCommandSink2& sink)
        : m_sink(&sink) {}
    // Without a sink a press goes to the parent, as a command of a button.
    CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications() = default;

    // Three pictures: at rest, under the mouse, and one that no state reaches. Not owned.
    void put_Images(HIMAGELIST images) { m_images = images; }
    // Draws the button anew at once, unless it is hidden.
    void Repaint() const;

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    enum state : int { at_rest = 0, hot = 1, pressed = 4 };

    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void _on_paint();
    void _paint(HDC target);
    void _on_mouse_move(POINT at);
    void _on_mouse_leave();
    void _on_button_down();
    void _on_button_up(POINT at);
    bool _give_mouse_back();
    void _give_up_press();
    bool _contains(POINT at) const;
    void _set_state(state next);
    void _tell_press() const;

    IEditCommandSink2* m_sink = nullptr;
    HIMAGELIST m_images = nullptr;
    state m_state = at_rest;
    // A request to hear when the mouse leaves is outstanding.
    bool m_tracking = false;
    // The button has the mouse from its way down on.
    bool m_held = false;
    // The mouse was taken away while it was down: its way up is no press.
    bool m_given_up = false;
};

}  // namespace WTLControls
