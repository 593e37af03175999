// The part of CLookupImpl that lets the user choose in the host's dialog.
#include <array>

#include "charting/orderdeck/src/lookup/HostCall.h"
#include "charting/orderdeck/src/lookup/HostObject.h"
#include "charting/orderdeck/src/lookup/LookupImpl.h"
#include "charting/orderdeck/src/lookup/OwnedText.h"
#include "charting/orderdeck/src/lookup/QVResizablePropSheetWrap.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/text_argument.h"
#include "unicomp/Simples/interface/resource_string.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace OV_OrderDeck {
namespace {

constexpr UINT choose_instrument = 111;
constexpr UINT search = 121;
constexpr LONG modal_sheet = 0x80;
// Deliberate: of all modal results this one alone means that nothing was chosen.
constexpr LONG nothing_chosen = 1;

using platform::text_argument;

// A borrowed text that is never null.
_bstr_t text_argument(BSTR text) {
    return text_argument(platform::text_of(text));
}

void set_series_mode(IDataProperty& data) {
    const com_ptr<pManageSeries> series = platform::query<pManageSeries>(&data);
    if (!series) {
        BugSlayerUtil::throw_error(BS_HERE, "pManageSeries");
    }
    report(BS_HERE, "put_Mode", series->put_Mode(0, 1));
}

com_ptr<IQuickRequest> quick_request(IDataProperty& data) {
    const com_ptr<IQuickRequest> quick = platform::query<IQuickRequest>(&data);
    BS_REQUIRE(quick, E_POINTER);
    return quick;
}

void give_settings_root(IQVPropertySheet& sheet, const CString& root) {
    const com_ptr<IQVPropertyContext> context = platform::query<IQVPropertyContext>(&sheet);
    if (BS_ASSERT(context)) {
        report(BS_HERE, "put_SettingsRoot", context->put_SettingsRoot(text_argument(root).copy(false)));
    }
}

}  // namespace

bool CLookupImpl::_find_symbol_with_dialog(wchar_t* name, OD_SSymbolInfo* selected,
                                           OD_SSymbolInfo& info) noexcept {
    bool chosen = false;
    const HRESULT hr =
        BugSlayerUtil::guard(BS_HERE, [&] { chosen = _run_dialog(platform::text_of(name), selected, info); });
    return SUCCEEDED(hr) && chosen;
}

bool CLookupImpl::_run_dialog(const CString& name, const OD_SSymbolInfo* selected, OD_SSymbolInfo& info) {
    const com_ptr<IDataProperty> data = create_host_object<IDataProperty>(CLSID_DataProperty);
    BS_REQUIRE(data, E_POINTER);
    set_series_mode(*data);
    require(BS_HERE, "Prepare", data->Prepare());
    _seed_dialog(*data, name, selected);
    const LONG result = _show_sheet(*data);
    report(BS_HERE, "OnDialogEnd", data->OnDialogEnd(result, 0));
    return result != nothing_chosen && _take_choice(*data, info);
}

void CLookupImpl::_seed_dialog(IDataProperty& data, const CString& name, const OD_SSymbolInfo* selected) {
    const _bstr_t feed = text_argument(_data_feed());
    const _bstr_t shown =
        name.empty() && selected != nullptr ? text_argument(selected->Name) : text_argument(name);
    const com_ptr<IQuickRequest> quick = quick_request(data);
    report(BS_HERE, "put_Kind", quick->put_Kind(0));
    const bool known =
        selected != nullptr && quick->Select(feed.copy(false), shown.copy(false), selected->Category,
                                             text_argument(selected->Exchange).copy(false)) == S_OK;
    if (!known) {
        report(BS_HERE, "put_DataFeed", quick->put_DataFeed(feed.copy(false)));
        report(BS_HERE, "put_Name", quick->put_Name(shown.copy(false)));
        if (selected != nullptr) {
            report(BS_HERE, "put_Description",
                   quick->put_Description(text_argument(selected->Description).copy(false)));
        }
    }
    if (!name.empty()) {
        com_ptr<IOV_QVDlg::IQVDlgSymbols> dialog;
        const HRESULT hr = data.get_Dialog(platform::receive(dialog));
        BS_REQUIRE(SUCCEEDED(hr) && dialog, E_POINTER);
        report(BS_HERE, "put_Filter", dialog->put_Filter(shown.copy(false)));
    }
}

CString CLookupImpl::_caption() const {
    {
        const std::lock_guard guard(m_lock);
        if (SysStringLen(caption) != 0) {
            return platform::text_of(caption);
        }
    }
    return instrumentDialog ? resource_string::text(choose_instrument)
                            : resource_string::text(search) + L" - " + _data_feed();
}

// The modal result.
LONG CLookupImpl::_show_sheet(IDataProperty& data) {
    std::array<IUnknown*, 2> objects{&data, filter.get()};
    const GUID page = instrumentDialog ? GUID_InstrumentPage : GUID_SymbolPage;
    const _bstr_t title = text_argument(_caption());
    const CString root = Unicomp::settings_root();
    BS_REQUIRE(!root.empty(), E_FAIL);
    CQVResizablePropSheetWrap wrap;
    require(BS_HERE, "CreateSheet", wrap.CreateSheet());
    IQVPropertySheet& sheet = *wrap.get_Sheet();
    require(BS_HERE, "Create",
            sheet.Create(modal_sheet, title.copy(false), filter ? 2 : 1, objects.data(), 1, &page));
    give_settings_root(sheet, root);
    LONG result = nothing_chosen;
    // The window came as its low 32 bits, which are all of a handle that count.
    const auto owner = static_cast<ULONGLONG>(static_cast<LONGLONG>(hParent));
    require(BS_HERE, "ShowModal", sheet.ShowModal(owner, &result));
    return result;
}

bool CLookupImpl::_take_choice(IDataProperty& data, OD_SSymbolInfo& info) {
    const com_ptr<IQuickRequest> quick = quick_request(data);
    LONG id = 0;
    require(BS_HERE, "get_SymbolId", quick->get_SymbolId(&id));
    LONG feed_id = 0;
    require(BS_HERE, "get_DataFeedId", quick->get_DataFeedId(&feed_id));
    const bool bRes = _find_by_id(id, feed_id, info);
    if (BS_ASSERT(bRes)) {
        owned_text feed;
        report(BS_HERE, "get_DataFeed", quick->get_DataFeed(feed.receive()));
        // Nothing else fills it.
        info.DataFeed = feed.release();
    }
    return bRes;
}

}  // namespace OV_OrderDeck
