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

void COrderDeckObj::_require(life its) const {
    if (m_life != its) {
        _com_issue_error(OLE_E_BLANK);
    }
}

HRESULT COrderDeckObj::Create(HWND lParent, IUnknown* pUnk, HWND* pHandle) noexcept {
    const HRESULT hr = _call(BS_HERE, [&] {
        if (pHandle == nullptr) {
            return E_INVALIDARG;
        }
        _create(lParent, pUnk, pHandle);
        return S_OK;
    });
    if (FAILED(hr) && pHandle != nullptr) {
        *pHandle = nullptr;
    }
    return hr;
}

void COrderDeckObj::_create(HWND parent, IUnknown* service, HWND* handle) {
    platform::desktop& desktop = platform::port<platform::desktop>::get();
    if (!desktop.is_window(parent)) {
        BS_RAISE("", E_FAIL);
    }
    // Before the old one goes, so that what is shared survives.
    auto global = std::make_unique<CGlobalData>();
    _end_former_bar();
    const life its = ++m_life;
    m_ao.Start();
    m_pGlobal = std::move(global);
    const com_ptr<SW::IOnCommand> on_command = platform::query<SW::IOnCommand>(service);
    _require(its);
    _global().put_OnCommand(on_command.get());
    _require(its);
    const boost::shared_ptr<ITabCtrl> made = _make_bar(parent);
    const HWND bar = made->get_Hwnd();
    _global().put_Hwnd(bar);
    made->Show(true);
    _serialization([this] { _deserialize_impl(); });
    *handle = bar;
    if (parent != nullptr && bar != nullptr) {
        Register(parent, bar);
        _require(its);
    }
    m_dwThreadId = platform::current_thread_id();
    if (desktop.is_window(bar)) {
        desktop.set_window_text(bar, resource_string::text(ids_BarTitle));
        _require(its);
    }
    m_bValid = true;
}

// A host that did not destroy its first bar has it destroyed now: through one root only one is reached. The
// one that it makes meanwhile is the later one and stays.
void COrderDeckObj::_end_former_bar() {
    if (m_pTabCtrl) {
        _destroy();
    }
    if (m_pTabCtrl) {
        _com_issue_error(OLE_E_BLANK);
    }
}

// A window tells its parent of its making: the parent may be the host's, and the host may destroy then.
boost::shared_ptr<ITabCtrl> COrderDeckObj::_make_bar(HWND parent) {
    const life its = m_life;
    boost::shared_ptr<ITabCtrl> bar = make_bar_window(parent, *this);
    if (m_life != its) {
        bar->Teardown();
    }
    _require(its);
    m_pTabCtrl = bar;
    return bar;
}

HRESULT COrderDeckObj::Destroy() noexcept {
    return _call(BS_HERE, [this] {
        _destroy();
        return S_OK;
    });
}

// No task that was posted runs after the active object has stopped. All that the bar consists of leaves the
// object before the host hears of its end, so nothing is seen half taken down, and a bar that the host makes
// meanwhile is none that is taken down here. The registration with the container is left to the notifier's
// destructor.
void COrderDeckObj::_destroy() {
    m_ao.Stop(true, true);
    ++m_life;
    m_bValid = false;
    m_tags.clear();
    m_bTabsFilled = false;
    m_bReloading = false;
    const std::unique_ptr<CGlobalData> global = std::move(m_pGlobal);
    boost::shared_ptr<ITabCtrl> bar;
    bar.swap(m_pTabCtrl);
    com_ptr<IConnectionPoint> items;
    items.swap(m_pItemsCP);
    DWORD cookie = std::exchange(m_dwItemsCookie, platform::not_advised);
    platform::unadvise(items, cookie);
    if (bar) {
        bar->Teardown();
    }
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

boost::shared_ptr<ITabCtrl> COrderDeckObj::_bar() {
    BS_REQUIRE(m_pTabCtrl, OLE_E_BLANK);
    return m_pTabCtrl;
}

void COrderDeckObj::EnsureFilled() {
    const com_ptr<COrderDeckObj> alive(this);
    _check_filled();
}

void COrderDeckObj::_check_filled() {
    if (m_bTabsFilled) {
        return;
    }
    const life its = m_life;
    const boost::shared_ptr<ITabCtrl> bar = _bar();
    m_bTabsFilled = true;
    _fill_tab_ctrl();
    bar->Show(true);
    _require(its);
}

void COrderDeckObj::_fill_tab_ctrl() {
    const life its = m_life;
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
    _require(its);
    // Panels first, subscription second: a profile that is added in between shows at the next reload.
    _process_profs(items.get(), [this](ITC_TradingProfile* profile) { _on_add_prof(profile, true); });
    _require(its);
    if (const HRESULT hr = _subscribe(profiles.get()); hr != S_OK) {
        BugSlayerUtil::assertion(BS_HERE, "", hr);
    }
    _require(its);
    _global().put_Profiles(profiles.get());
    _require(its);
    _global().put_Center(center.get());
    _require(its);
}

// A host that destroyed the bar meanwhile must not hold its root by a subscription.
HRESULT COrderDeckObj::_subscribe(ITC_TradingProfileS* profiles) {
    const life its = m_life;
    platform::unadvise(m_pItemsCP, m_dwItemsCookie);
    _require(its);
    com_ptr<IConnectionPoint> items;
    DWORD cookie = platform::not_advised;
    const HRESULT hr = platform::advise(profiles, GetUnknown(), __uuidof(ITC_ItemsChanged), items, cookie);
    if (m_life != its) {
        platform::unadvise(items, cookie);
        _require(its);
    }
    m_pItemsCP.swap(items);
    m_dwItemsCookie = cookie;
    return hr;
}

}  // namespace OV_OrderDeck
