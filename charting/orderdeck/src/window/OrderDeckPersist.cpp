// What the bar remembers: the name of the current tab.
#include "charting/orderdeck/src/window/OrderDeckWindow.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/registry.h"
#include "unicomp/LocalRPC/TaskFactory.h"

namespace OV_OrderDeck {

namespace {

constexpr REGSAM bar_access = 0x2001F;
constexpr wchar_t current_tab_name[] = L"Current Tab Name";
constexpr wchar_t default_tab_name[] = L"Interactive Brokers";
constexpr std::size_t longest_name = 256;

// Empty when there is none or it is no text.
CString stored_name(const platform::registry_key& key) {
    wchar_t text[longest_name + 1] = {};
    DWORD type = 0;
    DWORD bytes = longest_name * sizeof(wchar_t);
    const LONG result = key.QueryValue(current_tab_name, type, reinterpret_cast<BYTE*>(text), bytes);
    return result == ERROR_SUCCESS && type == REG_SZ ? CString(text) : CString();
}

}  // namespace

void COrderDeckWindow::Serialize(const CString& path) {
    platform::registry_key key;
    if (!BS_ASSERT_TEXT(key.Open(HKEY_CURRENT_USER, path, bar_access) == ERROR_SUCCESS,
                        "key.Open(HKEY_CURRENT_USER, szSubKey) == ERROR_SUCCESS")) {
        return;
    }
    const auto tab = get_CurTab();
    if (!tab) {
        key.DeleteValue(current_tab_name);
        return;
    }
    CString name;
    tab->get_Name(name);
    const LONG lRes = key.SetString(current_tab_name, name);
    BS_ASSERT_TEXT(lRes == 0, "lRes == 0L");
}

void COrderDeckWindow::Deserialize(const CString& path) {
    CString name = default_tab_name;
    platform::registry_key key;
    if (key.Open(HKEY_CURRENT_USER, path, bar_access) == ERROR_SUCCESS) {
        const CString stored = stored_name(key);
        if (!stored.empty()) {
            name = stored;
        }
    }
    const int count = m_tab_ctrl.get_Count();
    int wanted = 0;
    while (wanted < count && m_tab_ctrl.get_Text(wanted) != name) {
        ++wanted;
    }
    if (count > 0) {
        _select(wanted < count ? wanted : 0);
    }
    LocalRPC::AsyncCall(m_async, [weak = weak_from_this()] {
        if (const auto bar = weak.lock()) {
            bar->_repaint_tabs();
        }
    });
}

// A strip that was selected while it was being filled draws properly only after this trip.
void COrderDeckWindow::_repaint_tabs() {
    const int current = m_tab_ctrl.get_Current();
    m_tab_ctrl.Select(0);
    m_tab_ctrl.Select(current);
    m_tab_ctrl.Repaint();
}

}  // namespace OV_OrderDeck
