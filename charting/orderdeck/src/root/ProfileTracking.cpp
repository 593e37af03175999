// How the root keeps its panels equal to the host's collection of profiles.

#include <boost/make_shared.hpp>
#include <new>

#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/safearray.h"
#include "platform/thread.h"

namespace OV_OrderDeck {

HRESULT COrderDeckObj::OnItemChanged(ETM_ChangeTypeOfEvent kind_of_changes, SAFEARRAY* _items) noexcept {
    return _call(BS_HERE, [&] {
        _on_item_changed(kind_of_changes, _items);
        return S_OK;
    });
}

// Both checks only report: a host that breaks them still gets its event handled.
void COrderDeckObj::_on_item_changed(ETM_ChangeTypeOfEvent kind, SAFEARRAY* items) {
    BS_ASSERT_TEXT(platform::current_thread_id() == m_dwThreadId, "not thread safe");
    BS_ASSERT(m_bValid == true);
    switch (kind) {
        case eTM_CTOE_ReloadStart:
            m_bReloading = true;
            return;
        case eTM_CTOE_ReloadComplete:
            _reload();
            return;
        default:
            break;
    }
    if (m_bReloading) {
        return;
    }
    switch (kind) {
        case eTM_CTOE_Added:
            _process_profs(items, [this](ITC_TradingProfile* profile) { _on_add_prof(profile, false); });
            break;
        case eTM_CTOE_Deleted:
            _process_profs(items, [this](ITC_TradingProfile* profile) { _on_delete_prof(profile); });
            break;
        case eTM_CTOE_Updated:
            _process_profs(items, [this](ITC_TradingProfile* profile) { _on_update_prof(profile); });
            break;
        case eTM_CTOE_DeletedAll:
            _on_delete_all_profs();
            break;
        default:
            break;
    }
}

void COrderDeckObj::_process_profs(SAFEARRAY* items, const profile_action& action) {
    BS_REQUIRE(items, E_POINTER);
    VARTYPE type = VT_EMPTY;
    if (FAILED(SafeArrayGetVartype(items, &type)) || type != VT_VARIANT) {
        _com_issue_error(DISP_E_TYPEMISMATCH);
    }
    const life its = m_life;
    LONG low = 0;
    SafeArrayGetLBound(items, 1, &low);
    const LONG end = low + platform::safearray_size(items);
    for (LONG index = low; index < end; ++index) {
        _variant_t item;
        if (const HRESULT hr = SafeArrayGetElement(items, &index, &item); FAILED(hr)) {
            _com_issue_error(hr);
        }
        const bool holds_object = item.vt == VT_UNKNOWN || item.vt == VT_DISPATCH;
        const com_ptr<ITC_TradingProfile> _prof =
            platform::query<ITC_TradingProfile>(holds_object ? item.punkVal : nullptr);
        _require(its);
        if (BS_ASSERT(_prof)) {
            action(_prof.get());
        }
    }
}

COrderDeckObj::tags::iterator COrderDeckObj::_find_prof_tag(ITC_TradingProfile* profile) {
    if (profile == nullptr) {
        _com_issue_error(E_POINTER);
    }
    _bstr_t _val;
    if (!BS_ASSERT_OK_TEXT(profile->get_OuterID(_val.GetAddress()),
                           "S_OK == _prof->get_OuterID(_val.GetAddress())")) {
        return m_tags.end();
    }
    return m_tags.find(platform::text_of(_val));
}

void COrderDeckObj::_on_add_prof(ITC_TradingProfile* profile, bool bSilent) {
    const life its = m_life;
    if (_find_prof_tag(profile) != m_tags.end()) {
        return;
    }
    _require(its);
    const com_ptr<CProfileWrap> wrap(new (std::nothrow) platform::com_object<CProfileWrap>(profile));
    if (!wrap) {
        BS_RAISE("", E_POINTER);
    }
    const boost::shared_ptr<CTab> panel = boost::make_shared<CTab>(wrap);
    _require(its);
    panel->SetContent(m_pTabCtrl);
    const LONG tag = _bar()->AddTab(panel, bSilent);
    _require(its);
    if (BS_ASSERT(tag != 0)) {
        _enter_panel(panel, tag);
        _require(its);
    }
    IManageContent& content = *panel;
    content.Refresh();
}

// The host was asked about the profile, and may have changed its profiles meanwhile: only a panel that the
// bar still has is known by its id, and of two for one profile the first stays.
void COrderDeckObj::_enter_panel(const boost::shared_ptr<CTab>& panel, LONG tag) {
    const life its = m_life;
    const CString id = panel->get_Profile()->get_OuterID();
    _require(its);
    const boost::shared_ptr<ITabCtrl> bar = _bar();
    const bool is_there = bar->get_Tab(tag) == panel;
    if (is_there && !m_tags.emplace(id, tag).second && !id.empty()) {
        bar->RemoveTab(tag);
    }
}

void COrderDeckObj::_on_update_prof(ITC_TradingProfile* profile) {
    const auto found = _find_prof_tag(profile);
    if (found == m_tags.end()) {
        return;
    }
    const auto _cont = boost::dynamic_pointer_cast<IManageContent>(_bar()->get_Tab(found->second));
    if (BS_ASSERT(_cont)) {
        _cont->Refresh();
    }
}

void COrderDeckObj::_on_delete_prof(ITC_TradingProfile* profile) {
    const auto found = _find_prof_tag(profile);
    if (found == m_tags.end()) {
        return;
    }
    const CString id = found->first;
    const LONG tag = found->second;
    // Looked up again, since the removal may call the host, and the host the bar.
    const auto forget = [this, &id, tag] {
        if (const auto entry = m_tags.find(id); entry != m_tags.end() && entry->second == tag) {
            m_tags.erase(entry);
        }
    };
    const life its = m_life;
    try {
        const bool bRes = _bar()->RemoveTab(tag);
        BS_ASSERT_TEXT(bRes == true || m_life != its, "bRes == true");
    } catch (...) {
        forget();
        throw;
    }
    forget();
}

void COrderDeckObj::_on_delete_all_profs() {
    const life its = m_life;
    const boost::shared_ptr<ITabCtrl> bar = _bar();
    m_tags.clear();
    const bool bRes = bar->RemoveAllTabs();
    _require(its);
    BS_ASSERT(bRes == true);
    // The bar leaves showing to its owner; without it the set-up button would not come.
    bar->Show(true);
    _require(its);
}

// New panels start empty: nothing of the old ones is carried over a reload.
void COrderDeckObj::_reload() {
    _on_delete_all_profs();
    const com_ptr<ITC_TradingProfileS> profiles = _global().get_Profiles();
    if (!profiles) {
        _com_issue_error(E_POINTER);
    }
    platform::safearray items;
    const life its = m_life;
    profiles->get_Items(items.receive());
    _require(its);
    _process_profs(items.get(), [this](ITC_TradingProfile* profile) { _on_add_prof(profile, false); });
    _require(its);
    m_bReloading = false;
}

}  // namespace OV_OrderDeck
