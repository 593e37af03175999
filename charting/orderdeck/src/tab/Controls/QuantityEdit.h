#pragma once

#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"

namespace OV_OrderDeck {

// The quantity. Bounds are those of its editor; the field takes any 32-bit number.
class CQuantityEdit : public CUnifyControlImpl<IUnifyControl> {
public:
    static constexpr LONG Empty = 0x7FFFFFFF;

    bool get_Enabled() override;
    // Anything that the system turns into a 32-bit number. Throws the failure as _com_error, and the value
    // stays: a text that is no number leaves the old quantity.
    void put_Value(const VARIANT& value) override;
    // The number as VT_BSTR.
    _variant_t get_Value() override;
    bool IsEmpty() override;

    LONG get_Quantity() const { return m_value; }

private:
    LONG m_value = 1;
};

}  // namespace OV_OrderDeck
