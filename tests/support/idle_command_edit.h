// A command edit whose owner wants to know of nothing. Windows only.
#pragma once

#include "unicomp/wtlcontrols/EditCommand/EditCommand.h"

class idle_command_edit final : public WTLControls::IEditCommandSink2 {
public:
    explicit idle_command_edit(HWND window) {
        m_edit.SubclassWindow(window);
        m_edit.CreateButton(203, 232);
    }
    void OnButtonPressed(LONG) override {}
    void OnEditSetFocus(LONG) override {}
    void OnEditEnd(LONG, bool) override {}
    void OnEditKillFocus(LONG) override {}

private:
    WTLControls::CEditCommandCtrlWnd2 m_edit{*this, 203};
};
