#pragma once

#include <windows.h>

#include <commctrl.h>
#include <uxtheme.h>

#include <optional>

#include "platform/text.h"
#include "platform/win32/frame/subclassed_window.h"
#include "unicomp/wtlcontrols/buttonst/ButtonFace.h"
#include "unicomp/wtlcontrols/buttonst/ButtonSTRendererEx.h"
#include "unicomp/wtlcontrols/buttonst/IButtonPressSink.h"
#include "unicomp/wtlcontrols/buttonst/IButtonSTEventSink.h"

namespace WTLControls {

// A push button that draws itself. It subclasses a BUTTON whose parent reflects the messages that an
// owner gets (frame::reflect). Lives on the window's thread.
class CButtonST : public frame::subclassed_window {
public:
    CButtonST() = default;

    // False when the window can't be subclassed.
    bool SubclassWindow(HWND button);

    // Bits of ButtonFlag.
    void put_Flags(DWORD flags);
    DWORD get_Flags() const { return m_flags; }
    // Bits of ButtonStyle, and who hears of clicks in the two parts; the sink is not owned.
    void put_Style(DWORD style, IButtonSTEventSink* sink);
    // Who hears that a press begins; not owned, null for none.
    void put_PressSink(IButtonPressSink* sink) { m_press_sink = sink; }
    // True: a double click, and every click that follows on its heels, is one press with its first click.
    void put_OnePressForFastClicks(bool one) { m_one_press = one; }
    // Where the drop-down part begins, in client pixels.
    void put_Split(LONG split);
    // See ButtonColour.
    void put_Colour(DWORD key, COLORREF colour);
    void put_Colours(COLORREF top, COLORREF bottom);
    void put_RepeatDelay(DWORD milliseconds) { m_repeat_delay = milliseconds; }
    // Shown while the mouse is over the button; not owned, null for the system's own.
    void put_Cursor(HCURSOR cursor) { m_cursor = cursor; }
    // The first image stands before the text; not owned.
    void put_Images(HIMAGELIST images);
    // Opened by a click; empty for none.
    void put_URL(const CString& url) { m_url = url; }
    // After SubclassWindow. In place of the former text.
    void put_Tooltip(const CString& text);
    HWND get_Tooltip() const { return m_tooltip; }
    bool get_Check() const { return m_checked; }
    // A checked button looks pressed. Nobody is told.
    void put_Check(bool checked);
    bool IsHot() const { return (m_state & ButtonState::Hot) != 0; }
    // What the next paint draws.
    SButtonPicture get_Picture() const;

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

protected:
    ~CButtonST();

    // The messages of every button of this kind.
    virtual frame::answer _ProcessWindowMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // Opens the URL with the program that the user has for it.
    virtual void OpenURL(const CString& url);
    void Repaint() const;
    // The key that opens the drop-down part: F4, or Alt with the down arrow.
    static bool is_drop_down_key(UINT uMsg, WPARAM key);
    // From what comes with a key: it went down before.
    static bool is_held_key(LPARAM key) { return (HIWORD(key) & KF_REPEAT) != 0; }

private:
    frame::answer _on_mouse(UINT uMsg, WPARAM wParam, LPARAM lParam);
    frame::answer _on_key(UINT uMsg, WPARAM wParam, LPARAM lParam);
    frame::answer _on_reflected(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void _on_mouse_move(WPARAM keys, POINT at);
    frame::answer _on_second_down(WPARAM keys, LPARAM at);
    LRESULT _on_button_down(WPARAM keys, LPARAM at);
    bool _follows_double_click() const;
    void _repeat_until_released();
    void _tell_sink(POINT at);
    void _tell_press(bool by_key) const;
    // The release of a press, inside the button or not.
    void _tell_release(bool inside) const;
    frame::answer _on_button_up();
    frame::answer _on_released_key();
    RECT _client() const;
    SButtonPicture _picture(bool pressed, bool focused) const;
    LRESULT _on_set_text(WPARAM wParam, LPARAM lParam) const;
    void _on_reflected_click();
    void _draw(const DRAWITEMSTRUCT& item);
    LRESULT _after_losing_heat(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void _relay(UINT uMsg, WPARAM wParam, LPARAM lParam) const;
    void _cool();
    bool _is_held(WPARAM keys) const;
    void _give_mouse_back() const;
    bool _has_sink() const { return m_sink != nullptr && (m_style & ButtonStyle::DropDown) != 0; }
    void _open_theme();
    void _close_theme();
    void _let_go();

    DWORD m_flags = 0;
    DWORD m_style = 0;
    DWORD m_state = 0;
    LONG m_split = 0;
    button_colours m_colours;
    DWORD m_repeat_delay = 150;
    HCURSOR m_cursor = nullptr;
    HIMAGELIST m_images = nullptr;
    HTHEME m_theme = nullptr;
    HWND m_tooltip = nullptr;
    CString m_url;
    bool m_checked = false;
    bool m_one_press = false;
    // When the last double click was, as messages tell the time.
    std::optional<LONG> m_double_click;
    // The sink has heard of the present press: its release is no click.
    bool m_told = false;
    IButtonSTEventSink* m_sink = nullptr;
    IButtonPressSink* m_press_sink = nullptr;
    CButtonSTRendererEx m_renderer;
    CustomDraw::CMemorySurface m_surface;
};

// The two trade buttons; they differ in their colours only. A hand that clicks twice wants one order.
class CButtonSTForBuyAction final : public CButtonST {
public:
    CButtonSTForBuyAction() {
        put_Colours(0xF1D0C0, 0xCBB0A0);
        put_OnePressForFastClicks(true);
    }
};

class CButtonSTForSellAction final : public CButtonST {
public:
    CButtonSTForSellAction() {
        put_Colours(0xC5C5F1, 0x8181D7);
        put_OnePressForFastClicks(true);
    }
};

}  // namespace WTLControls
