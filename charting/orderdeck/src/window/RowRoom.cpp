#include "charting/orderdeck/src/window/RowRoom.h"

#include <algorithm>
#include <vector>

#include "charting/orderdeck/src/window/FittedFont.h"
#include "charting/orderdeck/src/window/PanelItems.h"
#include "platform/win32/frame/resolution.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {
namespace {

// Both edges of a box and the margins of its text, at 96 to the inch.
constexpr int box_frame = 14;

int widest(HWND window, HFONT font, const std::vector<CString>& texts) {
    int result = 0;
    for (const CString& text : texts) {
        result = std::max(result, text_width(window, font, text));
    }
    return result;
}

std::vector<CString> strings(std::initializer_list<UINT> ids) {
    std::vector<CString> texts;
    texts.reserve(ids.size());
    for (const UINT id : ids) {
        texts.push_back(resource_string::text(id));
    }
    return texts;
}

void move_item(HWND window, const RECT& to) {
    ::SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

// Widens one item and moves those right of it by what it grew.
void widen(HWND panel, CLayoutPanel& layout, int item, int needed) {
    RECT rect = layout.get_ItemRect(::GetDlgItem(panel, item));
    const LONG old_right = rect.right;
    const LONG grown = rect.left + needed - old_right;
    if (grown <= 0) {
        return;
    }
    for (HWND child = ::GetWindow(panel, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        RECT other = layout.get_ItemRect(child);
        if (other.left >= old_right) {
            ::OffsetRect(&other, static_cast<int>(grown), 0);
            move_item(child, other);
        }
    }
    rect.right += grown;
    move_item(::GetDlgItem(panel, item), rect);
}

}  // namespace

void make_room_for_texts(HWND panel, CLayoutPanel& layout) {
    const auto font = reinterpret_cast<HFONT>(::SendMessageW(panel, WM_GETFONT, 0, 0));
    const int beside = frame::scaled_metric(panel, SM_CXVSCROLL) + frame::scaled(panel, box_frame);
    widen(panel, layout, PanelItem::OrderType, widest(panel, font, strings({130, 131, 132, 133})) + beside);
    // A bond in halves of 32nds, the longest that is common, and the arrow beside it.
    widen(panel, layout, PanelItem::AskBid, text_width(panel, font, L"117 12.5/32 ") + beside);
    widen(panel, layout, PanelItem::TimeInForce,
          widest(panel, font, strings({113, 114, 115, 116, 234, 235})) + beside);
}

}  // namespace OV_OrderDeck
