#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <memory>

#include "charting/orderdeck/interface/IBarOwner.h"
#include "charting/orderdeck/interface/IPersist.h"
#include "charting/orderdeck/interface/ITabCtrl.h"
#include "charting/orderdeck/src/window/ProfileTabWindow.h"
#include "charting/orderdeck/src/window/TabStrip.h"
#include "platform/win32/frame/dialog.h"
#include "platform/win32/frame/message_scope.h"
#include "unicomp/LocalRPC/ActiveObject.h"

namespace OV_OrderDeck {

// The bar: a child of the host's window with one tab per profile, the one panel that shows the current
// tab, and a button for the case that there is no profile. All on the thread that makes it.
//
// The host may end it inside any call that the bar or one of its tabs makes. Whoever calls it holds a
// reference; in the middle of a message it stays until the message is done, without its window.
class COrderDeckWindow final : public ITabCtrl,
                               public IPersist,
                               public frame::dialog,
                               public frame::lasting,
                               public boost::enable_shared_from_this<COrderDeckWindow> {
public:
    // The owner is not owned and outlives the bar. Throws _com_error (E_FAIL) when there is no window.
    COrderDeckWindow(HWND parent, IBarOwner& owner);
    ~COrderDeckWindow() override;

    LONG AddTab(const boost::shared_ptr<ITab>& tab, bool bSilent) override;
    bool RemoveTab(LONG id) override;
    // True if the strip was emptied. Showing is left to the caller.
    bool RemoveAllTabs() override;
    const tab_infos& get_TabInfos() override { return m_tab_infos; }
    boost::shared_ptr<ITab> get_Tab(LONG id) override;
    boost::shared_ptr<ITab> get_CurTab() override;
    LONG get_TabCount() override { return m_tab_ctrl.get_Count(); }
    HWND get_Hwnd() override { return m_hWnd; }
    void SelectTab(LONG id) override;
    void Show(bool visible) override;
    // Throws _com_error (E_FAIL) for an unknown id.
    void Update(LONG id, unsigned mask) override;
    void SetFocus(LONG id, OD_UpdateEntity entity) override;
    void Teardown() override;

    // Writes the current tab's name, or deletes it when there is no tab.
    void Serialize(const CString& path) override;
    // Selects the tab that was written, or else a default one.
    void Deserialize(const CString& path) override;

    // The current tab's field; empty without a tab. Its tab lives as long as the field is held.
    boost::shared_ptr<IUnifyControl> get_Control(OD_UpdateEntity entity);
    CProfileTabWindow& get_Panel() { return *m_panel; }

    BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                              DWORD dwMsgMapID) override;

private:
    frame::answer _dispatch_notify(const NMHDR& notice);

    frame::answer OnInitDialog();
    frame::answer OnSize();
    frame::answer OnMouseActivate();
    frame::answer OnBnClicked();
    frame::answer OnSelChange();
    frame::answer OnTabRClick();
    frame::answer OnFill(WPARAM wParam);

    void _init_tab_images();
    int _add_tab(const CString& name, LONG id, bool select, bool connected);
    bool _remove_tab(LONG id);
    // As a choice of the user is not: selects and updates, unless the tab is already selected.
    void _select(int index);
    void _update(LONG id, unsigned mask, bool bNoAnimation, bool bKeepQuantity);
    void _update_fields(LONG id, unsigned mask, bool bNoAnimation, bool bKeepQuantity);
    void _update_tab_name(ITab& tab, LONG id);
    void _update_tab_connection(ITab& tab, LONG id);
    void _repaint_tabs();
    void _destroy_images();
    void _end_tabs();

    IBarOwner& m_owner;
    tab_infos m_tab_infos;
    CTabStrip m_tab_ctrl;
    std::unique_ptr<CProfileTabWindow> m_panel;
    DWORD m_thread_id = 0;
    HWND m_setup_button = nullptr;
    HIMAGELIST m_images = nullptr;
    // Runs what the bar posts to itself.
    LocalRPC::CActiveObject_WndMsg m_async{true};
};

}  // namespace OV_OrderDeck
