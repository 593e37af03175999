#pragma once

#include <limits>

#include "charting/orderdeck/interface/OD_UpdateEntity.h"
#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"

namespace OV_OrderDeck {

// What both price fields have in common: a price as typed and as it reads in the symbol's price scale.
class CPriceEditBase : public CUnifyControlImpl<IUnifyControl>, public ITypedPrice {
public:
    // The highest legal price of every symbol. The lowest is the symbol's tick.
    static constexpr double HighestPrice = 250000.0;
    // Stands for no price.
    static constexpr double NoPrice = std::numeric_limits<double>::max();

    bool get_Enabled() override;
    // VT_BSTR: a typed text, kept as it is and not rounded. VT_INT: steps of the spin button. Throws
    // _com_error (DISP_E_TYPEMISMATCH) for any other type.
    void put_Value(const VARIANT& value) override;
    // The text as VT_BSTR.
    _variant_t get_Value() override;
    void get_ValueRange(double* low, double* high) override;
    void get_SpinRange(LONG* low, LONG* high) override;
    bool IsEmpty() override;
    CString get_TypedAs() override;

    double get_Price() const { return m_value; }
    // Neither price nor text.
    void Clear();
    // A price and its text in the symbol's scale. The text is on the grid, the price is kept as it is.
    void _set_value(double value);
    // The price limited to its range.
    void _set_clamped(double value);

private:
    double _get_step() const;
    void _set_low();
    void _set_high();
    void _put_text(const CString& text);
    void _put_steps(LONG steps);

    double m_value = NoPrice;
    CString m_text;
};

// One price field, by its bit. The first price is the trigger of stop and stop limit orders, the second
// the limit of limit and stop limit orders.
template <unsigned Entity>
class CPriceEdit : public CPriceEditBase {
public:
    // Read from the order type at each call; raises nothing.
    bool get_Hidden() override;
};

template <>
bool CPriceEdit<eODUE_FirstPrice>::get_Hidden();
template <>
bool CPriceEdit<eODUE_SecondPrice>::get_Hidden();

}  // namespace OV_OrderDeck
