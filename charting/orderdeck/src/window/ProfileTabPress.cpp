// The press of Buy or Sell: what the screen shows then is what goes out, or nothing goes.
#include <windows.h>

#include "charting/orderdeck/src/window/OrderDeckWindow.h"
#include "charting/orderdeck/src/window/PanelItems.h"
#include "charting/orderdeck/src/window/ProfileTabWindow.h"
#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

namespace {

constexpr UINT not_sent_title = 305;
constexpr unsigned first_field_bit = 7;
constexpr unsigned last_field_bit = 17;

bool is_down(int key) {
    return (::GetKeyState(key) & 0x8000) != 0;
}

// A press that no finger makes comes from another program.
EPressSource source_of(bool by_key) {
    if (!is_down(by_key ? VK_SPACE : VK_LBUTTON)) {
        return EPressSource::Program;
    }
    return by_key ? EPressSource::Key : EPressSource::Mouse;
}

}  // namespace

void CProfileTabWindow::OnPressBegins(HWND button, bool byKey) {
    m_press.reset();
    _on_input();
    const OD_UpdateEntity entity = entity_of_item(::GetDlgCtrlID(button));
    m_press = press{entity, m_eyes.Read(entity, source_of(byKey))};
}

void CProfileTabWindow::OnPressEnds(HWND, bool clicks) {
    if (m_press) {
        m_press->released = clicks;
    }
}

CRowSight CProfileTabWindow::_take_sight(OD_UpdateEntity button) {
    const std::optional<press> begun = std::exchange(m_press, std::nullopt);
    return begun && begun->released && begun->button == button ? begun->sight
                                                               : m_eyes.Read(button, EPressSource::Program);
}

void CProfileTabWindow::_press(OD_UpdateEntity button, const boost::shared_ptr<IUnifyControl>& field) {
    const CRowSight sight = _take_sight(button);
    auto* const pressed = dynamic_cast<IPressedButton*>(field.get());
    if (pressed == nullptr) {
        field->Select(0);
        return;
    }
    // What the host does inside the press may end the panel or bring another tab to the front.
    const row_differences differences = pressed->Press(sight);
    if (!differences.empty() && m_hWnd != nullptr && get_Control(button) == field) {
        _show_not_sent(button, differences);
    }
}

void CProfileTabWindow::_show_not_sent(OD_UpdateEntity button, const row_differences& differences) {
    for (unsigned bit = first_field_bit; bit <= last_field_bit; ++bit) {
        BugSlayerUtil::guard(BS_HERE, [&] { Update(static_cast<OD_UpdateEntity>(1U << bit), true, true); });
    }
    std::vector<CFieldMarks::field> fields;
    for (const SRowDifference& difference : differences) {
        const bool is_button = difference.entity == eODUE_Buy || difference.entity == eODUE_Sell;
        const HWND window = get_Window(difference.entity);
        if (!is_button && ::IsWindowVisible(window)) {
            const bool spins = has_spin(difference.entity);
            fields.push_back({window, spins ? get_Item(spin_of_entity(difference.entity)) : nullptr});
        }
    }
    m_marks.Set(fields);
    m_marked_tab = m_pBar->get_CurTab().get();
    m_tips.Show(get_Window(button), resource_string::text(not_sent_title), TextOfDifferences(differences));
    m_bNotSentShown = true;
}

void CProfileTabWindow::_on_input() {
    if (m_bNotSentShown) {
        m_bNotSentShown = false;
        m_marks.Clear();
        m_tips.Hide();
    }
}

}  // namespace OV_OrderDeck
