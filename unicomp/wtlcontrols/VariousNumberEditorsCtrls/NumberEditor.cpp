#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditor.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "diagnostics/BugSlayerUtil.h"
#include "platform/number_locale.h"

namespace WTLControls::NumberEditors {

namespace {

std::optional<double> plain_number(const CString& text) {
    return platform::port<platform::number_locale>::get().text_to_double(text);
}

// The focus is gone whatever fails on the way.
struct focus_end {
    bool& focused;
    ~focus_end() { focused = false; }
};

}  // namespace

void CNumberEditor::put_Price(std::shared_ptr<const CPriceToString> price, bool forTexts) {
    m_price = std::move(price);
    m_use_price_text = forTexts;
}

void CNumberEditor::SetParams(double step, double min, double max, EEditType type) {
    BS_ASSERT(m_dMaxValue > m_dMinValue);
    m_dMinValue = min;
    m_dMaxValue = max;
    m_value = std::max(min, std::min(m_value, max));
    BS_ASSERT_TEXT(step > 0.0, "_step > 0");
    m_step = step;
    if (!m_allow_empty) {
        SetValue(m_value);
    }
    SValidationRule rule;
    // Deliberately the field's own type: a rule for integers would refuse "1.5" in a field of doubles.
    rule.type = type;
    rule.checks = Check::Number | Check::Range;
    rule.window = m_window;
    rule.min = min;
    rule.max = max;
    m_validator.SetRule(m_window->get_ControlId(), rule);
    m_validate = true;
}

// Equal text is not written: the caret stays where it is.
void CNumberEditor::_show(const CString& text) {
    if (text != m_window->get_Text()) {
        m_window->put_Text(text);
    }
}

CString CNumberEditor::_value_text(double value) const {
    if (!m_price) {
        return plain_number_text(value);
    }
    return m_focused ? m_price->ToPlainText(value) : m_price->ToText(value);
}

void CNumberEditor::SetValue(double value) {
    const CString text = _value_text(value);
    if (UsesPriceText()) {
        // The value follows from the edit's notice.
        _show(text);
        return;
    }
    if (m_validate && m_validator.ValidateValue(m_window->get_ControlId(), value) != S_OK) {
        return;
    }
    if (text == m_window->get_Text()) {
        return;
    }
    m_window->put_Text(text);
    if (IsValid()) {
        m_value = ParseText(m_window->get_Text());
    }
    if (!m_focused) {
        _show_display_form();
    }
}

// A text for readers, such as "1.5K", is no number; it stands for the accepted value.
double CNumberEditor::GetValue() const {
    const CString text = m_window->get_Text();
    double value = m_value;
    if (text.empty() || (m_price && m_price->Scale->Parse(text, value))) {
        return value;
    }
    return plain_number(text).value_or(m_value);
}

double CNumberEditor::ParseText(const CString& text) const {
    double value = 0.0;
    if (m_price && m_price->Scale->Parse(text, value)) {
        return value;
    }
    const std::optional<double> number = plain_number(text);
    if (!number) {
        _com_issue_error(DISP_E_TYPEMISMATCH);
    }
    return *number;
}

bool CNumberEditor::IsValid() const {
    const CString text = m_window->get_Text();
    if (text.empty() && m_allow_empty) {
        return true;
    }
    if (m_price) {
        double value = 0.0;
        return m_price->Scale->Parse(text, value);
    }
    return !m_validate || m_validator.Validate(m_window->get_ControlId(), m_show_errors) == S_OK;
}

void CNumberEditor::Accept() {
    CString text = m_window->get_Text();
    if (!text.empty()) {
        m_value = ParseText(text);
    }
    const CString before = std::exchange(m_text, std::move(text));
    _keep_caret(before);
}

// For a field that pads a typed number with zeros.
void CNumberEditor::_keep_caret(const CString& before) {
    const bool padded = m_text.size() >= before.size() + 2 && m_text.starts_with(before) &&
                        m_text.find_first_not_of(L'0', before.size() + 1) == CString::npos;
    if (padded) {
        const auto at = static_cast<LONG>(before.size());
        m_window->put_Selection(at, at);
    }
}

void CNumberEditor::Spin(LONG delta, LONG multiplier, bool moveCaret) {
    if (delta == 0) {
        return;
    }
    const double sign = delta > 0 ? 1.0 : -1.0;
    const double value = GetValue() + multiplier * sign * m_step;
    // Neither clamped nor wrapped, on purpose: an order's number does not jump.
    if (!(value >= m_dMinValue && value <= m_dMaxValue)) {
        return;
    }
    LONG from = 0;
    LONG to = 0;
    m_window->get_Selection(from, to);
    SetValue(value);
    if (!moveCaret) {
        m_window->put_Selection(from, to);
    } else if (from == to) {
        const LONG at = std::max<LONG>(0, from + delta);
        m_window->put_Selection(at, at);
    }
}

bool CNumberEditor::_keeps_empty() const {
    return m_allow_empty && m_window->get_Text().empty();
}

void CNumberEditor::_show_focus_form() {
    if (_keeps_empty()) {
        return;
    }
    if (UsesPriceText()) {
        _show(m_price->ToPlainText(m_value));
    } else if (m_host != nullptr && m_host->UsesDisplayText(m_id)) {
        SetValue(m_value);
    }
}

void CNumberEditor::_show_display_form() {
    if (_keeps_empty()) {
        return;
    }
    if (UsesPriceText()) {
        _show(m_price->ToText(m_value));
    } else if (m_host != nullptr && m_host->UsesDisplayText(m_id)) {
        _show(m_host->GetDisplayText(m_value));
    }
}

void CNumberEditor::OnUpdate() {
    if (!IsValid()) {
        return;
    }
    Accept();
    if (m_window->IsVisible()) {
        TellHost();
    }
}

void CNumberEditor::OnSetFocus() {
    m_focused = true;
    const bool abbreviated = m_window->get_Text().find_first_of(L"MK") != CString::npos;
    _show_focus_form();
    if (abbreviated) {
        m_window->StartCaretTimer();
    }
}

void CNumberEditor::OnKillFocus() {
    const focus_end ending{m_focused};
    if (IsValid()) {
        m_window->HideBalloon();
        Accept();
        TellHost();
    } else {
        SetValue(m_value);
    }
    _show_display_form();
}

void CNumberEditor::OnCaretTimer() {
    m_window->MoveCaretToEnd();
}

void CNumberEditor::TellHost() {
    if (m_host == nullptr) {
        return;
    }
    // Deliberately a guard of its own: the edit goes on to its display form whatever the host throws.
    BugSlayerUtil::guard(BS_HERE, [this] {
        m_host->OnStringChanged(m_id, _bstr_t(m_text.c_str()));
        if (!m_text.empty()) {
            m_host->OnValueChanged(m_id, ParseText(m_text));
        }
    });
}

}  // namespace WTLControls::NumberEditors
