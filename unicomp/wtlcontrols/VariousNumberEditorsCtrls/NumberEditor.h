#pragma once

#include <memory>

#include "unicomp/FormatUtil/interface/PriceToString.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/INumberEditorHost.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/PropertyValidator.h"

namespace WTLControls::NumberEditors {

// A quantity of this category moves in lots of a hundred.
inline constexpr LONG stock_category = 2;
constexpr LONG quantity_step_multiplier(LONG category) {
    return category == stock_category ? 100 : 1;
}

// The number of an edit: its value beside its text, which is plain while the edit has the focus and in
// the form for readers while it has not. Decides everything and draws nothing. Lives on the edit's thread.
class CNumberEditor {
public:
    // Neither is owned; both outlive the editor. The host may be null.
    CNumberEditor(IEditorWindow& window, INumberEditorHost* host,
                  const message_source& messages = system_messages())
        : m_window(&window), m_host(host), m_validator(messages) {}

    // The step of a spin, and the range that values and texts have to keep from now on.
    void SetParams(double step, double min, double max, EEditType type);

    // Shows a value, unless it is out of range, which the user is told.
    void SetValue(double value);
    // The number in the text; the last accepted one when there is none.
    double GetValue() const;

    // The text's number. Throws _com_error (DISP_E_TYPEMISMATCH) when it is none.
    double ParseText(const CString& text) const;
    bool IsValid() const;
    // Makes the present text the accepted one. Throws as ParseText.
    void Accept();

    // One step up or down by the sign of delta, times the multiplier. What leaves the range is refused
    // without a word. moveCaret: a caret moves along by delta, so that an arrow key leaves it in place.
    void Spin(LONG delta, LONG multiplier, bool moveCaret);

    // Notices of the edit. Before SetParams, and without a price, every text counts as valid: one that is
    // no number throws as ParseText does.
    void OnUpdate();
    void OnSetFocus();
    void OnKillFocus();
    void OnCaretTimer();

    // Tells the host of the accepted text and its number. What the host throws is reported, and the edit
    // goes on.
    void TellHost();

    void put_Id(LONG id) { m_id = id; }
    void put_AllowEmpty(bool allow) { m_allow_empty = allow; }
    void put_ShowErrors(bool show) { m_show_errors = show; }
    // The format of the symbol's prices; empty for plain numbers. forTexts: in both text forms too.
    void put_Price(std::shared_ptr<const CPriceToString> price, bool forTexts);

    double get_Step() const { return m_step; }
    double get_Min() const { return m_dMinValue; }
    double get_Max() const { return m_dMaxValue; }
    // Last accepted.
    double get_AcceptedValue() const { return m_value; }
    const CString& get_AcceptedText() const { return m_text; }
    bool IsFocused() const { return m_focused; }
    bool get_AllowEmpty() const { return m_allow_empty; }
    bool get_ShowErrors() const { return m_show_errors; }
    bool IsValidated() const { return m_validate; }
    LONG get_Id() const { return m_id; }
    bool HasPrice() const { return m_price != nullptr; }
    bool UsesPriceText() const { return m_use_price_text && m_price; }
    CPropertyValidator& get_Validator() { return m_validator; }

private:
    void _show(const CString& text);
    // An empty text that is allowed has no other form.
    bool _keeps_empty() const;
    void _show_focus_form();
    void _show_display_form();
    CString _value_text(double value) const;
    void _keep_caret(const CString& before);

    IEditorWindow* m_window;
    INumberEditorHost* m_host;
    double m_step = 1.0;
    double m_dMinValue = -2000000000.0;
    double m_dMaxValue = 2000000000.0;
    double m_value = 0.0;
    CString m_text;
    bool m_focused = false;
    bool m_allow_empty = true;
    LONG m_id = 0;
    CPropertyValidator m_validator;
    std::shared_ptr<const CPriceToString> m_price;
    bool m_use_price_text = false;
    bool m_validate = false;
    bool m_show_errors = false;
};

}  // namespace WTLControls::NumberEditors
