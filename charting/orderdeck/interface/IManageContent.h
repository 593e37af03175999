#pragma once

namespace OV_OrderDeck {

// The content of a tab, for who owns the tab. On the bar's thread.
class IManageContent {
public:
    // For content that prepares itself once its tab is in the bar.
    virtual void OnContentReady() = 0;
    // Reads everything of the host again and repaints. May dispatch messages. A host that gives no list
    // leaves the old one; throws _com_error (E_FAIL) when no order type is selected.
    virtual void Refresh() = 0;
    virtual ~IManageContent() = default;
};

}  // namespace OV_OrderDeck
