#pragma once

#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"
#include "unicomp/datetimeutils/interface/DateTime.h"

namespace OV_OrderDeck {

// The date of a good-till-date order. Starts at the present local time, so it is a set date from the
// first moment on, and keeps its value while it is hidden.
class CTimeInForceEdit : public CUnifyControlImpl<IUnifyControl> {
public:
    CTimeInForceEdit();

    bool get_Enabled() override;
    bool get_Hidden() override;
    // Takes VT_DATE alone. Throws _com_error for another type, a range error for a date outside the
    // calendar.
    void put_Value(const VARIANT& value) override;
    // VT_DATE.
    _variant_t get_Value() override;
    bool IsEmpty() override;

private:
    ovDateTime::SDateTime m_value;
};

}  // namespace OV_OrderDeck
