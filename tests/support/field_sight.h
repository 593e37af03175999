// The order row as a screen would show it that shows just what the fields hold.
#pragma once

#include "charting/orderdeck/interface/ITab.h"
#include "charting/orderdeck/interface/IUnifyControl.h"
#include "charting/orderdeck/interface/RowSight.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"

namespace test {

inline const std::vector<OV_OrderDeck::OD_UpdateEntity>& row_items() {
    using namespace OV_OrderDeck;
    static const std::vector<OD_UpdateEntity> all = {eODUE_Symbol,      eODUE_OrderType,   eODUE_Quantity,
                                                     eODUE_FirstPrice,  eODUE_SecondPrice, eODUE_Account,
                                                     eODUE_TimeInForce, eODUE_GtdDate,     eODUE_AskBid,
                                                     eODUE_Buy,         eODUE_Sell};
    return all;
}

// Empty where the list does not have the selected item.
inline CString selected_text(OV_OrderDeck::IUnifyControl& list) {
    const LONG selected = list.get_SelectedItem(nullptr);
    for (LONG i = 0; i < list.get_Count(); ++i) {
        CString text;
        if (list.get_Item(i, &text) == selected) {
            return text;
        }
    }
    return {};
}

inline CString shown_text(OV_OrderDeck::IUnifyControl& field, OV_OrderDeck::OD_UpdateEntity entity) {
    using namespace OV_OrderDeck;
    switch (entity) {
        case eODUE_OrderType:
        case eODUE_Account:
        case eODUE_TimeInForce:
            return selected_text(field);
        case eODUE_GtdDate:
        case eODUE_AskBid:
            return {};
        default: {
            _variant_t value = field.get_Value();
            if (entity != eODUE_Quantity) {
                return platform::text_of(V_BSTR(&value));
            }
            value.ChangeType(VT_I4);
            return local_format::CNumberFormat::QuantityToText(V_I4(&value));
        }
    }
}

inline OV_OrderDeck::CRowSight sight_of_fields(OV_OrderDeck::ITab& tab) {
    using namespace OV_OrderDeck;
    CRowSight sight;
    for (const OD_UpdateEntity entity : row_items()) {
        IUnifyControl& field = *tab.get_Control(entity);
        SShownItem& item = sight[entity];
        item.enabled = field.get_Enabled();
        item.shown = !field.get_Hidden();
        item.text = item.shown ? shown_text(field, entity) : CString();
    }
    const _variant_t date = tab.get_Control(eODUE_GtdDate)->get_Value();
    sight.day = static_cast<LONG>(V_DATE(&date));
    return sight;
}

}  // namespace test
