#include "charting/orderdeck/src/lookup/FillSymbolInfo.h"

#include "charting/orderdeck/src/lookup/HostObject.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/bstr_detach.h"

namespace OV_OrderDeck {
namespace {

// OLE date of a row of the second table, which has none.
constexpr double second_table_expiry = 2.0;

void fill_text(BSTR& target, tagOVFIELDID id, IovTable& table) {
    _bstr_t text = GetAsString(id, table);
    take_over(target, text);
}

}  // namespace

void take_over(BSTR& target, _bstr_t& text) {
    BSTR const taken = !text ? nullptr : platform::detach(text);
    SysFreeString(target);
    target = taken;
}

void _fill_currency(IovTable& table, OD_SSymbolInfo& info) {
    const com_ptr<ICurrencyLookup> lookup = create_host_object<ICurrencyLookup>(CLSID_SymbolQuery);
    if (!lookup) {
        return;
    }
    const HRESULT hr = lookup->get_Currency(GetAsLong(eOVF_CurrencyKey, table), &info.Currency);
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(BS_HERE, "get_Currency", hr);
        _com_issue_error(hr);
    }
}

void fill_symbol_info(IovTable& table, bool second, OD_SSymbolInfo& info) {
    info.id = GetAsLong(second ? eOVF_SecondId : eOVF_Id, table);
    fill_text(info.Name, eOVF_Name, table);
    fill_text(info.Root, eOVF_Root, table);
    fill_text(info.Description, eOVF_Description, table);
    fill_text(info.Exchange, eOVF_Exchange, table);
    fill_text(info.ExchangeTZI, eOVF_ExchangeTZI, table);
    info.Category = second ? static_cast<LONG>(eSC_SecondTable) : GetAsLong(eOVF_Category, table);
    info.Expiry = second ? second_table_expiry : static_cast<double>(GetAsLong(eOVF_Expiry, table));
    info.PriceScaleCode = GetAsLong(eOVF_PriceScaleCode, table);
    info.MinMovement = GetAsDouble(eOVF_MinMovement, table);
    info.BigPointValue = GetAsDouble(eOVF_BigPointValue, table);
    info.PutOrCall = !second && GetAsLong(eOVF_PutOrCall, table) == 1 ? VARIANT_TRUE : VARIANT_FALSE;
    info.StrikePrice = second ? 0.0 : GetAsDouble(eOVF_StrikePrice, table);
    _fill_currency(table, info);
}

}  // namespace OV_OrderDeck
