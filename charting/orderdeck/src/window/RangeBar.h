#pragma once

#include <windows.h>

#include <commctrl.h>

#include "charting/orderdeck/src/window/RangeLadder.h"
#include "platform/win32/frame/subclassed_window.h"
#include "platform/win32/window_class.h"
#include "unicomp/wtlcontrols/buttonst/MemoryDCEx.h"

namespace OV_OrderDeck {

class AskBidButtonImpl;

// One of the two small buttons of the range bar. It knows whether the mouse is over it; the bar draws it.
class CRangeArrow final : public frame::subclassed_window {
public:
    bool IsHot() const { return m_hot; }
    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    void _set_hot(bool hot);

    bool m_hot = false;
};

// The ladder of prices that opens beside the ask/bid button: a popup that is shown without becoming
// active and hides at a click, at Esc or when the application is left. Lives on the button's thread.
class RangeBar final : public frame::message_map {
public:
    // The owner and its prices are not owned and outlive the bar.
    RangeBar(AskBidButtonImpl& owner, const CAskBidPrices& market);
    ~RangeBar();
    RangeBar(const RangeBar&) = delete;
    RangeBar& operator=(const RangeBar&) = delete;

    // Makes the hidden window. False when there is none.
    bool Create(HWND button);
    // Ends the window and its pictures; nothing when they are gone.
    void Destroy();
    HWND get_Hwnd() const { return m_hWnd; }
    bool IsVisible() const { return m_hWnd != nullptr && ::IsWindowVisible(m_hWnd); }
    CRangeLadder& get_Ladder() { return m_ladder; }

    // Opens at the rectangle's place without becoming active.
    void Show();
    void Hide();
    // Hides it for a reason that is not the user's: he does not lose the focus by it. Nothing when it is
    // hidden.
    void Close();
    // Places the bar beside the button, topmost and without showing it: on the monitor that the user looks
    // at, which is the mouse's, or by a key the button's.
    void Place(HWND button, bool by_key);
    // Brings the prices up to date and draws them.
    void Recalculate();
    // Width and rows for new quotes.
    void Refresh();
    // The width of a new symbol.
    void ResetWidth();
    // Takes the row as a click on it does; one whose price moved under the user's hand is not taken. Throws
    // std::out_of_range for a row that is none.
    void Select(LONG row);
    // Scrolls or hides by a key. False for a key that means nothing here.
    bool Key(int code);

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    static LRESULT CALLBACK procedure(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    frame::answer _dispatch(UINT uMsg, WPARAM wParam, LPARAM lParam);
    frame::answer _on_mouse_move(POINT at);
    frame::answer _on_command(int id);
    frame::answer _on_draw_item(const DRAWITEMSTRUCT& item);
    LRESULT _on_create();
    LRESULT _on_activate(WPARAM wParam, LPARAM lParam);
    void _on_paint();
    void _paint_row(HDC dc, LONG row);
    LONG _needed_width(HDC dc) const;
    void _measure_font();
    void _build_images();
    void _destroy_images();
    void _resize();
    void _redraw() const;
    bool _has_focus() const;
    void _focus_owner();
    void _follow_root(HWND button);
    void _set_hot_row(LONG row);

    static platform::window_class s_class;

    HWND m_hWnd = nullptr;
    AskBidButtonImpl* m_owner;
    CRangeLadder m_ladder;
    CRangeArrow m_up;
    CRangeArrow m_down;
    // Up at rest, hot and pressed, then down.
    HIMAGELIST m_images = nullptr;
    CustomDraw::CMemorySurface m_surface;
    // A request to hear when the mouse leaves is outstanding.
    bool m_tracking = false;
    bool m_hide_on_deactivate = false;
};

}  // namespace OV_OrderDeck
