#pragma once

#include "platform/com.h"
#include "platform/text.h"

namespace WTLControls::NumberEditors {

// How an editor shows its number.
enum class eFormats : int {};

// Whoever owns a number editor hears of changes here and supplies the text that is shown while the
// editor does not have the focus. On the editor's thread; id is the one that the editor was given.
class INumberEditorHost {
public:
    // No editor here calls it: its formats follow from the focus.
    virtual void OnFormatChange(int id, eFormats format) = 0;
    // The accepted text changed.
    virtual void OnStringChanged(int id, const _bstr_t& text) = 0;
    // The accepted value changed.
    virtual void OnValueChanged(int, double) {}
    // Whether GetDisplayText gives the text without the focus; the plain number stays otherwise.
    virtual bool UsesDisplayText(int) { return false; }
    // The value in the form for readers.
    virtual CString GetDisplayText(double) { return {}; }

protected:
    ~INumberEditorHost() = default;
};

}  // namespace WTLControls::NumberEditors
