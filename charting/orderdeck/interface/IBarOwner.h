#pragma once

namespace OV_OrderDeck {

// What the bar asks of the root that owns it.
class IBarOwner {
public:
    // Connects to the trading centre, makes the tabs and shows the bar, unless that was done or tried
    // before. On the bar's thread. Throws what the connecting throws.
    virtual void EnsureFilled() = 0;

protected:
    ~IBarOwner() = default;
};

}  // namespace OV_OrderDeck
