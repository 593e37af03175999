#pragma once

#include "charting/orderdeck/src/tab/Controls/ListImpl.h"

namespace OV_OrderDeck {

// The account. Keys are the places in the host's list, from 0.
class CAccountCombo : public CListImpl<IUnifyControl> {
public:
    // The host hears of the new account only with the next order.
    void Select(LONG key) override;
    bool get_Enabled() override;

    // Reads the host's list. A place that still exists stays selected even when another account stands
    // there now; that is deliberate. A host that gives no list leaves the old one.
    void Update();

    // The selected name, empty for none.
    CString get_Account();

    // Selects the first account of that name; a null or unknown one does nothing.
    void SelectByName(const wchar_t* name);
};

}  // namespace OV_OrderDeck
