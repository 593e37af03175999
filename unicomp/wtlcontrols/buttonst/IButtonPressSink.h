#pragma once

#include <windows.h>

namespace WTLControls {

// Hears of a press while all still is as the user saw it, on the window's thread.
class IButtonPressSink {
public:
    // The mouse or the space key goes down on a button that can be used; the focus has not moved yet, and
    // whether a click comes of it is open. A key that is held is told once.
    virtual void OnPressBegins(HWND button, bool byKey) = 0;

protected:
    ~IButtonPressSink() = default;
};

}  // namespace WTLControls
