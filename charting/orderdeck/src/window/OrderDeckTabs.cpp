// The bar's tabs: which there are, which is shown, and how they follow their profiles.
#include <atomic>

#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/window/OrderDeckWindow.h"
#include "diagnostics/BugSlayerUtil.h"

namespace OV_OrderDeck {

namespace {

constexpr int disconnected_image = 0;
constexpr int connected_image = 1;
constexpr int connecting_image = 2;
constexpr unsigned first_field_bit = 7;
constexpr unsigned last_field_bit = 17;

// Ids are never used again, in no bar of the process.
LONG next_tab_id() {
    static std::atomic<LONG> last{0};
    return ++last;
}

// Only the first bar of a process lays itself out when it is first shown; later ones have been sized by
// their host by then. Deliberately one flag for all.
bool first_layout_is_due() {
    static bool done = false;
    const bool due = !done;
    done = true;
    return due;
}

}  // namespace

LONG COrderDeckWindow::AddTab(const boost::shared_ptr<ITab>& tab, bool bSilent) {
    BS_REQUIRE(tab, E_POINTER);
    const LONG id = next_tab_id();
    const com_ptr<CProfileWrap> profile = tab->get_Profile();
    BS_REQUIRE(profile, E_POINTER);
    const bool connected = profile->get_ConnectionState(true) == eTM_CC_Connected;
    CString name;
    tab->get_Name(name);
    // The host was asked, and may have torn the bar down.
    if (m_hWnd == nullptr) {
        return 0;
    }
    if (_add_tab(name, id, false, connected) == -1) {
        return 0;
    }
    m_tab_infos[id] = tab;
    tab->put_Id(id);
    if (!bSilent) {
        Show(true);
    }
    return id;
}

int COrderDeckWindow::_add_tab(const CString& name, LONG id, bool select, bool connected) {
    const int index = m_tab_ctrl.Insert(name, id, connected ? connected_image : disconnected_image);
    if (select && index != -1) {
        m_tab_ctrl.Select(index);
    }
    return index;
}

bool COrderDeckWindow::_remove_tab(LONG id) {
    const int index = m_tab_ctrl.Find(id);
    if (index == -1) {
        return false;
    }
    const bool bRes = m_tab_ctrl.Delete(index);
    BS_ASSERT(bRes);
    if (m_tab_ctrl.get_Current() == -1 && m_tab_ctrl.get_Count() > 0) {
        m_tab_ctrl.Select(0);
    }
    return true;
}

bool COrderDeckWindow::RemoveTab(LONG id) {
    if (!_remove_tab(id)) {
        return false;
    }
    const auto _it = m_tab_infos.find(id);
    if (!BS_ASSERT(_it != m_tab_infos.end())) {
        return false;
    }
    // A tab that ends calls the host, which then finds a bar without it.
    boost::shared_ptr<ITab> gone = _it->second;
    m_tab_infos.erase(_it);
    gone.reset();
    Show(true);
    return true;
}

// The tabs end last: the host, which each of them calls, finds none of them, and what it adds meanwhile
// stays.
bool COrderDeckWindow::RemoveAllTabs() {
    tab_infos gone;
    gone.swap(m_tab_infos);
    return m_tab_ctrl.DeleteAll();
}

boost::shared_ptr<ITab> COrderDeckWindow::get_Tab(LONG id) {
    const auto found = m_tab_infos.find(id);
    return found != m_tab_infos.end() ? found->second : boost::shared_ptr<ITab>();
}

boost::shared_ptr<ITab> COrderDeckWindow::get_CurTab() {
    // No tab has the id 0, which is that of no selection.
    return get_Tab(m_tab_ctrl.get_CurrentId());
}

boost::shared_ptr<IUnifyControl> COrderDeckWindow::get_Control(OD_UpdateEntity entity) {
    const auto tab = get_CurTab();
    const auto field = tab ? tab->get_Control(entity) : boost::shared_ptr<IUnifyControl>();
    return field ? boost::shared_ptr<IUnifyControl>(tab, field.get()) : field;
}

void COrderDeckWindow::SelectTab(LONG id) {
    const int index = m_tab_ctrl.Find(id);
    if (index != -1) {
        _select(index);
    }
}

void COrderDeckWindow::_select(int index) {
    if (index == m_tab_ctrl.get_Current()) {
        return;
    }
    m_tab_ctrl.Select(index);
    Update(m_tab_ctrl.get_CurrentId(), UpdateMask::AllFieldsAndRepaint);
}

void COrderDeckWindow::Show(bool visible) {
    bool empty = get_TabCount() == 0;
    if (visible && !empty && first_layout_is_due()) {
        OnSize();
    }
    const int tabs = visible && !empty ? SW_SHOW : SW_HIDE;
    ::ShowWindow(m_tab_ctrl.get_Hwnd(), tabs);
    ::ShowWindow(m_panel->get_Hwnd(), tabs);
    ::ShowWindow(m_setup_button, visible && empty ? SW_SHOW : SW_HIDE);
    // Hiding takes the focus from a field, which asks the host: what there was may have gone.
    empty = m_tab_ctrl.get_CurrentId() == 0;
    if (!empty) {
        _update(m_tab_ctrl.get_CurrentId(), UpdateMask::AllFields, true, false);
    }
}

void COrderDeckWindow::SetFocus(LONG id, OD_UpdateEntity entity) {
    BS_REQUIRE(m_tab_infos.contains(id), E_FAIL);
    if (m_tab_ctrl.get_CurrentId() == id) {
        ::SetFocus(m_panel->get_Window(entity));
    }
}

void COrderDeckWindow::Teardown() {
    frame::message_scope::Keep(weak_from_this().lock());
    if (::IsWindow(m_hWnd)) {
        DestroyWindow();
    }
    _end_tabs();
    _destroy_images();
}

// Tabs call the host when they end, which then finds a bar without them.
void COrderDeckWindow::_end_tabs() {
    tab_infos gone;
    gone.swap(m_tab_infos);
}

void COrderDeckWindow::Update(LONG id, unsigned mask) {
    _update(id, mask, false, false);
}

void COrderDeckWindow::_update(LONG id, unsigned mask, bool bNoAnimation, bool bKeepQuantity) {
    BS_ASSERT_TEXT(::GetCurrentThreadId() == m_thread_id, "not thread safe");
    // Each quote of each tab comes by here: what is not to be seen asks no window, not even this.
    if (m_hWnd == nullptr) {
        return;
    }
    const auto tab = get_Tab(id);
    if (!tab) {
        BS_RAISE("0", E_FAIL);
    }
    if ((mask & UpdateMask::Name) != 0) {
        _update_tab_name(*tab, id);
    }
    if ((mask & UpdateMask::ConnectionState) != 0) {
        _update_tab_connection(*tab, id);
    }
    if (mask != UpdateMask::Repaint) {
        _update_fields(id, mask, bNoAnimation, bKeepQuantity);
    }
    if ((mask & UpdateMask::Repaint) != 0 && m_tab_ctrl.get_CurrentId() == id) {
        ::RedrawWindow(m_panel->get_Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    }
}

// A field that is disabled or hidden loses the focus, and the host is asked: each field is looked at only
// while its tab is still the one that is shown.
void COrderDeckWindow::_update_fields(LONG id, unsigned mask, bool bNoAnimation, bool bKeepQuantity) {
    for (unsigned bit = first_field_bit; bit <= last_field_bit; ++bit) {
        if ((mask & 1u << bit) != 0 && m_tab_ctrl.get_CurrentId() == id && m_tab_infos.contains(id)) {
            m_panel->Update(static_cast<OD_UpdateEntity>(1u << bit), bNoAnimation, bKeepQuantity);
        }
    }
}

// The image does not come along: it is red until the next connection update. Deliberate: a rename comes
// with a full update of the profile.
void COrderDeckWindow::_update_tab_name(ITab& tab, LONG id) {
    CString name;
    tab.get_Name(name);
    if (name == m_tab_ctrl.get_Text(m_tab_ctrl.Find(id))) {
        return;
    }
    // The host was asked for the name, and may have taken the tab away.
    if (m_tab_ctrl.Find(id) == -1) {
        return;
    }
    const int iCurTab = m_tab_ctrl.get_Current();
    BS_ASSERT(iCurTab != -1);
    const bool current = m_tab_ctrl.get_Id(iCurTab) == id;
    _remove_tab(id);
    _add_tab(name, id, current, false);
}

void COrderDeckWindow::_update_tab_connection(ITab& tab, LONG id) {
    const com_ptr<CProfileWrap> profile = tab.get_Profile();
    BS_REQUIRE(profile, E_POINTER);
    const int index = m_tab_ctrl.Find(id);
    if (index == -1) {
        return;
    }
    int image = m_tab_ctrl.get_Image(index);
    switch (profile->get_ConnectionState(true)) {
        case eTM_CC_Disconnected:
            image = disconnected_image;
            break;
        case eTM_CC_Connecting:
            image = connecting_image;
            break;
        case eTM_CC_Connected:
            image = connected_image;
            break;
        default:
            break;
    }
    m_tab_ctrl.put_Image(index, image);
    m_tab_ctrl.Repaint();
}

}  // namespace OV_OrderDeck
