#pragma once

namespace WTLControls {

// What a button with a drop-down part tells, on the window's thread.
class IButtonSTEventSink {
public:
    virtual void OnButtonClick() = 0;
    virtual void OnDropDownClick() = 0;

protected:
    ~IButtonSTEventSink() = default;
};

}  // namespace WTLControls
