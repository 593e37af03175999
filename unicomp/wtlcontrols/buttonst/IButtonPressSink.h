#pragma once

#include <windows.h>

namespace WTLControls {

// Hears of a press while all still is as the user saw it, on the window's thread.
class IButtonPressSink {
public:
    // The mouse or the space key goes down on a button that can be used; the focus has not moved yet, and
    // whether a click comes of it is open. A key that is held is told once.
    virtual void OnPressBegins(HWND button, bool byKey) = 0;
    // The mouse or the space key goes up. If it clicks, the click comes at once, and from nowhere else does
    // the click of a press come; if not, the press has been given up.
    virtual void OnPressEnds(HWND button, bool clicks) = 0;

protected:
    ~IButtonPressSink() = default;
};

}  // namespace WTLControls
