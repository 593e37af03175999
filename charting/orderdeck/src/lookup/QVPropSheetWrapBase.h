#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/src/lookup/QVPropDSDllCaller.h"
#include "platform/com_ptr.h"

namespace OV_OrderDeck {

// A property sheet of the library, of the kind that the derived class makes. Window thread.
class CQVPropSheetWrapBase : public CQVPropDSDllCaller {
public:
    // Makes the sheet, once. 0, or why there is none.
    virtual HRESULT CreateSheet() = 0;

    // Null until made.
    IQVPropertySheet* get_Sheet() const { return m_sheet.get(); }

protected:
    ~CQVPropSheetWrapBase() = default;

    com_ptr<IQVPropertySheet> m_sheet;
};

}  // namespace OV_OrderDeck
