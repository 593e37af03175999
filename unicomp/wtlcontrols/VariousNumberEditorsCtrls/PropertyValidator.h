#pragma once

#include <map>

#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/IEditorWindow.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberTexts.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/ValidationMessages.h"

namespace WTLControls::NumberEditors {

// What a rule asks of a number. Flags, and the parts of a refusal.
namespace Check {
inline constexpr DWORD Number = 1U << 0U;
inline constexpr DWORD Positive = 1U << 8U;
inline constexpr DWORD Range = 1U << 16U;
}  // namespace Check

// How the user hears of a refusal.
enum class EFeedback : int { Beep = 1, Box = 2, Balloon = 3 };

// What one control takes.
struct SValidationRule {
    EEditType type = EEditType::Integer;
    // Check flags.
    DWORD checks = 0;
    EFeedback feedback = EFeedback::Balloon;
    UINT icon = MB_ICONHAND;
    // Not owned.
    IEditorWindow* window = nullptr;
    double min = 0.0;
    double max = 0.0;
};

// Says of a control's text or value whether its rule takes it, and tells the user why not. Lives on the
// controls' thread.
class CPropertyValidator {
public:
    explicit CPropertyValidator(const message_source& source = system_messages())
        : m_messages(load_validation_messages(source)) {}

    // In place of the control's former rule.
    void SetRule(LONG id, const SValidationRule& rule) { m_rules[id] = rule; }
    // Null when the control has none.
    const SValidationRule* FindRule(LONG id) const;
    // Throws std::out_of_range for an id that is no message's.
    const CString& get_Message(UINT id) const { return m_messages.at(id); }

    // S_OK or E_FAIL, for the text in the control; an empty one is fine, and so is a control without a
    // rule. show: the user is told of a refusal.
    HRESULT Validate(LONG id, bool show) const;
    // The same for a number. The user is always told.
    HRESULT ValidateValue(LONG id, double value) const;

    // Tells the user which check failed, the first of them. 0, or ERROR_INVALID_HANDLE when the window is
    // gone.
    LONG Report(LONG id, DWORD failed) const;

private:
    static DWORD _failed(const SValidationRule& rule, double value);
    CString _text(const SValidationRule& rule, DWORD failed) const;

    std::map<LONG, SValidationRule> m_rules;
    validation_messages m_messages;
};

}  // namespace WTLControls::NumberEditors
