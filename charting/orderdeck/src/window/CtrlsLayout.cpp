#include "charting/orderdeck/src/window/CtrlsLayout.h"

#include <algorithm>

#include "charting/orderdeck/src/window/PanelItems.h"
#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {

namespace {

constexpr int price_gap = 5;
constexpr int date_gap = 7;
constexpr int step_pixels = 10;
constexpr UINT step_milliseconds = 10;

int step_to_zero(int delta) {
    return delta - std::clamp(delta, -step_pixels, step_pixels);
}

}  // namespace

void CCtrlsLayout::Build() {
    using namespace PanelItem;
    struct plan {
        OD_UpdateEntity bit;
        std::vector<int> items;
        int offset;
    };
    const plan plans[] = {
        {eODUE_FirstPrice,
         {SecondPrice, SecondSpin, AskBid, Account, TimeInForce, GtdDate, Sell, Buy},
         -(_width(FirstPrice) + _width(FirstSpin) + price_gap)},
        {eODUE_SecondPrice,
         {AskBid, Account, TimeInForce, GtdDate, Sell, Buy},
         -(_width(SecondPrice) + _width(SecondSpin) + price_gap)},
        {eODUE_GtdDate, {Sell, Buy}, -(_width(GtdDate) + date_gap)},
    };
    for (const plan& each : plans) {
        shift_list& list = m_shifts[each.bit];
        list.clear();
        for (const int item : each.items) {
            list.emplace_back(m_panel->get_Item(item), each.offset);
        }
    }
}

void CCtrlsLayout::Update(OD_UpdateEntity bit, IUnifyControl& field, bool bAnimate) {
    const auto list = m_shifts.find(bit);
    if (list == m_shifts.end()) {
        return;
    }
    const bool hidden = field.get_Hidden();
    const bool was_hidden = m_hidden.contains(bit);
    if (hidden && !was_hidden) {
        if (m_to_hide.contains(bit)) {
            return;
        }
        m_to_hide.insert(bit);
        m_to_show.erase(bit);
        m_hidden.insert(bit);
        _show(bit, false);
        _apply(list->second, 1, bAnimate);
    } else if (!hidden && was_hidden) {
        if (m_to_show.contains(bit)) {
            return;
        }
        m_to_show.insert(bit);
        m_to_hide.erase(bit);
        m_hidden.erase(bit);
        _apply(list->second, -1, bAnimate);
    }
}

void CCtrlsLayout::OnTimer(const void* id) {
    if (id == this) {
        _shift();
    }
}

int CCtrlsLayout::_width(int item) {
    const RECT rect = m_panel->get_ItemRect(m_panel->get_Item(item));
    return static_cast<int>(rect.right - rect.left);
}

void CCtrlsLayout::_show(OD_UpdateEntity bit, bool visible) {
    m_panel->ShowItem(m_panel->get_Item(item_of_entity(bit)), visible);
    if (has_spin(bit)) {
        m_panel->ShowItem(m_panel->get_Item(spin_of_entity(bit)), visible);
    }
}

void CCtrlsLayout::_apply(const shift_list& list, int sign, bool bAnimate) {
    for (const auto& [window, shift] : list) {
        const int offset = sign * shift;
        const auto pending = m_pending.find(window);
        if (pending != m_pending.end()) {
            pending->second.delta += offset;
            pending->second.x += offset;
        } else {
            const RECT rect = m_panel->get_ItemRect(window);
            m_pending[window] = {offset, static_cast<int>(rect.left) + offset, static_cast<int>(rect.top)};
        }
    }
    if (!bAnimate || !_is_slide_visible()) {
        _recalc();
        return;
    }
    if (!m_bTimer) {
        m_bTimer = true;
        m_panel->StartTimer(this, step_milliseconds);
    }
}

bool CCtrlsLayout::_is_slide_visible() {
    return std::any_of(m_pending.begin(), m_pending.end(), [&](const auto& each) {
        return each.second.delta != 0 && m_panel->IsItemVisible(each.first);
    });
}

void CCtrlsLayout::_recalc() {
    m_bTimer = false;
    void* batch = m_panel->BeginMoves(static_cast<int>(m_pending.size()));
    BS_REQUIRE(batch != nullptr, E_FAIL);
    for (const auto& [window, move] : m_pending) {
        batch = m_panel->MoveItem(batch, window, move.x, move.y);
        BS_REQUIRE(batch != nullptr, E_FAIL);
    }
    const bool _res = m_panel->EndMoves(batch);
    BS_ASSERT(_res);
    _finish();
}

void CCtrlsLayout::_shift() {
    if (!m_bTimer) {
        return;
    }
    void* batch = m_panel->BeginMoves(static_cast<int>(m_pending.size()));
    BS_REQUIRE(batch != nullptr, E_FAIL);
    for (auto& [window, move] : m_pending) {
        move.delta = step_to_zero(move.delta);
        batch = m_panel->MoveItem(batch, window, move.x - move.delta, move.y);
        BS_REQUIRE(batch != nullptr, E_FAIL);
    }
    const bool _res = m_panel->EndMoves(batch);
    BS_ASSERT(_res);
    m_bTimer = std::any_of(m_pending.begin(), m_pending.end(),
                           [](const auto& each) { return each.second.delta != 0; });
    if (!m_bTimer) {
        _finish();
    }
}

void CCtrlsLayout::_finish() {
    m_panel->StopTimer(this);
    for (const OD_UpdateEntity bit : m_to_show) {
        _show(bit, true);
    }
    m_to_hide.clear();
    m_to_show.clear();
    m_pending.clear();
    m_panel->Repaint();
}

}  // namespace OV_OrderDeck
