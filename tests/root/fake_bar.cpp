#include "tests/root/fake_bar.h"

#include <boost/make_shared.hpp>

#include "charting/orderdeck/interface/make_bar_window.h"

namespace test {

bar_factory* the_bar_factory = nullptr;

void fake_bar::record(const std::string& operation, const std::string& arguments) const {
    m_host.enter("Bar", {}, operation, arguments);
}

LONG fake_bar::AddTab(const boost::shared_ptr<OV_OrderDeck::ITab>& tab, bool bSilent) {
    CString name;
    tab->get_Name(name);
    record("AddTab", quoted(name) + (bSilent ? ", silent" : ", shown"));
    if (on_add) {
        on_add(*tab);
    }
    if (refuse_tabs || m_torn_down) {
        return 0;
    }
    const LONG id = m_next_id++;
    m_tabs[id] = tab;
    tab->put_Id(id);
    if (selected == 0) {
        selected = id;
    }
    return id;
}

bool fake_bar::RemoveTab(LONG id) {
    record("RemoveTab", std::to_string(id));
    const boost::shared_ptr<OV_OrderDeck::ITab> gone = get_Tab(id);
    m_tabs.erase(id);
    if (selected == id) {
        selected = m_tabs.empty() ? 0 : m_tabs.begin()->first;
    }
    return removal_result;
}

bool fake_bar::RemoveAllTabs() {
    record("RemoveAllTabs");
    OV_OrderDeck::tab_infos gone;
    gone.swap(m_tabs);
    selected = 0;
    return removal_result;
}

boost::shared_ptr<OV_OrderDeck::ITab> fake_bar::get_Tab(LONG id) {
    const auto found = m_tabs.find(id);
    return found != m_tabs.end() ? found->second : nullptr;
}

void fake_bar::SelectTab(LONG id) {
    record("SelectTab", std::to_string(id));
    selected = id;
}

void fake_bar::Show(bool visible) {
    record("Show", visible ? "true" : "false");
}

void fake_bar::Update(LONG id, unsigned mask) {
    if (record_updates) {
        record("Update", std::to_string(id) + ", " + std::to_string(mask));
    }
}

void fake_bar::SetFocus(LONG id, OV_OrderDeck::OD_UpdateEntity entity) {
    if (record_updates) {
        record("SetFocus", std::to_string(id) + ", " + std::to_string(entity));
    }
}

void fake_bar::Teardown() {
    record("Teardown");
    m_torn_down = true;
    OV_OrderDeck::tab_infos gone;
    gone.swap(m_tabs);
    selected = 0;
}

}  // namespace test

namespace OV_OrderDeck {

boost::shared_ptr<ITabCtrl> make_bar_window(HWND parent, IBarOwner& owner) {
    test::bar_factory& factory = *test::the_bar_factory;
    factory.parent = parent;
    if (factory.failure != S_OK) {
        _com_issue_error(factory.failure);
    }
    if (factory.remembers) {
        factory.last = boost::make_shared<test::remembering_bar>(factory.host, factory.window, owner);
    } else {
        factory.last = boost::make_shared<test::fake_bar>(factory.host, factory.window, owner);
    }
    factory.made.emplace_back(factory.last);
    return factory.last;
}

}  // namespace OV_OrderDeck
