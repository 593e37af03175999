#pragma once

#include <windows.h>

namespace WTLControls {

// Whoever owns a command edit hears from it here, on the edit's thread. id is the one that the edit was
// given; its button has none and tells 0.
class IEditCommandSink2 {
public:
    virtual void OnButtonPressed(LONG id) = 0;
    virtual void OnEditSetFocus(LONG id) = 0;
    // accepted: true for Enter, false for Esc.
    virtual void OnEditEnd(LONG id, bool accepted) = 0;
    virtual void OnEditKillFocus(LONG id) = 0;

protected:
    ~IEditCommandSink2() = default;
};

}  // namespace WTLControls
