#include "charting/orderdeck/src/window/PriceEdit.h"

#include "charting/orderdeck/src/tab/Truncate.h"
#include "charting/orderdeck/src/window/PanelItems.h"
#include "charting/orderdeck/src/window/ProfileTabWindow.h"
#include "charting/orderdeck/src/window/WindowText.h"
#include "unicomp/Simples/interface/FillText.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck::details {

namespace {

constexpr UINT range_text = 122;
constexpr UINT reads_as = 317;

}  // namespace

void CPriceEdit::OnUpdate() {
    const auto field = m_panel->get_Control(entity_of_item(m_item));
    if (!field) {
        return;
    }
    field->put_Value(_variant_t(window_text(m_hWnd).c_str()));
    if (!field->IsEmpty()) {
        _show_reading(*field);
        return;
    }
    double low = 0.0;
    double high = 0.0;
    field->get_ValueRange(&low, &high);
    m_panel->get_Tips().Show(
        m_hWnd, resource_string::text(m_title),
        Unicomp::fill_text(resource_string::text(range_text),
                           {std::to_wstring(truncate(low)), std::to_wstring(truncate(high))}));
}

// A price that a person would read otherwise, or not at all, shows what it would be sent as.
void CPriceEdit::_show_reading(IUnifyControl& field) {
    auto* const typed = dynamic_cast<ITypedPrice*>(&field);
    const CString reading = typed != nullptr ? typed->get_TypedAs() : CString();
    if (reading.empty()) {
        m_panel->get_Tips().Hide();
        return;
    }
    m_panel->get_Tips().Show(m_hWnd, resource_string::text(m_title),
                             Unicomp::fill_text(resource_string::text(reads_as), {reading}));
}

void CPriceEdit::OnDeltaSpinChanged(int delta) {
    const OD_UpdateEntity entity = entity_of_item(m_item);
    const auto field = m_panel->get_Control(entity);
    if (!field) {
        return;
    }
    _variant_t steps;
    steps.vt = VT_INT;
    steps.intVal = delta;
    field->put_Value(steps);
    m_panel->get_Tips().Hide();
    m_panel->Update(entity, false, false);
}

BOOL CPriceEdit::ProcessWindowMessage(HWND, UINT uMsg, WPARAM wParam, LPARAM, LRESULT& lResult,
                                      DWORD dwMsgMapID) {
    if (!BS_ASSERT_TEXT(dwMsgMapID == 0, "0")) {
        return FALSE;
    }
    if (uMsg == WM_KILLFOCUS) {
        BugSlayerUtil::guard(BS_HERE, [&] { _on_kill_focus(); });
    }
    if (uMsg == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN)) {
        // Before the spin, which would take an end of the range for a price that nobody typed.
        return frame::take(frame::guarded(BS_HERE, [&] { return _on_arrow(); }), lResult);
    }
    return FALSE;
}

frame::answer CPriceEdit::_on_arrow() const {
    const auto field = m_panel->get_Control(entity_of_item(m_item));
    return field && field->IsEmpty() ? frame::answer(0) : frame::declined;
}

// The text and the spin follow the value. What is no price stays for the user to mend.
void CPriceEdit::_on_kill_focus() {
    m_panel->get_Tips().Hide();
    const OD_UpdateEntity entity = entity_of_item(m_item);
    const auto field = m_panel->get_Control(entity);
    if (field && !field->IsEmpty()) {
        m_panel->Update(entity, false, false);
    }
}

}  // namespace OV_OrderDeck::details
