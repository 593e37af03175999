#pragma once

#include <boost/shared_ptr.hpp>
#include <map>

#include "charting/orderdeck/interface/ITab.h"

namespace OV_OrderDeck {

using tab_infos = std::map<LONG, boost::shared_ptr<ITab>>;

// The bar as root and tabs see it. All on the bar's thread.
class ITabCtrl {
public:
    // The new tab's id, 0 on failure. The bar shares the tab until it is removed. bSilent: showing is left to
    // the caller. Throws _com_error (E_POINTER) for a null tab, or one without a profile.
    virtual LONG AddTab(const boost::shared_ptr<ITab>& tab, bool bSilent) = 0;
    // False when there is no such tab.
    virtual bool RemoveTab(LONG id) = 0;
    virtual bool RemoveAllTabs() = 0;
    // The bar's own; changes with the next tab that comes or goes.
    virtual const tab_infos& get_TabInfos() = 0;
    // Empty if unknown.
    virtual boost::shared_ptr<ITab> get_Tab(LONG id) = 0;
    // Empty if no tab is selected.
    virtual boost::shared_ptr<ITab> get_CurTab() = 0;
    virtual LONG get_TabCount() = 0;
    // Null before the window is made and after Teardown.
    virtual HWND get_Hwnd() = 0;
    // An unknown id selects nothing.
    virtual void SelectTab(LONG id) = 0;
    virtual void Show(bool visible) = 0;
    // Shows what changed in a tab, as far as it is to be seen. Throws _com_error (E_FAIL) for an unknown id.
    virtual void Update(LONG id, unsigned mask) = 0;
    // Does nothing for a tab that is not the current one. Throws _com_error (E_FAIL) for an unknown id.
    virtual void SetFocus(LONG id, OD_UpdateEntity entity) = 0;
    // Ends the window and lets the tabs go; may be called again.
    virtual void Teardown() = 0;
    virtual ~ITabCtrl() = default;
};

}  // namespace OV_OrderDeck
