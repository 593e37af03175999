#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// A field of the order row as logic: it holds the value and the rules and knows no window. All fields
// live on the bar's thread. Operations throw _com_error or std::exception.
class IUnifyControl {
public:
    // The user picked an item of the list or pressed the button.
    virtual void Select(LONG key) = 0;
    virtual LONG get_Count() = 0;
    // The key of the item at a place in key order, -1 out of range. text may be null.
    virtual LONG get_Item(LONG index, CString* text) = 0;
    // The selected key, -1 for none. text may be null.
    virtual LONG get_SelectedItem(CString* text) = 0;
    virtual bool get_Checked(LONG key) = 0;
    // May the user use the field now; worked out at each call.
    virtual bool get_Enabled() = 0;
    // Must the field be out of the row now; worked out at each call.
    virtual bool get_Hidden() = 0;
    // A value from the user or the spin button.
    virtual void put_Value(const VARIANT& value) = 0;
    // The value as the field shows it.
    virtual _variant_t get_Value() = 0;
    // Inclusive bounds of the value. Either pointer may be null.
    virtual void get_ValueRange(double* low, double* high) = 0;
    // Bounds for a spin control, in steps. Either pointer may be null.
    virtual void get_SpinRange(LONG* low, LONG* high) = 0;
    // The field holds no usable value.
    virtual bool IsEmpty() = 0;
    virtual ~IUnifyControl() = default;
};

// The symbol field.
class ISymbolCtrl : public IUnifyControl {
public:
    virtual LONG get_Category() = 0;
    virtual LONG get_PriceScaleCode() = 0;
    virtual double get_MinMovement() = 0;
    // Lets the user pick in the host's dialog.
    virtual void LookupWithDialog() = 0;
    // Makes a typed text the symbol. bAskConnect: offer to connect afterwards; bQuiet: no dialog.
    virtual void LookupByText(const CString& text, bool bAskConnect, bool bQuiet) = 0;
};

// The ask/bid field. A quote that is not there is the largest double.
class IAskBidCtrl : public IUnifyControl {
public:
    virtual double get_Ask() = 0;
    virtual double get_Bid() = 0;
};

// What a price offers beside the operations of every field.
class ITypedPrice {
public:
    // What the typed text would be sent as, when a person would not read it as that; empty when he would, and
    // for what is no price.
    virtual CString get_TypedAs() = 0;

protected:
    ~ITypedPrice() = default;
};

}  // namespace OV_OrderDeck
