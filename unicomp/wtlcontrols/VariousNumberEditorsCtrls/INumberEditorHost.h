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
    virtual void OnFormatChange(int id, eFormats format) = 0;
    // The accepted text changed.
    virtual void OnStringChanged(int id, const _bstr_t& text) = 0;
    // The accepted value changed.
    virtual void OnValueChanged(int, double) {}
    virtual bool UsesDisplayText(int) { return false; }
    virtual CString GetDisplayText(double) { return {}; }

protected:
    ~INumberEditorHost() = default;
};

}  // namespace WTLControls::NumberEditors
