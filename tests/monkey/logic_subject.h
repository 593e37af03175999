#pragma once

#include "tests/monkey/host_side.h"
#include "tests/monkey/subject.h"
#include "tests/root/fake_bar.h"

namespace monkey {

// The root, the tabs and their fields, in a bar without windows.
class logic_subject final : public subject {
public:
    // An unruly host meddles inside the bar's calls.
    explicit logic_subject(bool unruly = false);
    ~logic_subject() override;

    outcome perform(const action& done) override;
    view seen(const view& expected) override;

private:
    HRESULT act_upon(const action& done);
    void user(OV_OrderDeck::ITab& tab, const action& done);
    void press(OV_OrderDeck::ITab& tab, const action& done);
    void select(OV_OrderDeck::ITab& tab, const action& done);
    void type(OV_OrderDeck::ITab& tab, const action& done);
    void show_tab(int who);
    HRESULT profile_menu(OV_OrderDeck::ITab& tab, int which);
    test::fake_bar& bar() { return *m_factory.last; }

    host_side m_host;
    test::bar_factory m_factory;
    HWND m_frame;
};

}  // namespace monkey
