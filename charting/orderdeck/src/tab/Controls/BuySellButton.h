#pragma once

#include "charting/orderdeck/interface/OD_UpdateEntity.h"
#include "charting/orderdeck/interface/RowSight.h"
#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"

namespace OV_OrderDeck {

// What Buy and Sell have in common: the face of the button tells what would be sent.
class CBuySellButtonBase : public CUnifyControlImpl<IUnifyControl>, public IPressedButton {
public:
    // Connected, with a symbol, and the field's own wish.
    bool get_Enabled() override;
    row_differences Press(const CRowSight& sight) override;

protected:
    // Verb, blank, word of the order category, line feed, quantity. Throws std::out_of_range for a category
    // that is not known, none selected included.
    CString _caption(UINT verb);
    // May show a message. Throws _com_error when a field other than a price lacks its value.
    void _place_order(OD_UpdateEntity button, LONG action);

private:
    // Of the press under way; null for a selection that nobody saw a row for.
    const CRowSight* m_sight = nullptr;
    row_differences m_differences;
};

// One of the two buttons: the string id of its verb and its bit.
template <UINT Label, unsigned Mask>
class CBuySellButton : public CBuySellButtonBase {
    static_assert(Mask == eODUE_Buy || Mask == eODUE_Sell);

public:
    // Sends the order. The key counts for nothing.
    void Select(LONG) override {
        _place_order(static_cast<OD_UpdateEntity>(Mask), Mask == eODUE_Buy ? 1 : 2);
    }
    // The caption as VT_BSTR.
    _variant_t get_Value() override { return _variant_t(_caption(Label).c_str()); }
};

}  // namespace OV_OrderDeck
