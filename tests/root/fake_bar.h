#pragma once

#include <boost/weak_ptr.hpp>
#include <functional>
#include <vector>

#include "charting/orderdeck/interface/IBarOwner.h"
#include "charting/orderdeck/interface/IPersist.h"
#include "charting/orderdeck/interface/ITabCtrl.h"
#include "tests/support/host_record.h"

namespace test {

// A bar without a window: keeps tabs under real ids and records every call from root and tabs as
// `Bar.AddTab("Alpha", silent)`. Updates and focus calls of tabs are recorded only when asked for.
class fake_bar : public OV_OrderDeck::ITabCtrl {
public:
    fake_bar(fake_host host, HWND window, OV_OrderDeck::IBarOwner& its_owner)
        : owner(its_owner), m_host(std::move(host)), m_window(window) {}

    OV_OrderDeck::IBarOwner& owner;
    LONG selected = 0;
    bool record_updates = false;
    // What the operations answer instead of doing their work.
    bool refuse_tabs = false;
    bool removal_result = true;
    // Runs inside AddTab, with the tab that is added.
    std::function<void(OV_OrderDeck::ITab&)> on_add;

    LONG AddTab(const boost::shared_ptr<OV_OrderDeck::ITab>& tab, bool bSilent) override;
    bool RemoveTab(LONG id) override;
    bool RemoveAllTabs() override;
    const OV_OrderDeck::tab_infos& get_TabInfos() override { return m_tabs; }
    boost::shared_ptr<OV_OrderDeck::ITab> get_Tab(LONG id) override;
    boost::shared_ptr<OV_OrderDeck::ITab> get_CurTab() override { return get_Tab(selected); }
    LONG get_TabCount() override { return static_cast<LONG>(m_tabs.size()); }
    HWND get_Hwnd() override { return m_window; }
    void SelectTab(LONG id) override;
    void Show(bool visible) override;
    void Update(LONG id, unsigned mask) override;
    void SetFocus(LONG id, OV_OrderDeck::OD_UpdateEntity entity) override;
    void Teardown() override;

protected:
    void record(const std::string& operation, const std::string& arguments = {}) const;

private:
    fake_host m_host;
    HWND m_window;
    OV_OrderDeck::tab_infos m_tabs;
    LONG m_next_id = 1;
    bool m_torn_down = false;
};

// One that is asked what it remembers.
class remembering_bar : public fake_bar, public OV_OrderDeck::IPersist {
public:
    using fake_bar::fake_bar;

    void Serialize(const CString& path) override { record("Serialize", quoted(path)); }
    void Deserialize(const CString& path) override { record("Deserialize", quoted(path)); }
};

// What make_bar_window of this test program does. Set by the fixture.
struct bar_factory {
    fake_host host;
    HWND window = nullptr;
    // What the last bar was made in.
    HWND parent = nullptr;
    // Raised instead of making a bar unless it is S_OK.
    HRESULT failure = S_OK;
    bool remembers = true;
    boost::shared_ptr<fake_bar> last;
    // All of them, also those that are gone.
    std::vector<boost::weak_ptr<fake_bar>> made;
};

extern bar_factory* the_bar_factory;

}  // namespace test
