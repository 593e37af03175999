// The host's symbol dialog: what it shows, what the user does in it, and the sheet that shows it.
#pragma once

#include <map>
#include <optional>

#include "TradingCenter.h"
#include "tests/support/fake_class.h"

namespace test {

// What the user does and what the dialog then holds. Shared by its objects and the test.
struct dialog_plan {
    LONG modal_result = 2;
    LONG symbol_id = 0;
    LONG feed_id = 0;
    CString feed = L"TradeNode";
    // What Select answers.
    HRESULT select = S_FALSE;
    // What asking for an interface gives, where that is not the interface.
    std::map<std::wstring, HRESULT> refused;
    // Whether the sheet's library makes a sheet, and what it answers.
    bool makes_sheet = true;
    HRESULT sheet_result = S_OK;
};

// The interface's id as a key of the plan.
std::wstring id_text(REFIID iid);

// Data of the dialog, its series manager and its quick request in one object. Records `Data.Prepare()`,
// `Data.OnDialogEnd(2, 0)`, `Data.get_Dialog()`, `Series.put_Mode(0, 1)`, `Quick.put_Kind(0)`,
// `Quick.Select("feed", "name", category, "exchange")`, `Quick.put_DataFeed("feed")`, and so on.
class FakeDataProperty : public platform::com_root<IDataProperty, pManageSeries, IQuickRequest> {
public:
    FakeDataProperty(fake_host host, std::shared_ptr<dialog_plan> plan)
        : m_host(std::move(host)), m_plan(std::move(plan)) {}

    STDMETHODIMP Prepare() override;
    STDMETHODIMP OnDialogEnd(LONG lModalResult, LONG lReserved) override;
    STDMETHODIMP get_Dialog(IQVDlgSymbols** ppVal) override;
    STDMETHODIMP put_Mode(LONG lSeries, LONG lSingle) override;
    STDMETHODIMP get_DataFeed(BSTR* pVal) override;
    STDMETHODIMP put_DataFeed(BSTR sDataFeed) override;
    STDMETHODIMP put_Description(BSTR sDescription) override;
    STDMETHODIMP put_Kind(LONG lKind) override;
    STDMETHODIMP put_Name(BSTR sName) override;
    STDMETHODIMP get_DataFeedId(LONG* pVal) override;
    STDMETHODIMP get_SymbolId(LONG* pVal) override;
    STDMETHODIMP Select(BSTR sDataFeed, BSTR sName, LONG lCategory, BSTR sExchange) override;
    RESERVED_OPERATIONS_IDataProperty RESERVED_OPERATIONS_IQuickRequest

        protected : HRESULT
                    internal_query(REFIID iid, void** out);

private:
    fake_host m_host;
    std::shared_ptr<dialog_plan> m_plan;
};

// Records `Sheet.Create(128, "caption", objects, page)` with the interfaces of the objects and the page's
// name, `Sheet.ShowModal(owner)` and `Context.put_SettingsRoot("path")`.
class FakeSheet : public platform::com_root<IQVPropertySheet, IQVPropertyContext> {
public:
    FakeSheet(fake_host host, std::shared_ptr<dialog_plan> plan)
        : m_host(std::move(host)), m_plan(std::move(plan)) {}

    STDMETHODIMP Create(LONG lFlags, BSTR sCaption, LONG lObjects, IUnknown** ppObjects, LONG lPages,
                        const GUID* pPageIds) override;
    STDMETHODIMP ShowModal(ULONGLONG hOwner, LONG* pModalResult) override;
    STDMETHODIMP put_SettingsRoot(BSTR sPath) override;

protected:
    HRESULT internal_query(REFIID iid, void** out);

private:
    fake_host m_host;
    std::shared_ptr<dialog_plan> m_plan;
};

// The property sheet library of the process, which makes FakeSheets as long as this lives and records
// `Library.CreateResizablePropertySheet()`. One at a time.
class sheet_library_scope {
public:
    // Throws std::runtime_error when the library can't be loaded.
    sheet_library_scope(fake_host host, std::shared_ptr<dialog_plan> plan);
    ~sheet_library_scope();
    sheet_library_scope(const sheet_library_scope&) = delete;
    sheet_library_scope& operator=(const sheet_library_scope&) = delete;
};

}  // namespace test
