// The tab strip's own window procedure. A program of its own, since its operator new fails on demand.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include "charting/orderdeck/src/window/TabStrip.h"
#include "platform/win32/frame/common_controls.h"
#include "tests/support/allocation_faults.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

class TabStrip : public testing::Test {
protected:
    TabStrip() {
        const frame::common_controls_scope scope;
        window = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_OVERLAPPED, 0, 0, 400, 100, nullptr, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
        strip.SubclassWindow(window);
    }
    ~TabStrip() override { DestroyWindow(window); }

    LRESULT insert(int place, LONG id) {
        wchar_t text[] = L"Alpha";
        TCITEMW item = {};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = text;
        item.lParam = id;
        return SendMessageW(window, TCM_INSERTITEMW, static_cast<WPARAM>(place),
                            reinterpret_cast<LPARAM>(&item));
    }
    // The first allocation inside fails.
    LRESULT insert_without_memory(int place, LONG id) {
        const test::exposed exposed;
        test::fail_allocation(0);
        const LRESULT index = insert(place, id);
        test::fail_allocation(-1);
        return index;
    }
    // The ids as the control keeps them are those that the strip tells.
    void expect_together() {
        for (int i = 0; i < strip.get_Count(); ++i) {
            TCITEMW item = {};
            item.mask = TCIF_PARAM;
            ASSERT_NE(
                SendMessageW(window, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item)),
                FALSE);
            EXPECT_EQ(strip.get_Id(i), static_cast<LONG>(item.lParam)) << i;
        }
        EXPECT_EQ(strip.get_Id(strip.get_Count()), 0);
    }

    HWND window = nullptr;
    OV_OrderDeck::CTabStrip strip;
    diagnostics_recorder reports;
};

TEST_F(TabStrip, KeepsItsIdsAndItemsTogetherWhenMemoryRunsOut) {
    int refused = 0;
    LONG next = 1;
    for (int turn = 0; turn < 100; ++turn, ++next) {
        const int before = strip.get_Count();
        const LRESULT index = insert_without_memory(0, next);
        if (index == -1) {
            ++refused;
            EXPECT_EQ(strip.get_Count(), before);
            EXPECT_EQ(strip.Find(next), -1);
            EXPECT_EQ(insert(0, ++next), 0) << "with memory it goes on";
        }
        expect_together();
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(strip.get_Count(), 90);
    while (strip.get_Count() > 0) {
        EXPECT_TRUE(strip.Delete(0));
        expect_together();
    }
}

TEST_F(TabStrip, AssertsAMapIdThatIsNotZeroAndLeavesTheMessage) {
    LRESULT result = 7;
    EXPECT_FALSE(strip.ProcessWindowMessage(window, TCM_DELETEALLITEMS, 0, 0, result, 1));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
}

}  // namespace
