#include "charting/orderdeck/src/tab/Controls/AccountCombo.h"

#include <algorithm>

#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/tab/Controls/HostList.h"
#include "charting/orderdeck/src/tab/Controls/Usable.h"
#include "charting/orderdeck/src/tab/Tab.h"

namespace OV_OrderDeck {

void CAccountCombo::Select(LONG key) {
    CListImpl::Select(key);
}

bool CAccountCombo::get_Enabled() {
    return m_bEnabled && is_connected_with_symbol(_tab());
}

void CAccountCombo::Update() {
    const com_ptr<ITC_ManualTrading> _trad = _tab().get_Profile()->get_ManualTrading();
    if (!BS_ASSERT(_trad)) {
        return;
    }
    platform::safearray _acc_arr;
    _trad->GetAccounts(_acc_arr.receive());
    if (!BS_ASSERT(_acc_arr) || !BS_ASSERT(is_list_of_texts(_acc_arr.get()))) {
        return;
    }
    const std::vector<CString> names = texts_of(_acc_arr.get());
    m_items.clear();
    for (const CString& name : names) {
        m_items.emplace(get_Count(), name);
    }
    if (m_selected < 0 || m_selected >= get_Count()) {
        m_selected = m_items.empty() ? NoKey : 0;
    }
}

CString CAccountCombo::get_Account() {
    CString name;
    if (!IsEmpty()) {
        get_SelectedItem(&name);
    }
    return name;
}

void CAccountCombo::SelectByName(const wchar_t* name) {
    if (name == nullptr) {
        return;
    }
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [name](const auto& item) { return item.second == name; });
    if (found != m_items.end()) {
        Select(found->first);
    }
}

}  // namespace OV_OrderDeck
