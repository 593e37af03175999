#pragma once

#include "platform/com.h"
#include "platform/text.h"

namespace WTLControls::NumberEditors {

// The edit on the screen, as the logic of an editor sees it. On the edit's thread. An edit that is gone
// answers with nothing and takes everything.
class IEditorWindow {
public:
    virtual bool Exists() const = 0;
    virtual bool IsVisible() const = 0;
    // The edit's id in its dialog.
    virtual LONG get_ControlId() const = 0;

    virtual CString get_Text() const = 0;
    // The edit tells of its change before this returns.
    virtual void put_Text(const CString& text) = 0;

    // In characters; equal ends are a caret without a selection.
    virtual void get_Selection(LONG& from, LONG& to) const = 0;
    virtual void put_Selection(LONG from, LONG to) = 0;
    virtual void MoveCaretToEnd() = 0;
    // Calls the editor's OnCaretTimer once, a moment later.
    virtual void StartCaretTimer() = 0;

    virtual void TakeFocus() = 0;
    // The sound of a message box's icon.
    virtual void Beep(UINT icon) = 0;
    // Modal on the edit's owner.
    virtual void ShowBox(const CString& title, const CString& text, UINT icon) = 0;
    virtual void ShowBalloon(const CString& title, const CString& text, UINT icon) = 0;
    virtual void HideBalloon() = 0;

protected:
    ~IEditorWindow() = default;
};

}  // namespace WTLControls::NumberEditors
