#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/PropertyValidator.h"

#include <optional>

namespace WTLControls::NumberEditors {

namespace {

constexpr std::size_t longest_text = 256;

LONG beep_for_missing(IEditorWindow& window) {
    window.Beep(MB_ICONWARNING);
    return ERROR_INVALID_HANDLE;
}

}  // namespace

const SValidationRule* CPropertyValidator::FindRule(LONG id) const {
    const auto found = m_rules.find(id);
    return found != m_rules.end() ? &found->second : nullptr;
}

HRESULT CPropertyValidator::Validate(LONG id, bool show) const {
    const SValidationRule* const rule = FindRule(id);
    if (rule == nullptr || rule->window == nullptr) {
        return S_OK;
    }
    const CString text = rule->window->get_Text().substr(0, longest_text);
    if (text.empty()) {
        return S_OK;
    }
    const std::optional<typed_number> number = read_number(text, rule->type);
    const bool same = number && normalised_number(number->text) == normalised_number(text);
    const DWORD failed = same ? _failed(*rule, number->value) : Check::Number;
    if (failed == 0) {
        return S_OK;
    }
    if (show) {
        Report(id, failed);
    }
    return E_FAIL;
}

HRESULT CPropertyValidator::ValidateValue(LONG id, double value) const {
    const SValidationRule* const rule = FindRule(id);
    const DWORD failed = rule != nullptr ? _failed(*rule, value) : 0;
    if (failed == 0) {
        return S_OK;
    }
    Report(id, failed);
    return E_FAIL;
}

// A value that is no number lies in no range.
DWORD CPropertyValidator::_failed(const SValidationRule& rule, double value) {
    DWORD failed = 0;
    if (rule.type == EEditType::Integer && (rule.checks & Check::Positive) != 0 && value < 0.0) {
        failed |= Check::Positive;
    }
    if ((rule.checks & Check::Range) != 0 && !(value >= rule.min && value <= rule.max)) {
        failed |= Check::Range;
    }
    return failed;
}

CString CPropertyValidator::_text(const SValidationRule& rule, DWORD failed) const {
    const bool integer = rule.type == EEditType::Integer;
    if ((failed & Check::Number) != 0) {
        return get_Message(integer ? ValidationMessage::Integer : ValidationMessage::Number);
    }
    if ((failed & Check::Positive) != 0 && integer) {
        return get_Message(ValidationMessage::PositiveInteger);
    }
    if ((failed & Check::Range) == 0) {
        return {};
    }
    return integer ? fill_integers(get_Message(ValidationMessage::IntegerRange), cut_to_integer(rule.min),
                                   cut_to_integer(rule.max))
                   : fill_doubles(get_Message(ValidationMessage::NumberRange), rule.min, rule.max);
}

LONG CPropertyValidator::Report(LONG id, DWORD failed) const {
    const SValidationRule* const rule = FindRule(id);
    if (rule == nullptr || rule->window == nullptr) {
        return ERROR_INVALID_HANDLE;
    }
    IEditorWindow& window = *rule->window;
    const CString& title = get_Message(ValidationMessage::Title);
    const CString text = _text(*rule, failed);
    switch (rule->feedback) {
        case EFeedback::Beep:
            window.Beep(rule->icon);
            if (window.Exists()) {
                window.TakeFocus();
            }
            break;
        case EFeedback::Box:
            window.ShowBox(title, text, rule->icon);
            if (!window.Exists()) {
                return beep_for_missing(window);
            }
            window.TakeFocus();
            break;
        case EFeedback::Balloon:
            if (!window.Exists()) {
                return beep_for_missing(window);
            }
            window.ShowBalloon(title, text, rule->icon);
            break;
    }
    return ERROR_SUCCESS;
}

}  // namespace WTLControls::NumberEditors
