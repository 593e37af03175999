// A real bar in a real window, over tabs whose fields answer as told.
#pragma once

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "charting/orderdeck/src/window/OrderDeckWindow.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/fake_host.h"
#include "tests/window/fake_fields.h"

namespace window_tests {

class fake_symbol final : public basic_field<OV_OrderDeck::ISymbolCtrl> {
public:
    struct lookup {
        CString text;
        bool ask_connect;
        bool quiet;
        bool operator==(const lookup&) const = default;
    };

    LONG category = 2;
    LONG price_scale = 2;
    double min_movement = 1.0;
    // What the symbol is called after the next lookup.
    CString found = L"FOUND";
    int dialogs = 0;
    std::vector<lookup> lookups;
    // Runs while the dialog of a lookup would be open.
    std::function<void()> in_dialog;

    LONG get_Category() override { return category; }
    LONG get_PriceScaleCode() override { return price_scale; }
    double get_MinMovement() override { return min_movement; }
    void LookupWithDialog() override;
    void LookupByText(const CString& text, bool bAskConnect, bool bQuiet) override;
};

class fake_quotes final : public basic_field<OV_OrderDeck::IAskBidCtrl> {
public:
    double ask = 101.5;
    double bid = 101.25;
    double get_Ask() override { return ask; }
    double get_Bid() override { return bid; }
};

class fake_tab final : public OV_OrderDeck::ITab {
public:
    fake_tab(test::fake_host host, CString tab_name, ETM_ConnectionChanged state);

    CString name;
    LONG id = 0;
    std::optional<std::pair<COLORREF, COLORREF>> gradient;
    // Runs when the colours are asked for.
    std::function<void()> when_coloured;
    com_ptr<test::FakeProfile> host_profile;
    com_ptr<OV_OrderDeck::CProfileWrap> profile;
    boost::shared_ptr<fake_symbol> symbol;
    boost::shared_ptr<fake_quotes> quotes;
    std::map<OV_OrderDeck::OD_UpdateEntity, boost::shared_ptr<OV_OrderDeck::IUnifyControl>> fields;
    // Bits that were asked for, in order.
    std::vector<unsigned> asked;
    // Which of profile, name and id the bar came for, in order.
    std::vector<std::string> calls;
    // Runs when the tab is told its id.
    std::function<void(LONG)> when_told_id;

    // A plain field; not the symbol and not the quotes.
    fake_field& field(OV_OrderDeck::OD_UpdateEntity entity);
    // The host says so, and the profile's wrapper knows.
    void become(ETM_ConnectionChanged state);

    void get_Name(CString& out) override {
        calls.emplace_back("name");
        out = name;
    }
    void put_Id(LONG new_id) override;
    LONG get_Id() override { return id; }
    void SetContent(const boost::shared_ptr<OV_OrderDeck::ITabCtrl>&) override {}
    bool get_GradientColors(COLORREF& from, COLORREF& to) override;
    boost::shared_ptr<OV_OrderDeck::IUnifyControl> get_Control(OV_OrderDeck::OD_UpdateEntity entity) override;
    com_ptr<OV_OrderDeck::CProfileWrap> get_Profile() override {
        calls.emplace_back("profile");
        return profile;
    }

    // The lowest id that a tab of this process was told; 0 before the first.
    static LONG lowest_id() { return s_lowest_id; }
    // Tells of a tab that is no fake.
    static void note_id(LONG told);

private:
    inline static LONG s_lowest_id = 0;
};

class counting_owner final : public OV_OrderDeck::IBarOwner {
public:
    int fills = 0;
    void EnsureFilled() override { ++fills; }
};

class bar_test : public testing::Test {
protected:
    bar_test();
    ~bar_test() override;

    // Adds a tab and shows it.
    boost::shared_ptr<fake_tab> add(const CString& name, ETM_ConnectionChanged state = eTM_CC_Disconnected);
    // Texts and images of the strip, left to right.
    std::vector<CString> names() const;
    std::vector<int> images() const;
    CString current() const;

    HWND strip() const { return GetDlgItem(bar->get_Hwnd(), 201); }
    HWND setup_button() const { return GetDlgItem(bar->get_Hwnd(), 229); }
    HWND panel() const { return bar->get_Panel().get_Hwnd(); }
    HWND item(int id) const { return GetDlgItem(panel(), id); }
    CString text(int id) const;
    // The middle of a tab on the screen.
    POINT tab_centre(int index) const;
    void click(HWND window) const;
    // Serves the messages that wait.
    static void pump();
    // Serves messages until the condition holds; false after a generous time without it.
    static bool pump_until(const std::function<bool()>& condition);
    std::vector<std::wstring> asserted() const;

    diagnostics_recorder reports;
    test::fake_host host;
    HWND frame = nullptr;
    counting_owner owner;
    boost::shared_ptr<OV_OrderDeck::COrderDeckWindow> bar;
};

}  // namespace window_tests
