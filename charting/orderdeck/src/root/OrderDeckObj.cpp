#include "charting/orderdeck/src/root/OrderDeckObj.h"

#include "charting/orderdeck/interface/make_bar_window.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/class_info.h"
#include "platform/com_create.h"
#include "platform/connection_point.h"
#include "platform/desktop.h"
#include "platform/safearray.h"
#include "platform/thread.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace OV_OrderDeck {

using BugSlayerUtil::guard;

namespace {

constexpr UINT ids_BarTitle = 108;

// The host's trading centre; null when there is no such interface at any step of making it.
com_ptr<ITC_TradingCenter> create_trading_center() {
    com_ptr<ITC_TradingCenter> center;
    const HRESULT hr = platform::create_running(CLSID_TradingCenter, center);
    if (FAILED(hr) && hr != E_NOINTERFACE) {
        _com_issue_error(hr);
    }
    return center;
}

}  // namespace

COrderDeckObj::COrderDeckObj() : m_ao(true) {}

COrderDeckObj::~COrderDeckObj() {
    guard(BS_HERE, [this] { _destroy(); });
}

HRESULT COrderDeckObj::Create(HWND lParent, IUnknown* pUnk, HWND* pHandle) noexcept {
    return guard(BS_HERE, [&] {
        if (pHandle == nullptr) {
            return E_INVALIDARG;
        }
        _create(lParent, pUnk, pHandle);
        return S_OK;
    });
}

void COrderDeckObj::_create(HWND parent, IUnknown* service, HWND* handle) {
    platform::desktop& desktop = platform::port<platform::desktop>::get();
    if (!desktop.is_window(parent)) {
        BS_RAISE("", E_FAIL);
    }
    m_ao.Start();
    m_pGlobal = std::make_unique<CGlobalData>();
    _global().put_OnCommand(platform::query<SW::IOnCommand>(service).get());
    m_pTabCtrl = make_bar_window(parent, *this);
    const HWND bar = m_pTabCtrl->get_Hwnd();
    _global().put_Hwnd(bar);
    m_pTabCtrl->Show(true);
    _serialization([this] { _deserialize_impl(); });
    *handle = bar;
    if (parent != nullptr && bar != nullptr) {
        Register(parent, bar);
    }
    m_dwThreadId = platform::current_thread_id();
    if (desktop.is_window(bar)) {
        desktop.set_window_text(bar, resource_string::text(ids_BarTitle));
    }
    m_bValid = true;
}

HRESULT COrderDeckObj::Destroy() noexcept {
    return guard(BS_HERE, [this] {
        _destroy();
        return S_OK;
    });
}

// No task that was posted runs after the active object has stopped, so nothing below is seen half
// taken down. The registration with the container is left to the notifier's destructor.
void COrderDeckObj::_destroy() {
    m_ao.Stop(true, true);
    m_bValid = false;
    _unsubscribe();
    m_tags.clear();
    if (m_pTabCtrl) {
        m_pTabCtrl->Teardown();
        m_pTabCtrl.reset();
    }
    m_pGlobal.reset();
    m_bTabsFilled = false;
    m_bReloading = false;
}

HRESULT COrderDeckObj::UpdateLayout() noexcept {
    return m_bValid ? S_OK : OLE_E_BLANK;
}

HRESULT COrderDeckObj::GetClassInfo(ITypeInfo** ppTI) noexcept {
    return guard(BS_HERE, [&] { return platform::class_info(CLSID_COrderDeckObj, ppTI); });
}

CGlobalDataImpl& COrderDeckObj::_global() {
    BS_REQUIRE(m_pGlobal, OLE_E_BLANK);
    return *m_pGlobal->GetObject();
}

ITabCtrl& COrderDeckObj::_bar() {
    BS_REQUIRE(m_pTabCtrl, OLE_E_BLANK);
    return *m_pTabCtrl;
}

void COrderDeckObj::_check_filled() {
    if (m_bTabsFilled) {
        return;
    }
    BS_REQUIRE(m_pTabCtrl, OLE_E_BLANK);
    m_bTabsFilled = true;
    _fill_tab_ctrl();
    _bar().Show(true);
}

void COrderDeckObj::_fill_tab_ctrl() {
    const com_ptr<ITC_TradingCenter> center = create_trading_center();
    BS_REQUIRE(center, E_POINTER);
    center->Prepare(-1);
    com_ptr<ITC_TradingProfileS> profiles;
    center->get_TradingProfiles(platform::receive(profiles));
    BS_REQUIRE(profiles, E_POINTER);
    platform::safearray items;
    if (HRESULT hr = profiles->get_Items(items.receive()); hr != S_OK) {
        BugSlayerUtil::assertion(BS_HERE, "", hr);
        // The second answer is deliberately the one that counts, whatever it is: hosts see that result.
        hr = profiles->get_Items(items.receive());
        _com_issue_error(hr);
    }
    // Panels first, subscription second: a profile that is added in between shows at the next reload.
    _process_profs(items.get(), [this](ITC_TradingProfile* profile) { _on_add_prof(profile, true); });
    // A host that destroyed the bar meanwhile must not hold its root by a subscription.
    BS_REQUIRE(m_pTabCtrl, OLE_E_BLANK);
    if (const HRESULT hr = _subscribe(profiles.get()); hr != S_OK) {
        BugSlayerUtil::assertion(BS_HERE, "", hr);
    }
    _global().put_Profiles(profiles.get());
    _global().put_Center(center.get());
}

HRESULT COrderDeckObj::_subscribe(ITC_TradingProfileS* profiles) {
    return platform::advise(profiles, GetUnknown(), __uuidof(ITC_ItemsChanged), m_pItemsCP, m_dwItemsCookie);
}

void COrderDeckObj::_unsubscribe() {
    platform::unadvise(m_pItemsCP, m_dwItemsCookie);
}

}  // namespace OV_OrderDeck
