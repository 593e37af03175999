#include "tests/lookup/fake_sheet.h"

#include <stdexcept>

#include "OrderDeck.h"
#include "platform/module.h"
#include "tests/sheet_library/sheet_library.h"

namespace test {

namespace {

class FakeDlgSymbols : public platform::com_root<IOV_QVDlg::IQVDlgSymbols> {
public:
    explicit FakeDlgSymbols(fake_host host) : m_host(std::move(host)) {}

    STDMETHODIMP put_Filter(BSTR sName) override {
        return m_host.enter("Dialog", {}, "put_Filter", quoted(sName)).hr;
    }
    RESERVED_OPERATIONS_IQVDlgSymbols

        private : fake_host m_host;
};

// The one sheet maker's host and plan.
struct maker_state {
    fake_host host;
    std::shared_ptr<dialog_plan> plan;
};

maker_state& the_maker() {
    static maker_state state;
    return state;
}

HRESULT make_sheet(IUnknown** sheet) {
    const maker_state& maker = the_maker();
    maker.host.enter("Library", {}, "CreateResizablePropertySheet");
    if (maker.plan->makes_sheet) {
        *sheet = platform::make_com<FakeSheet>(maker.host, maker.plan).detach()->GetUnknown();
    }
    return maker.plan->sheet_result;
}

void set_maker(sheet_maker maker) {
    const CString path = platform::folder_of(platform::program_path()) + L"sheet_library/PropDS2_x64.dll";
    const HMODULE library = platform::load_library(path);
    if (library == nullptr) {
        throw std::runtime_error("the property sheet library can't be loaded");
    }
    reinterpret_cast<SetSheetMaker_t>(platform::find_export(library, "SetSheetMaker"))(maker);
}

// True when the plan answers for the interface.
bool is_refused(const dialog_plan& plan, REFIID iid, void** out, HRESULT& hr) {
    const auto found = plan.refused.find(id_text(iid));
    if (found == plan.refused.end()) {
        return false;
    }
    *out = nullptr;
    hr = found->second;
    return true;
}

std::string object_name(IUnknown* object) {
    if (platform::query<IDataProperty>(object)) {
        return "data";
    }
    return platform::query<IOD_LookupFilter>(object) ? "filter" : "stranger";
}

}  // namespace

std::wstring id_text(REFIID iid) {
    LPOLESTR text = nullptr;
    if (FAILED(StringFromIID(iid, &text))) {
        throw std::bad_alloc();
    }
    std::wstring result = text;
    CoTaskMemFree(text);
    return result;
}

HRESULT FakeDataProperty::internal_query(REFIID iid, void** out) {
    HRESULT hr = S_OK;
    return is_refused(*m_plan, iid, out, hr) ? hr : com_root::internal_query(iid, out);
}

STDMETHODIMP FakeDataProperty::Prepare() {
    return m_host.enter("Data", {}, "Prepare").hr;
}

STDMETHODIMP FakeDataProperty::OnDialogEnd(LONG lModalResult, LONG lReserved) {
    return m_host
        .enter("Data", {}, "OnDialogEnd", std::to_string(lModalResult) + ", " + std::to_string(lReserved))
        .hr;
}

STDMETHODIMP FakeDataProperty::get_Dialog(IQVDlgSymbols** ppVal) {
    const auto told = m_host.enter("Data", {}, "get_Dialog");
    if (told.write) {
        *ppVal = platform::make_com<FakeDlgSymbols>(m_host).detach();
    }
    return told.hr;
}

STDMETHODIMP FakeDataProperty::put_Mode(LONG lSeries, LONG lSingle) {
    return m_host.enter("Series", {}, "put_Mode", std::to_string(lSeries) + ", " + std::to_string(lSingle))
        .hr;
}

STDMETHODIMP FakeDataProperty::get_DataFeed(BSTR* pVal) {
    const auto told = m_host.enter("Quick", {}, "get_DataFeed");
    if (told.write) {
        *pVal = platform::new_bstr(m_plan->feed);
    }
    return told.hr;
}

STDMETHODIMP FakeDataProperty::put_DataFeed(BSTR sDataFeed) {
    return m_host.enter("Quick", {}, "put_DataFeed", quoted(sDataFeed)).hr;
}

STDMETHODIMP FakeDataProperty::put_Description(BSTR sDescription) {
    return m_host.enter("Quick", {}, "put_Description", quoted(sDescription)).hr;
}

STDMETHODIMP FakeDataProperty::put_Kind(LONG lKind) {
    return m_host.enter("Quick", {}, "put_Kind", std::to_string(lKind)).hr;
}

STDMETHODIMP FakeDataProperty::put_Name(BSTR sName) {
    return m_host.enter("Quick", {}, "put_Name", quoted(sName)).hr;
}

STDMETHODIMP FakeDataProperty::get_DataFeedId(LONG* pVal) {
    const auto told = m_host.enter("Quick", {}, "get_DataFeedId");
    if (told.write) {
        *pVal = m_plan->feed_id;
    }
    return told.hr;
}

STDMETHODIMP FakeDataProperty::get_SymbolId(LONG* pVal) {
    const auto told = m_host.enter("Quick", {}, "get_SymbolId");
    if (told.write) {
        *pVal = m_plan->symbol_id;
    }
    return told.hr;
}

STDMETHODIMP FakeDataProperty::Select(BSTR sDataFeed, BSTR sName, LONG lCategory, BSTR sExchange) {
    const auto told = m_host.enter("Quick", {}, "Select",
                                   quoted(sDataFeed) + ", " + quoted(sName) + ", " +
                                       std::to_string(lCategory) + ", " + quoted(sExchange));
    return told.hr != S_OK ? told.hr : m_plan->select;
}

HRESULT FakeSheet::internal_query(REFIID iid, void** out) {
    HRESULT hr = S_OK;
    return is_refused(*m_plan, iid, out, hr) ? hr : com_root::internal_query(iid, out);
}

STDMETHODIMP FakeSheet::Create(LONG lFlags, BSTR sCaption, LONG lObjects, IUnknown** ppObjects, LONG lPages,
                               const GUID* pPageIds) {
    std::string arguments = std::to_string(lFlags) + ", " + quoted(sCaption);
    for (LONG i = 0; i < lObjects; ++i) {
        arguments += ", " + object_name(ppObjects[i]);
    }
    for (LONG i = 0; i < lPages; ++i) {
        arguments += IsEqualGUID(pPageIds[i], GUID_SymbolPage)       ? ", symbol page"
                     : IsEqualGUID(pPageIds[i], GUID_InstrumentPage) ? ", instrument page"
                                                                     : ", strange page";
    }
    return m_host.enter("Sheet", {}, "Create", arguments).hr;
}

STDMETHODIMP FakeSheet::ShowModal(ULONGLONG hOwner, LONG* pModalResult) {
    const auto told = m_host.enter("Sheet", {}, "ShowModal", std::to_string(hOwner));
    if (told.write) {
        *pModalResult = m_plan->modal_result;
    }
    return told.hr;
}

STDMETHODIMP FakeSheet::put_SettingsRoot(BSTR sPath) {
    return m_host.enter("Context", {}, "put_SettingsRoot", quoted(sPath)).hr;
}

sheet_library_scope::sheet_library_scope(fake_host host, std::shared_ptr<dialog_plan> plan) {
    set_maker(&make_sheet);
    the_maker() = {std::move(host), std::move(plan)};
}

sheet_library_scope::~sheet_library_scope() {
    set_maker(nullptr);
    the_maker() = {};
}

}  // namespace test
