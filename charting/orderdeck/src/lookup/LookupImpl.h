#pragma once

#include <memory>
#include <mutex>

#include "OrderDeck.h"
#include "platform/com_object.h"
#include "platform/text.h"
#include "unicomp/LocalRPC/ActiveObject.h"
#include "unicomp/ProfileVsDataFeedAssociation/interface/ProfileVsDataFeedAssociation.h"

namespace OV_OrderDeck {

// The lookup service: from a name, an id or a request to one symbol, by the host's tables or its dialog.
// Called on one thread at a time, on which the dialog is shown and a request is searched for; names and
// ids are searched for on a worker thread of its own, which the first of them starts. In a program without a
// settings root no plug-in has a data feed. The construction throws _com_error with E_OUTOFMEMORY.
class CLookupImpl : public platform::com_root<IOD_LookupImpl> {
public:
    ~CLookupImpl() override;

    STDMETHODIMP Initialize(LONG hParent, BSTR sPluginName, VARIANT_BOOL bIsDatafeed,
                            IUnknown* pFilter) noexcept override;
    STDMETHODIMP GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected, OD_SSymbolInfo* pVal,
                               OD_LookupResult* pRes) noexcept override;
    STDMETHODIMP GetSymbolInfoById(LONG lSymbolId, OD_SSymbolInfo* pVal,
                                   OD_LookupResult* pRes) noexcept override;
    STDMETHODIMP GetSymbolInfoByReq(OD_SSymbolReq* pReq, OD_SSymbolInfo* pVal,
                                    OD_LookupResult* pRes) noexcept override;
    STDMETHODIMP IsPluginSupported(BSTR sName, VARIANT_BOOL* pRes) noexcept override;
    STDMETHODIMP SetDlgCaption(BSTR bstrCaption) noexcept override;

private:
    bool _is_supported() const;
    // Whether the association has it.
    bool _is_known(const _bstr_t& plugin) const;
    CString _data_feed() const;
    void _fill_defaults(const wchar_t* name, OD_SSymbolInfo& info) const;
    void _get_symbol_info(BSTR name, LONG mode, OD_SSymbolInfo* selected, OD_SSymbolInfo& info,
                          OD_LookupResult& result);
    bool _find_by_id(LONG id, LONG feedId, OD_SSymbolInfo& info);

    // On the worker thread.
    void _find_unique_symbol_by_name_impl(wchar_t* name, OD_SSymbolInfo& info, bool& found) const;
    static void _find_symbol_by_id(LONG id, LONG feedId, OD_SSymbolInfo& info, bool& found);

    // Whether the user chose a symbol. A failure is traced and means that he did not.
    bool _find_symbol_with_dialog(wchar_t* name, OD_SSymbolInfo* selected, OD_SSymbolInfo& info) noexcept;
    bool _run_dialog(const CString& name, const OD_SSymbolInfo* selected, OD_SSymbolInfo& info);
    void _seed_dialog(IDataProperty& data, const CString& name, const OD_SSymbolInfo* selected);
    LONG _show_sheet(IDataProperty& data);
    bool _take_choice(IDataProperty& data, OD_SSymbolInfo& info);
    CString _caption() const;

    // Not private, for a derived class that has work of its own for the worker.
protected:
    // Guards the caption.
    mutable std::mutex m_lock;
    bool initialized = false;
    _bstr_t pluginName;
    LONG hParent = 0;
    LocalRPC::CActiveObject_thread activeObject{0};
    // Null in a program without a settings root.
    const std::unique_ptr<const Unicomp::CProfileDataFeedAssociation<IUnknown>> association =
        Unicomp::association_if_rooted<IUnknown>();
    bool instrumentDialog = false;
    bool isDataFeed = false;
    com_ptr<IOD_LookupFilter> filter;
    BSTR caption = nullptr;
};

}  // namespace OV_OrderDeck
