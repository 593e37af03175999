#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "charting/orderdeck/interface/IUnifyControl.h"
#include "charting/orderdeck/interface/OD_UpdateEntity.h"

namespace OV_OrderDeck {

// What the layout asks of the windows of the panel. Coordinates are pixels in the panel's client area.
// On the panel's thread.
class ILayoutPanel {
public:
    virtual HWND get_Item(int item) = 0;
    virtual RECT get_ItemRect(HWND window) = 0;
    // True when the user can see the window: its own state and that of all that it lies in.
    virtual bool IsItemVisible(HWND window) = 0;
    virtual void ShowItem(HWND window, bool visible) = 0;
    virtual void StartTimer(const void* id, UINT milliseconds) = 0;
    virtual void StopTimer(const void* id) = 0;
    // One batch of moves that reach the screen together. BeginMoves and MoveItem give the batch to go
    // on with, null on failure; EndMoves gives false on failure.
    virtual void* BeginMoves(int count) = 0;
    virtual void* MoveItem(void* batch, HWND window, int x, int y) = 0;
    virtual bool EndMoves(void* batch) = 0;
    // Draws the whole panel anew, soon: windows that slid over one another leave traces.
    virtual void Repaint() = 0;

protected:
    ~ILayoutPanel() = default;
};

// Closes the gap that a hidden field leaves in the order row and opens it again, at once or in a
// slide. It never reads an order type: get_Hidden of the fields decides.
class CCtrlsLayout {
public:
    explicit CCtrlsLayout(ILayoutPanel& panel) : m_panel(&panel) {}
    CCtrlsLayout(const CCtrlsLayout&) = delete;
    CCtrlsLayout& operator=(const CCtrlsLayout&) = delete;

    // Fixes the offsets from where the windows stand now. Called once, with every field in its place;
    // a later resize does not change them.
    void Build();

    // Follows get_Hidden of a field. Throws _com_error (E_FAIL) when windows can't be moved.
    void Update(OD_UpdateEntity bit, IUnifyControl& field, bool bAnimate);

    // One step of the slide, if the id is this layout's own.
    void OnTimer(const void* id);

private:
    using shift_list = std::vector<std::pair<HWND, int>>;
    struct pending_move {
        int delta;
        int x;
        int y;
    };

    int _width(int item);
    void _show(OD_UpdateEntity bit, bool visible);
    void _apply(const shift_list& list, int sign, bool bAnimate);
    bool _is_slide_visible();
    void _recalc();
    void _shift();
    void _finish();

    ILayoutPanel* m_panel;
    std::map<OD_UpdateEntity, shift_list> m_shifts;
    std::map<HWND, pending_move> m_pending;
    std::set<OD_UpdateEntity> m_hidden;
    // Hidden during the slide under way.
    std::set<OD_UpdateEntity> m_to_hide;
    // To be shown when the slide under way ends.
    std::set<OD_UpdateEntity> m_to_show;
    bool m_bTimer = false;
};

}  // namespace OV_OrderDeck
