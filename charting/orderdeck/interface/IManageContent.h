#pragma once

namespace OV_OrderDeck {

class IManageContent {
public:
    virtual void OnContentReady() = 0;
    // Reads everything of the host again and repaints.
    virtual void Refresh() = 0;
    virtual ~IManageContent() = default;
};

}  // namespace OV_OrderDeck
