// The bar as a tab sees it, without a window.
#pragma once

#include <cstdio>
#include <string>

#include "charting/orderdeck/interface/ITabCtrl.h"
#include "tests/support/host_record.h"

namespace test {

// Records `TabCtrl.Update(1, 0x3ff80)` and `TabCtrl.SetFocus(1, 0x400)`. Holds the tabs that it is given,
// with ids from 1.
class FakeTabCtrl : public OV_OrderDeck::ITabCtrl {
public:
    explicit FakeTabCtrl(fake_host host) : m_host(std::move(host)) {}

    LONG AddTab(const boost::shared_ptr<OV_OrderDeck::ITab>& tab, bool) override {
        const LONG id = m_next++;
        m_tabs[id] = tab;
        tab->put_Id(id);
        return id;
    }
    bool RemoveTab(LONG id) override { return m_tabs.erase(id) != 0; }
    bool RemoveAllTabs() override {
        m_tabs.clear();
        return true;
    }
    const OV_OrderDeck::tab_infos& get_TabInfos() override { return m_tabs; }
    boost::shared_ptr<OV_OrderDeck::ITab> get_Tab(LONG id) override {
        const auto found = m_tabs.find(id);
        return found != m_tabs.end() ? found->second : boost::shared_ptr<OV_OrderDeck::ITab>();
    }
    boost::shared_ptr<OV_OrderDeck::ITab> get_CurTab() override { return get_Tab(m_current); }
    LONG get_TabCount() override { return static_cast<LONG>(m_tabs.size()); }
    HWND get_Hwnd() override { return nullptr; }
    void SelectTab(LONG id) override { m_current = id; }
    void Show(bool) override {}
    void Update(LONG id, unsigned mask) override { m_host.note("TabCtrl.Update" + arguments(id, mask)); }
    void SetFocus(LONG id, OV_OrderDeck::OD_UpdateEntity entity) override {
        m_host.note("TabCtrl.SetFocus" + arguments(id, entity));
    }
    void Teardown() override { m_tabs.clear(); }

private:
    static std::string arguments(LONG id, unsigned bits) {
        char text[40];
        std::snprintf(text, sizeof(text), "(%d, 0x%x)", static_cast<int>(id), bits);
        return text;
    }

    fake_host m_host;
    OV_OrderDeck::tab_infos m_tabs;
    LONG m_next = 1;
    LONG m_current = 0;
};

}  // namespace test
