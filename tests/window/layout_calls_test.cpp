// How the order row moves as windows: what the layout asks of the system.
#include <windows.h>

#include <gmock/gmock.h>

#include <array>

#include "tests/support/win32/told_import.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using test::told_import;
using testing::ElementsAre;
using testing::IsEmpty;

class LayoutCalls : public window_tests::bar_test {
protected:
    LayoutCalls() { tab = add(L"A"); }

    void hide(OD_UpdateEntity bit, bool hidden) { tab->field(bit).hidden = hidden; }
    LONG x(int id) const {
        RECT rect = {};
        GetWindowRect(item(id), &rect);
        MapWindowPoints(nullptr, panel(), reinterpret_cast<POINT*>(&rect), 2);
        return rect.left;
    }
    LONG width(int id) const {
        RECT rect = {};
        GetWindowRect(item(id), &rect);
        return rect.right - rect.left;
    }
    std::map<int, LONG> row() const {
        std::map<int, LONG> result;
        for (const int id : {203, 206, 209, 214, 213, 217, 216, 231, 220, 222, 228, 225, 227}) {
            result[id] = x(id);
        }
        return result;
    }
    // How far each window stands from where it stood, those apart that did not move.
    std::map<int, LONG> moved_since(const std::map<int, LONG>& before) const {
        std::map<int, LONG> result;
        for (const auto& [id, left] : row()) {
            if (left != before.at(id)) {
                result[id] = left - before.at(id);
            }
        }
        return result;
    }
    static std::map<int, LONG> all_by(LONG offset, const std::vector<int>& ids) {
        std::map<int, LONG> result;
        for (const int id : ids) {
            result[id] = offset;
        }
        return result;
    }
    // Updates all fields at once, without a slide.
    void at_once() { bar->Show(true); }

    boost::shared_ptr<window_tests::fake_tab> tab;
};

const std::vector<int> right_of_first = {217, 216, 231, 220, 222, 228, 227, 225};
const std::vector<int> right_of_second = {231, 220, 222, 228, 227, 225};

TEST_F(LayoutCalls, TheGapsAreThoseOfTheWindowsAsTheyStoodAtFirst) {
    const auto before = row();
    hide(eODUE_FirstPrice, true);
    at_once();
    EXPECT_EQ(moved_since(before), all_by(-(width(214) + width(213) + 5), right_of_first));
    hide(eODUE_FirstPrice, false);
    hide(eODUE_SecondPrice, true);
    at_once();
    EXPECT_EQ(moved_since(before), all_by(-(width(217) + width(216) + 5), right_of_second));
    hide(eODUE_SecondPrice, false);
    hide(eODUE_GtdDate, true);
    at_once();
    EXPECT_EQ(moved_since(before), all_by(-(width(228) + 7), {227, 225}));
    hide(eODUE_GtdDate, false);
    at_once();
    EXPECT_THAT(moved_since(before), IsEmpty());
}

TEST_F(LayoutCalls, ALaterSizeChangesNoGap) {
    const auto before = row();
    const LONG gap = width(214) + width(213) + 5;
    SetWindowPos(item(214), nullptr, 0, 0, width(214) + 50, 20, SWP_NOMOVE | SWP_NOZORDER);
    MoveWindow(bar->get_Hwnd(), 0, 0, 1500, 120, TRUE);
    hide(eODUE_FirstPrice, true);
    at_once();
    EXPECT_EQ(moved_since(before), all_by(-gap, right_of_first));
}

TEST_F(LayoutCalls, TheFirstTabOfAMarketOrderClosesTheRowUpWithoutASlide) {
    bar->RemoveTab(tab->id);
    std::vector<UINT_PTR> timers;
    const told_import<"SetTimer", decltype(SetTimer)> told([&](HWND, UINT_PTR id, UINT, TIMERPROC) {
        timers.push_back(id);
        return id;
    });
    const auto before = row();
    const auto market = boost::make_shared<window_tests::fake_tab>(host, L"M", eTM_CC_Connected);
    for (const OD_UpdateEntity bit : {eODUE_FirstPrice, eODUE_SecondPrice, eODUE_GtdDate}) {
        market->field(bit).hidden = true;
    }
    bar->AddTab(market, false);
    const LONG first = width(214) + width(213) + 5;
    const LONG both = first + width(217) + width(216) + 5;
    EXPECT_EQ(moved_since(before), (std::map<int, LONG>{{217, -first},
                                                        {216, -first},
                                                        {231, -both},
                                                        {220, -both},
                                                        {222, -both},
                                                        {228, -both},
                                                        {227, -both - width(228) - 7},
                                                        {225, -both - width(228) - 7}}));
    for (const int id : {214, 213, 217, 216, 228}) {
        EXPECT_FALSE(IsWindowVisible(item(id))) << id;
    }
    EXPECT_THAT(timers, IsEmpty());
}

TEST_F(LayoutCalls, EachMoveKeepsSizeAndOrderAndGoesThroughOneBatch) {
    using begin_call = told_import<"BeginDeferWindowPos", decltype(BeginDeferWindowPos)>;
    using move_call = told_import<"DeferWindowPos", decltype(DeferWindowPos)>;
    std::vector<int> batches;
    std::vector<std::pair<int, UINT>> moves;
    const begin_call begin([&](int count) {
        batches.push_back(count);
        return begin_call::real(count);
    });
    const move_call move(
        [&](HDWP batch, HWND window, HWND after, int left, int top, int cx, int cy, UINT flags) {
            moves.emplace_back(GetDlgCtrlID(window), flags);
            return move_call::real(batch, window, after, left, top, cx, cy, flags);
        });
    hide(eODUE_GtdDate, true);
    at_once();
    EXPECT_THAT(batches, ElementsAre(2));
    EXPECT_THAT(moves, testing::UnorderedElementsAre(std::pair(227, 5u), std::pair(225, 5u)));
}

TEST_F(LayoutCalls, TheSlidesTimerIsThePanelsWithAnIdOfItsOwnAndTenMilliseconds) {
    using system_call = told_import<"SetTimer", decltype(SetTimer)>;
    using end_call = told_import<"KillTimer", decltype(KillTimer)>;
    struct timer {
        HWND window;
        UINT_PTR id;
        UINT period;
    };
    std::vector<timer> timers;
    std::vector<UINT_PTR> ended;
    // No tick comes by itself.
    const system_call told([&](HWND window, UINT_PTR id, UINT period, TIMERPROC) {
        timers.push_back({window, id, period});
        return id;
    });
    const end_call end([&](HWND, UINT_PTR id) {
        ended.push_back(id);
        return TRUE;
    });
    const auto before = row();
    hide(eODUE_GtdDate, true);
    bar->Update(tab->id, eODUE_GtdDate);
    ASSERT_EQ(timers.size(), 1u);
    const auto panel_object = reinterpret_cast<UINT_PTR>(&bar->get_Panel());
    EXPECT_EQ(timers[0].window, panel());
    EXPECT_EQ(timers[0].period, 10u);
    EXPECT_GT(timers[0].id, panel_object) << "the address of the layout, a part of the panel";
    EXPECT_LT(timers[0].id, panel_object + sizeof(CProfileTabWindow));
    EXPECT_THAT(moved_since(before), IsEmpty());
    SendMessageW(panel(), WM_TIMER, timers[0].id + 1, 0);
    EXPECT_THAT(moved_since(before), IsEmpty()) << "somebody else's timer";
    SendMessageW(panel(), WM_TIMER, timers[0].id, 0);
    EXPECT_EQ(moved_since(before), all_by(-10, {227, 225}));
    EXPECT_THAT(ended, IsEmpty());
    for (int i = 0; i < 200 && ended.empty(); ++i) {
        SendMessageW(panel(), WM_TIMER, timers[0].id, 0);
    }
    EXPECT_THAT(ended, ElementsAre(timers[0].id));
    EXPECT_EQ(moved_since(before), all_by(-(width(228) + 7), {227, 225}));
}

TEST_F(LayoutCalls, NoTimerRunsWhileNobodySeesThePanel) {
    std::vector<UINT_PTR> timers;
    const told_import<"SetTimer", decltype(SetTimer)> told([&](HWND, UINT_PTR id, UINT, TIMERPROC) {
        timers.push_back(id);
        return id;
    });
    const auto before = row();
    ShowWindow(bar->get_Hwnd(), SW_HIDE);
    hide(eODUE_FirstPrice, true);
    bar->Update(tab->id, eODUE_FirstPrice);
    ShowWindow(bar->get_Hwnd(), SW_SHOW);
    EXPECT_THAT(timers, IsEmpty());
    EXPECT_EQ(moved_since(before), all_by(-(width(214) + width(213) + 5), right_of_first));
}

TEST_F(LayoutCalls, WindowsThatCannotBeMovedAreReportedAndRaised) {
    const told_import<"BeginDeferWindowPos", decltype(BeginDeferWindowPos)> told(
        [](int) { return HDWP{nullptr}; });
    hide(eODUE_FirstPrice, true);
    try {
        at_once();
        FAIL() << "nothing raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_FAIL);
    }
    EXPECT_EQ(asserted().size(), 1u);
}

TEST_F(LayoutCalls, ABatchThatDoesNotEndIsReported) {
    const told_import<"EndDeferWindowPos", decltype(EndDeferWindowPos)> told(
        [](HDWP) { return BOOL{FALSE}; });
    hide(eODUE_FirstPrice, true);
    at_once();
    EXPECT_THAT(asserted(), ElementsAre(L"_res"));
}

}  // namespace
