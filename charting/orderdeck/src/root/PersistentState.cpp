// What the bar remembers between runs, and the closing that decides what is written.

#include <boost/algorithm/string/predicate.hpp>

#include "charting/orderdeck/src/root/FindMainFrame.h"
#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "charting/orderdeck/src/root/RegistryHelpers.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/process_mutex.h"
#include "unicomp/LocalRPC/TaskFactory.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace OV_OrderDeck {

using platform::registry_key;

namespace {

constexpr wchar_t MutexName[] = L"Global\\2686F9D2-457E-44e7-B656-9ABCC802D38A";
constexpr DWORD MutexTimeoutMs = 60000;
constexpr DWORD MaxProfiles = 500;

// Names of keys and values in the user's registry.
constexpr wchar_t OrderDeckKey[] = L"\\Order Deck";
constexpr wchar_t ProfilesKey[] = L"\\Profiles";
constexpr wchar_t ConnectedValue[] = L"Connected";
constexpr wchar_t SymbolIdValue[] = L"Symbol Id";
constexpr wchar_t SymbolNameValue[] = L"Symbol Name";

const CString& _get_registry_path() {
    static const CString sPath = [] {
        const CString root = Unicomp::settings_root();
        return root.empty() ? CString() : root + OrderDeckKey;
    }();
    BS_ASSERT_TEXT(!sPath.empty(), "sPath.GetLength() > 0");
    return sPath;
}

void write_record(const registry_key& key, const SSerializeProfInf& record) {
    LONG lRes = key.SetString(ConnectedValue, record.bConnected ? L"True" : L"False");
    BS_ASSERT_TEXT(lRes == ERROR_SUCCESS, "lRes == 0L");
    if (record.lSymbolId != 0) {
        lRes = key.SetDWORD(SymbolIdValue, static_cast<DWORD>(record.lSymbolId));
        BS_ASSERT_TEXT(lRes == ERROR_SUCCESS, "lRes == 0L");
    }
    if (!record.sSymbolName.empty()) {
        lRes = key.SetString(SymbolNameValue, record.sSymbolName);
        BS_ASSERT_TEXT(lRes == ERROR_SUCCESS, "lRes == 0L");
    }
}

SSerializeProfInf read_record(const registry_key& key, const CString& name) {
    SSerializeProfInf record;
    record.sProfileName = name;
    record.bConnected = boost::algorithm::iequals(read_string(key, ConnectedValue, {}), L"True");
    DWORD id = 0;
    if (key.QueryDWORD(SymbolIdValue, id) == ERROR_SUCCESS) {
        record.lSymbolId = static_cast<LONG>(id);
    }
    record.sSymbolName = read_string(key, SymbolNameValue, {});
    return record;
}

boost::shared_ptr<ITab> find_tab(const tab_infos& tabs, const CString& name) {
    for (const auto& [id, tab] : tabs) {
        CString tab_name;
        tab->get_Name(tab_name);
        if (tab_name == name) {
            return tab;
        }
    }
    return {};
}

void restore_tab(ITab& tab, const SSerializeProfInf& record, ITabCtrl& bar) {
    if (record.bConnected) {
        tab.get_Profile()->Connect();
        // The host was called, and may have taken the profile away.
        if (!bar.get_Tab(tab.get_Id())) {
            return;
        }
    }
    auto& props = dynamic_cast<ITradeInfoProperties&>(tab);
    if (record.lSymbolId != 0) {
        props.put_SymbolId(record.lSymbolId);
    } else if (!record.sSymbolName.empty()) {
        props.put_SymbolName(record.sSymbolName.c_str());
    }
}

}  // namespace

// State that can't be written within a minute is lost: closing must not hang for another process.
void COrderDeckObj::_serialization(const std::function<void()>& action) {
    const auto hMutax = platform::port<platform::process_mutexes>::get().open(MutexName);
    if (!BS_ASSERT_TEXT(hMutax, "hMutax != NULL")) {
        return;
    }
    const platform::process_mutex_lock lock(*hMutax, MutexTimeoutMs);
    const DWORD dwRes = lock.result();
    if (!BS_ASSERT(dwRes == WAIT_OBJECT_0 || dwRes == WAIT_ABANDONED)) {
        return;
    }
    try {
        action();
    } catch (...) {
        BugSlayerUtil::assertion(BS_HERE, "Serialization failed");
    }
}

// Deletes first and writes then, so a close that is interrupted leaves a shorter list and never a mix.
void COrderDeckObj::_serialize_impl(const remembered_profiles& records, life its) {
    const CString& path = _get_registry_path();
    if (path.empty()) {
        // A program without a name has no place of its own, and the root of the user's settings is nobody's.
        return;
    }
    // A bar that the host destroyed meanwhile has no current tab to tell of: the one of before stays.
    if (m_life == its) {
        _serialize_tab_ctrl(path);
    }
    const CString sProfilesFullPath = path + ProfilesKey;
    const LONG deleted = registry_key::DeleteTree(HKEY_CURRENT_USER, sProfilesFullPath);
    if (!BS_ASSERT(deleted == ERROR_SUCCESS || deleted == ERROR_FILE_NOT_FOUND)) {
        _com_issue_error(E_FAIL);
    }
    registry_key key;
    if (!BS_ASSERT(key.Create(HKEY_CURRENT_USER, sProfilesFullPath) == ERROR_SUCCESS)) {
        return;
    }
    for (const SSerializeProfInf& record : records) {
        const CString sProfPath = sProfilesFullPath + L"\\" + record.sProfileName;
        if (BS_ASSERT(key.Create(HKEY_CURRENT_USER, sProfPath) == ERROR_SUCCESS)) {
            write_record(key, record);
        }
    }
}

void COrderDeckObj::_serialize_tab_ctrl(const CString& path) {
    const CString& sOrderDeckFullPath = path;
    registry_key key;
    BS_ASSERT(key.Create(HKEY_CURRENT_USER, sOrderDeckFullPath) == ERROR_SUCCESS);
    const auto pPersist = boost::dynamic_pointer_cast<IPersist>(m_pTabCtrl);
    if (BS_ASSERT(pPersist)) {
        pPersist->Serialize(path);
    }
}

void COrderDeckObj::_deserialize_tab_ctrl(const CString& path) {
    const auto pPersist = boost::dynamic_pointer_cast<IPersist>(m_pTabCtrl);
    if (BS_ASSERT(pPersist)) {
        pPersist->Deserialize(path);
    }
}

void COrderDeckObj::_deserialize_impl() {
    remembered_profiles records;
    registry_key profiles;
    const CString& path = _get_registry_path();
    if (!path.empty() && profiles.Open(HKEY_CURRENT_USER, path + ProfilesKey, KEY_READ) == ERROR_SUCCESS) {
        DWORD index = 0;
        for (; index < MaxProfiles; ++index) {
            CString name;
            const LONG result = registry_helpers::reg_enum_key(profiles, index, name);
            if (result == ERROR_NO_MORE_ITEMS) {
                break;
            }
            registry_key key;
            if (result == ERROR_SUCCESS && key.Open(profiles.get(), name, KEY_READ) == ERROR_SUCCESS) {
                records.push_back(read_record(key, name));
            }
        }
        // So many profiles are no list that this bar wrote: nothing of it is restored.
        if (index == MaxProfiles) {
            BS_RAISE("", E_FAIL);
        }
    }
    const com_ptr<COrderDeckObj> root(this);
    m_ao.Execute(LocalRPC::CreateAsyncTask([root, records] {
        const life its = root->m_life;
        try {
            root->_restore_profs(records);
        } catch (const _com_error&) {
            // A bar that the host destroyed meanwhile has nothing more to restore, which is no failure.
            if (root->m_life == its) {
                throw;
            }
        }
    }));
}

// The profiles connect first and the symbols follow; nothing waits for a connection.
void COrderDeckObj::_restore_profs(const remembered_profiles& records) {
    if (records.empty()) {
        return;
    }
    const life its = m_life;
    _check_filled();
    _deserialize_tab_ctrl(_get_registry_path());
    for (const SSerializeProfInf& record : records) {
        _require(its);
        // A copy: a name that the host is asked for may bring an event that changes the bar's own.
        const boost::shared_ptr<ITabCtrl> bar = _bar();
        const tab_infos tabs = bar->get_TabInfos();
        if (const auto tab = find_tab(tabs, record.sProfileName)) {
            restore_tab(*tab, record, *bar);
        }
    }
}

// Another bar that still uses the trading centre keeps the profiles connected.
bool COrderDeckObj::_need_disconnect() {
    if (!m_pGlobal) {
        return true;
    }
    const com_ptr<ITC_TradingCenter> center = _global().get_Center();
    if (!center) {
        return true;
    }
    LONG count = 0;
    center->get_MasterCounter(&count);
    if (count > 1) {
        BugSlayerUtil::tracef(BS_HERE, "Master's counter is %d. Don't disconnect profiles",
                              static_cast<int>(count));
        return false;
    }
    return true;
}

boost::shared_ptr<ITab> COrderDeckObj::_panel_now(LONG id, ITab& panel, life its) {
    if (m_life != its) {
        return {};
    }
    if (const boost::shared_ptr<ITab> tab = m_pTabCtrl->get_Tab(id)) {
        return tab;
    }
    const CString outer_id = panel.get_Profile()->get_OuterID();
    const auto found = m_tags.find(outer_id);
    return m_life == its && found != m_tags.end() ? m_pTabCtrl->get_Tab(found->second) : nullptr;
}

// False when the user refused. Profiles that were disconnected before the refusal stay so. While the user
// is asked the host may change its profiles and even destroy the bar: a panel that is gone is passed.
bool COrderDeckObj::_disconnect_and_record(remembered_profiles& records) {
    const life its = m_life;
    const tab_infos panels = _bar()->get_TabInfos();
    for (const auto& [id, panel] : panels) {
        const boost::shared_ptr<ITab> tab = _panel_now(id, *panel, its);
        if (!tab) {
            continue;
        }
        const com_ptr<CProfileWrap> profile = tab->get_Profile();
        const ETM_ConnectionChanged state = profile->get_ConnectionState(true);
        SSerializeProfInf record;
        // A connecting profile is closed but deliberately not remembered as connected.
        record.bConnected = state == eTM_CC_Connected;
        if ((state == eTM_CC_Connected || state == eTM_CC_Connecting) &&
            !profile->Disconnect(FindMainFrame())) {
            return false;
        }
        auto& props = dynamic_cast<ITradeInfoProperties&>(*tab);
        record.sProfileName = profile->get_Name(true);
        record.lSymbolId = props.get_SymbolId();
        record.sSymbolName = props.get_SymbolName();
        if (record.bConnected || !record.sSymbolName.empty() || record.lSymbolId != 0) {
            records.push_back(std::move(record));
        }
    }
    return true;
}

HRESULT COrderDeckObj::OnClose() noexcept {
    return _call(BS_HERE, [&] {
        if (!m_bValid) {
            return S_OK;
        }
        const life its = m_life;
        remembered_profiles records;
        const bool disconnects = _need_disconnect();
        // Nothing was seen of a bar that the host destroyed by then, so what is remembered stays.
        if (m_life != its) {
            return S_OK;
        }
        if (disconnects) {
            // Said whether the count could be read or not; support reads it as "this bar closes them".
            BugSlayerUtil::tracef(BS_HERE, "Master's counter is 1. Disconnect profiles ...");
            if (!_disconnect_and_record(records)) {
                return S_FALSE;
            }
        }
        // Also with an empty list: what is remembered is what the last closing bar saw.
        _serialization([&] { _serialize_impl(records, its); });
        return S_OK;
    });
}

}  // namespace OV_OrderDeck
