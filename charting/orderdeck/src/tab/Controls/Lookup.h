#pragma once

#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/tab/Controls/UnifyControlImpl.h"
#include "platform/com_ptr.h"

namespace OV_OrderDeck {

// The symbol field: turns what the user typed or picked into a symbol by asking the lookup service,
// which is made on the first lookup and lives as long as the field. A failure of the service is reported
// and thrown as _com_error; the record then stays as it was.
class CLookup : public CUnifyControlImpl<ISymbolCtrl> {
public:
    // VT_BSTR: a text to look up, as when the user confirms it. Throws _com_error (DISP_E_TYPEMISMATCH) for
    // any other type.
    void put_Value(const VARIANT& value) override;
    _variant_t get_Value() override;
    bool IsEmpty() override;

    LONG get_Category() override;
    LONG get_PriceScaleCode() override;
    double get_MinMovement() override;
    // Both may dispatch messages and show dialogs; the tab is kept alive until they are done.
    void LookupWithDialog() override;
    void LookupByText(const CString& text, bool bAskConnect, bool bQuiet) override;

    // Never shows a dialog. Throws _com_error (E_FAIL) for an empty name.
    void LookupByName(const CString& name);
    // Never shows a dialog. Throws _com_error (E_FAIL) for an id of 0 or below.
    void LookupById(LONG id);
    // Whether the service knows the symbols of a plug-in. False when the service fails.
    bool IsPluginSupported(const wchar_t* name);

    // The record as it is, valid or not.
    const CSymbolInfo& get_Symbol() const { return m_symbol; }
    // Takes a record and tells the tab, unless it equals the present one.
    void _store(const CSymbolInfo& symbol);

private:
    IOD_LookupImpl& _get_lookup();
    OD_LookupResult _lookup_impl(LONG id, const CString& name, bool bQuiet, CSymbolInfo& out);
    void _ask_connect();

    CSymbolInfo m_symbol;
    com_ptr<IOD_LookupImpl> m_pLookup;
};

}  // namespace OV_OrderDeck
