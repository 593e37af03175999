#pragma once

#include <boost/shared_ptr.hpp>
#include <map>

#include "charting/orderdeck/interface/ITab.h"

namespace OV_OrderDeck {

using tab_infos = std::map<LONG, boost::shared_ptr<ITab>>;

// The bar as root and tabs see it. All on the bar's thread.
class ITabCtrl {
public:
    // The new tab's id, 0 on failure. bSilent: showing is left to the caller.
    virtual LONG AddTab(const boost::shared_ptr<ITab>& tab, bool bSilent) = 0;
    virtual bool RemoveTab(LONG id) = 0;
    virtual bool RemoveAllTabs() = 0;
    virtual const tab_infos& get_TabInfos() = 0;
    // Empty if unknown.
    virtual boost::shared_ptr<ITab> get_Tab(LONG id) = 0;
    // Empty if no tab is selected.
    virtual boost::shared_ptr<ITab> get_CurTab() = 0;
    virtual LONG get_TabCount() = 0;
    virtual HWND get_Hwnd() = 0;
    virtual void SelectTab(LONG id) = 0;
    virtual void Show(bool visible) = 0;
    virtual void Update(LONG id, unsigned mask) = 0;
    virtual void SetFocus(LONG id, OD_UpdateEntity entity) = 0;
    virtual void Teardown() = 0;
    virtual ~ITabCtrl() = default;
};

}  // namespace OV_OrderDeck
