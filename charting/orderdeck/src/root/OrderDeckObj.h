#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "OrderDeck.h"
#include "charting/orderdeck/interface/IBarOwner.h"
#include "charting/orderdeck/interface/IManageContent.h"
#include "charting/orderdeck/interface/IPersist.h"
#include "charting/orderdeck/interface/ITabCtrl.h"
#include "charting/orderdeck/interface/ITradeInfoProperties.h"
#include "charting/orderdeck/src/root/ConatinerNotifier.h"
#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/root/SerializeProfInf.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/com_object.h"
#include "unicomp/LocalRPC/ActiveObject.h"

namespace OV_OrderDeck {

class CTab;

// {44b37a4c-17ef-4301-b05a-a54b611db7c2}
inline constexpr CLSID CLSID_COrderDeckObj = {
    0x44b37a4c, 0x17ef, 0x4301, {0xb0, 0x5a, 0xa5, 0x4b, 0x61, 0x1d, 0xb7, 0xc2}};

// The one object through which a host sees the bar. It owns the bar window, keeps one tab per trading
// profile, and answers the host's menu, status line and driver calls.
//
// All of it runs on the thread that called Create; the reference count alone is atomic. Nothing throws
// across an operation of the interfaces.
//
// The host may destroy the bar, and make it anew, inside any call that it gets from here. Each operation
// belongs to the life in which it began: after a call to the host it goes on only while that life lasts, and
// otherwise ends with OLE_E_BLANK and without a report, since the host did nothing wrong.
class COrderDeckObj : public platform::com_root<ISWUnifyAccess, IOD_BrokerProfiles, ITC_ItemsChanged,
                                                IOD_OrderDeckDriver, IProvideClassInfo>,
                      public NonModalDialogsForContainer::CConatinerNotifier,
                      public IBarOwner {
public:
    COrderDeckObj();

    // ISWUnifyAccess
    STDMETHODIMP Create(HWND lParent, IUnknown* pUnk, HWND* pHandle) noexcept override;
    STDMETHODIMP Destroy() noexcept override;
    STDMETHODIMP UpdateLayout() noexcept override;

    // IOD_BrokerProfiles
    STDMETHODIMP get_Commands(SAFEARRAY** ppItems) noexcept override;
    STDMETHODIMP get_StatusLineString(BSTR* pVal) noexcept override;
    STDMETHODIMP OnClose() noexcept override;

    // ITC_ItemsChanged
    STDMETHODIMP OnItemChanged(ETM_ChangeTypeOfEvent kind_of_changes, SAFEARRAY* _items) noexcept override;

    // IOD_OrderDeckDriver
    STDMETHODIMP put_SymbolInfo(BSTR sProfOuterID, OD_SSymbolInfo* pTradeInfo) noexcept override;
    STDMETHODIMP get_SymbolInfo(BSTR sProfOuterID, OD_SSymbolInfo* pTradeInfo) noexcept override;
    STDMETHODIMP put_Account(BSTR sProfOuterID, BSTR sAccount) noexcept override;
    STDMETHODIMP get_Account(BSTR sProfOuterID, BSTR* pAccount) noexcept override;
    STDMETHODIMP put_ActiveTab(BSTR sProfOuterID) noexcept override;
    STDMETHODIMP get_ActiveTab(BSTR* pProfOuterID) noexcept override;

    // IProvideClassInfo
    STDMETHODIMP GetClassInfo(ITypeInfo** ppTI) noexcept override;

    // IBarOwner
    void EnsureFilled() override;

    // Connects to the trading centre and makes the panels, once. The flag is set before the fill, so a
    // fill that throws is deliberately not retried: the host's next call must not block again.
    void _check_filled();

protected:
    ~COrderDeckObj() override;

private:
    using tags = std::map<CString, LONG>;
    using profile_action = std::function<void(ITC_TradingProfile*)>;
    using profiles_by_name = std::map<CString, com_ptr<CProfileWrap>>;

    // Life.
    using life = unsigned;
    // Keeps the object over an operation, in which the host may let go of it.
    template <class Operation>
    HRESULT _call(const BugSlayerUtil::code_location& where, Operation&& operation) noexcept;
    // Throws _com_error (OLE_E_BLANK) when the life has ended.
    void _require(life its) const;
    void _create(HWND parent, IUnknown* service, HWND* handle);
    void _destroy();
    void _end_former_bar();
    boost::shared_ptr<ITabCtrl> _make_bar(HWND parent);
    void _fill_tab_ctrl();
    HRESULT _subscribe(ITC_TradingProfileS* profiles);
    // Both throw _com_error (OLE_E_BLANK) outside of the time between Create and Destroy. The bar is to be
    // held over its calls.
    CGlobalDataImpl& _global();
    boost::shared_ptr<ITabCtrl> _bar();

    // Menu.
    SAFEARRAY* _make_commands();
    static void fill_profiles_coll(const tab_infos& tabs, profiles_by_name& coll);

    // Tracking of the profile collection.
    void _on_item_changed(ETM_ChangeTypeOfEvent kind, SAFEARRAY* items);
    void _process_profs(SAFEARRAY* items, const profile_action& action);
    tags::iterator _find_prof_tag(ITC_TradingProfile* profile);
    void _on_add_prof(ITC_TradingProfile* profile, bool bSilent);
    void _enter_panel(const boost::shared_ptr<CTab>& panel, LONG tag);
    void _on_update_prof(ITC_TradingProfile* profile);
    void _on_delete_prof(ITC_TradingProfile* profile);
    void _on_delete_all_profs();
    void _reload();

    // Driver.
    boost::shared_ptr<ITradeInfoProperties> _find_trade_props(BSTR outer_id);

    // What is remembered between runs.
    void _serialization(const std::function<void()>& action);
    void _serialize_impl(const remembered_profiles& records, life its);
    void _deserialize_impl();
    void _serialize_tab_ctrl(const CString& path);
    void _deserialize_tab_ctrl(const CString& path);
    void _restore_profs(const remembered_profiles& records);
    bool _need_disconnect();
    bool _disconnect_and_record(remembered_profiles& records);
    // What is left of a panel after calls to the host: the panel itself, after a reload the new one of its
    // profile, or none.
    boost::shared_ptr<ITab> _panel_now(LONG id, ITab& panel, life its);

    // Counts every making and destroying of the bar.
    life m_life = 0;
    bool m_bTabsFilled = false;
    boost::shared_ptr<ITabCtrl> m_pTabCtrl;
    bool m_bValid = false;
    DWORD m_dwThreadId = 0;
    com_ptr<IConnectionPoint> m_pItemsCP;
    // 0xFFFFFFFF: not advised.
    DWORD m_dwItemsCookie = 0xFFFFFFFF;
    // The tab id of each profile's panel, by the profile's outer id.
    tags m_tags;
    // Between the reload events single changes do not count: the reload brings them all.
    bool m_bReloading = false;
    std::unique_ptr<CGlobalData> m_pGlobal;
    LocalRPC::CActiveObject_WndMsg m_ao;
};

template <class Operation>
HRESULT COrderDeckObj::_call(const BugSlayerUtil::code_location& where, Operation&& operation) noexcept {
    const com_ptr<COrderDeckObj> alive(this);
    return BugSlayerUtil::guard(where, std::forward<Operation>(operation));
}

}  // namespace OV_OrderDeck
