// The order row in every size that a bar may have: whole, or scrolled so that nothing is lost.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <iostream>
#include <set>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/tab/Tab.h"
#include "charting/orderdeck/src/window/LayoutPanel.h"
#include "tests/support/recording_desktop.h"
#include "tests/support/win32/dialog_resolution.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

constexpr int narrowest = 480;
constexpr int width_step = 60;
// Wider than the longest row.
constexpr int widest = 1600;
constexpr LONG bar_height = 90;

// A bar at a resolution, with the row of a connected profile whose symbol is known.
class RowSizes : public window_tests::bar_test {
protected:
    RowSizes() {
        desktop.set_main_frame(main_frame);
        global->put_OnCommand(sink.get());
        lookup->supported = false;
        test::symbol stock;
        stock.id = 1;
        stock.name = L"AAA";
        stock.category = 2;
        stock.price_scale_code = 2;
        stock.expiry = 45000.0;
        lookup->by_name[L"AAA"] = stock;
    }
    ~RowSizes() override { bar->RemoveAllTabs(); }

    void open(int resolution) {
        const test::dialog_resolution scope(resolution);
        dpi = resolution;
        bar->RemoveAllTabs();
        bar = boost::make_shared<COrderDeckWindow>(frame, owner);
        global->put_Hwnd(bar->get_Hwnd());
        resize(scaled(widest));
        const auto profile = platform::make_com<test::FakeProfile>(host, L"Alpha");
        profile->plugin = L"CQG-FIX";
        profile->state = eTM_CC_Connected;
        profile->trading->accounts = {L"A1", L"A2"};
        for (LONG category = 1; category <= 4; ++category) {
            profile->trading->times_in_force[category] = {1, 2, 3, 4, 5, 6};
        }
        const auto row = boost::make_shared<CTab>(platform::make_com<CProfileWrap>(profile.get()));
        row->SetContent(bar);
        ASSERT_NE(bar->AddTab(row, false), 0);
        window_tests::fake_tab::note_id(row->get_Id());
        profile->fire_state(eTM_CC_Connected);
        SetFocus(item(203));
        SetWindowTextW(item(203), L"AAA");
        SendMessageW(item(203), WM_KEYDOWN, VK_RETURN, 1);
        ASSERT_TRUE(IsWindowEnabled(item(225)));
    }

    int scaled(int pixels) const { return MulDiv(pixels, dpi, 96); }
    void resize(int width) { MoveWindow(bar->get_Hwnd(), 0, 0, width, scaled(bar_height), TRUE); }

    int entries(int id) const { return static_cast<int>(SendMessageW(item(id), CB_GETCOUNT, 0, 0)); }
    // Chooses as the user does; the fields that come and go do so at once.
    void choose(int id, int index) {
        SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageW(panel(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(item(id)));
        bar->Show(true);
    }

    // In the panel's coordinates; a price with its spin.
    RECT place(int id) const {
        RECT rect = {};
        GetWindowRect(item(id), &rect);
        if (id == 214 || id == 217) {
            RECT spin = {};
            GetWindowRect(item(id == 214 ? 213 : 216), &spin);
            UnionRect(&rect, &rect, &spin);
        }
        MapWindowPoints(nullptr, panel(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    RECT client() const {
        RECT rect = {};
        GetClientRect(panel(), &rect);
        return rect;
    }
    bool is_inside(int id) const {
        const RECT rect = place(id);
        RECT both = {};
        const RECT all = client();
        return IntersectRect(&both, &rect, &all) && EqualRect(&both, &rect);
    }
    bool is_in_sight(int id) const {
        const RECT rect = place(id);
        const RECT all = client();
        RECT both = {};
        return IsWindowVisible(item(id)) && IntersectRect(&both, &rect, &all);
    }
    std::map<int, LONG> lefts() const {
        std::map<int, LONG> result;
        for (const int id : items) {
            result[id] = place(id).left;
        }
        return result;
    }

    // Whatever of the row is in sight is there whole and on its own.
    void expect_tidy() const {
        std::vector<int> seen;
        for (const int id : {203, 206, 209, 214, 217, 231, 220, 222, 228, 225, 227, +CLayoutPanel::Arrows}) {
            if (is_in_sight(id)) {
                seen.push_back(id);
                EXPECT_TRUE(is_inside(id)) << id;
            }
        }
        for (std::size_t i = 0; i < seen.size(); ++i) {
            for (std::size_t k = i + 1; k < seen.size(); ++k) {
                const RECT one = place(seen[i]);
                const RECT other = place(seen[k]);
                RECT both = {};
                EXPECT_FALSE(IntersectRect(&both, &one, &other)) << seen[i] << " on " << seen[k];
            }
        }
        EXPECT_TRUE(is_in_sight(225));
        EXPECT_TRUE(is_in_sight(227));
        RECT of_bar = {};
        GetClientRect(bar->get_Hwnd(), &of_bar);
        RECT sell = place(227);
        MapWindowPoints(panel(), bar->get_Hwnd(), reinterpret_cast<POINT*>(&sell), 2);
        EXPECT_LE(sell.right, of_bar.right);
    }

    void press_tab() const {
        MSG key = {GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, {}};
        EXPECT_TRUE(IsDialogMessageW(bar->get_Hwnd(), &key));
    }
    // Tab from the symbol on until it comes again; every field that comes is in sight.
    std::set<int> walk() const {
        std::set<int> reached;
        SetFocus(item(203));
        for (int i = 0; i < 30; ++i) {
            const int id = GetDlgCtrlID(GetFocus());
            if (GetParent(GetFocus()) == panel()) {
                EXPECT_TRUE(is_inside(id)) << id;
                expect_tidy();
                if (id == 203 && !reached.empty()) {
                    return reached;
                }
                reached.insert(id);
            }
            press_tab();
        }
        ADD_FAILURE() << "the symbol does not come again";
        return reached;
    }
    std::set<int> usable() const {
        std::set<int> result;
        for (const int id : items) {
            if (IsWindowVisible(item(id)) && IsWindowEnabled(item(id))) {
                result.insert(id);
            }
        }
        return result;
    }

    // Of the order type and time in force that are chosen: the row in every width, from the widest.
    int look_at_widths() {
        resize(scaled(widest));
        const auto told = lefts();
        const LONG end = place(227).right;
        int rows = 0;
        for (int width = scaled(widest); width >= scaled(narrowest); width -= scaled(width_step)) {
            SCOPED_TRACE("width " + std::to_string(width));
            resize(width);
            expect_tidy();
            EXPECT_TRUE(GetParent(GetFocus()) != panel() || is_inside(GetDlgCtrlID(GetFocus())));
            if (client().right >= end) {
                EXPECT_EQ(lefts(), told);
                EXPECT_FALSE(IsWindowVisible(item(CLayoutPanel::Arrows)));
            } else {
                EXPECT_EQ(place(227).right, client().right - scaled(4));
                EXPECT_EQ(place(227).left - place(225).left, told.at(227) - told.at(225));
                EXPECT_TRUE(IsWindowVisible(item(CLayoutPanel::Arrows)));
            }
            EXPECT_EQ(walk(), usable());
            ++rows;
        }
        return rows;
    }

    static constexpr int items[] = {203, 206, 209, 214, 217, 231, 220, 222, 228, 225, 227};

    test::com_apartment apartment;
    test::recording_desktop desktop;
    HWND main_frame = desktop.make_window(L"host");
    CGlobalData global;
    com_ptr<test::FakeOnCommand> sink = platform::make_com<test::FakeOnCommand>(host);
    com_ptr<test::FakeLookup> lookup = platform::make_com<test::FakeLookup>(host);
    test::fake_class lookup_class{host, __uuidof(LookupImpl), L"LookupImpl",
                                  [this] { return com_ptr<IUnknown>(lookup->GetUnknown()); }};
    int dpi = 96;
};

TEST_F(RowSizes, AtEveryResolutionEveryRowIsWholeOrScrolledWithBuyAndSellInside) {
    int rows = 0;
    for (const int resolution : {96, 120, 144, 192}) {
        SCOPED_TRACE(std::to_string(resolution) + " to the inch");
        ASSERT_NO_FATAL_FAILURE(open(resolution));
        ASSERT_EQ(entries(206), 4);
        ASSERT_EQ(entries(222), 6);
        for (int type = 0; type < 4; ++type) {
            choose(206, type);
            for (int time = 0; time < 6; ++time) {
                SCOPED_TRACE("order type " + std::to_string(type) + ", time in force " +
                             std::to_string(time));
                choose(222, time);
                rows += look_at_widths();
            }
        }
    }
    std::cout << "[   ROWS   ] " << rows << " looked at\n";
    EXPECT_TRUE(asserted().empty());
}

}  // namespace
