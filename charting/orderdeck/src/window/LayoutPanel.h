#pragma once

#include <array>
#include <map>
#include <set>

#include "charting/orderdeck/src/window/CtrlsLayout.h"
#include "charting/orderdeck/src/window/FocusWatch.h"
#include "charting/orderdeck/src/window/RowScroll.h"

namespace OV_OrderDeck {

// The windows of a panel for its layout. The layout moves them in a row that is as wide as it takes; what the
// panel has no room for is scrolled here, out of the layout's sight. On the panel's thread.
class CLayoutPanel final : public ILayoutPanel {
public:
    // The id of the arrows that scroll the fields, a pair of spin buttons side by side.
    static constexpr int Arrows = 10004;

    // The panel's window; before anything else.
    void Attach(HWND panel) { m_panel = panel; }
    // Every item stands where the layout begins: from now on the row is fitted into the panel. Once.
    void Follow();
    // Fits the row into the panel's present size, with the field that has the focus in sight. Throws
    // _com_error (E_FAIL) when windows can't be moved.
    void Fit();
    // Scrolls by one field, to the left below 0. The focus leaves a field that goes out of sight: no key
    // reaches what nobody sees. Throws as Fit.
    void Scroll(int direction);

    HWND get_Item(int item) override;
    // Where the layout has the window, whatever the panel shows of it.
    RECT get_ItemRect(HWND window) override;
    bool IsItemVisible(HWND window) override;
    void ShowItem(HWND window, bool visible) override;
    void StartTimer(const void* id, UINT milliseconds) override;
    void StopTimer(const void* id) override;
    void* BeginMoves(int count) override;
    void* MoveItem(void* batch, HWND window, int x, int y) override;
    // Throws _com_error (E_FAIL) when a window can't be moved.
    bool EndMoves(void* batch) override;
    void Repaint() override;

private:
    // A field's window and, for a price, its spin.
    struct field {
        HWND window = nullptr;
        HWND spin = nullptr;
    };
    static constexpr std::size_t field_count = 9;
    using places = std::map<HWND, POINT>;

    RECT _real_rect(HWND window) const;
    int _focused() const;
    row_view _arrange(int focus);
    places _wanted(const row_view& view) const;
    places _to_move(const row_view& view) const;
    void _fit(const row_view& view);
    void _defer(HDWP& batch, const places& moves) const;
    void _place_arrows(const row_view& view);
    void _redraw() const;

    HWND m_panel = nullptr;
    HWND m_arrows = nullptr;
    std::array<field, field_count> m_fields;
    std::array<HWND, 2> m_buttons = {};
    // Where the layout has each window; empty before Follow.
    places m_places;
    // By the layout, in the batch under way.
    std::set<HWND> m_moved;
    CRowScroll m_scroll;
    // The row fitted when it was last looked at.
    bool m_whole = true;
    std::array<CFocusWatch, field_count> m_watches;
};

}  // namespace OV_OrderDeck
