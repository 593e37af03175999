// The layout that the first bar of a process gives itself when it is first shown.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <iostream>

#include "tests/support/child_process.h"
#include "tests/window/bar_fixture.h"
#include "tests/window/sent_messages.h"

namespace {

using namespace OV_OrderDeck;

// Which of the bar's windows were moved and shown, in order; the panel has no id.
void print_steps(HWND bar, const std::vector<window_tests::sent_message>& sent) {
    for (const window_tests::sent_message& each : sent) {
        const bool moved = each.message == WM_MOVE;
        if (GetParent(each.window) == bar && (moved || each.message == WM_SHOWWINDOW)) {
            std::cout << (moved ? "move " : "show ") << GetDlgCtrlID(each.window) << '\n';
        }
    }
}

RECT place_of(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool fills(HWND strip) {
    RECT client = {};
    GetClientRect(GetParent(strip), &client);
    const RECT at = place_of(strip);
    return EqualRect(&client, &at) != FALSE;
}

// Two bars, neither of which its host gives a size.
CHILD_MAIN(first_bar) {
    const test::fake_host host;
    const HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 1000, 400, nullptr,
                                       nullptr, nullptr, nullptr);
    window_tests::counting_owner owner;
    window_tests::sent_messages messages;
    for (const wchar_t* const name : {L"A", L"B"}) {
        COrderDeckWindow bar(frame, owner);
        const HWND strip = GetDlgItem(bar.get_Hwnd(), 201);
        bar.Show(true);
        std::cout << "empty " << fills(strip) << '\n';
        const auto tab = boost::make_shared<window_tests::fake_tab>(host, name, eTM_CC_Connected);
        bar.AddTab(tab, true);
        bar.Show(false);
        std::cout << "hidden " << fills(strip) << '\n';
        messages.take();
        bar.Show(true);
        std::cout << "shown " << fills(strip) << '\n';
        print_steps(bar.get_Hwnd(), messages.take());
        bar.Teardown();
    }
    DestroyWindow(frame);
    return 0;
}

TEST(BarFirstLayout, IsForcedOncePerProcessBeforeAnythingIsShown) {
    test_support::child_process child("first_bar");
    std::vector<std::string> lines;
    for (std::string line = child.read_line(); !line.empty(); line = child.read_line()) {
        lines.push_back(line);
    }
    EXPECT_THAT(lines, testing::ElementsAre("empty 0", "hidden 0", "shown 1", "move 201", "move 0",
                                            "move 229", "show 201", "show 0", "empty 0", "hidden 0",
                                            "shown 0", "show 201", "show 0"));
    EXPECT_EQ(child.wait(), 0);
}

}  // namespace
