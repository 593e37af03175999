// How the panel sets up the parts that it is made of.
#include <windows.h>

#include <commctrl.h>

#include "charting/orderdeck/src/window/PriceEdit.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

class PanelSetup : public window_tests::bar_test {
protected:
    void SetUp() override { add(L"A"); }
};

TEST_F(PanelSetup, TheGoodTillDateLooksAfterItselfFromTheStart) {
    EXPECT_TRUE(KillTimer(item(228), 1751)) << "its timer runs";
    SYSTEMTIME ends[2] = {};
    EXPECT_EQ(SendMessageW(item(228), DTM_GETRANGE, 0, reinterpret_cast<LPARAM>(ends)), GDTR_MIN | GDTR_MAX);
    EXPECT_EQ(ends[1].wYear, 2078);
    EXPECT_EQ(ends[1].wMonth, 12);
    EXPECT_EQ(ends[1].wDay, 31);
}

TEST_F(PanelSetup, AnUnexpectedMapIdOfAPriceIsReported) {
    details::CPriceEdit price{bar->get_Panel(), 214, 134};
    LRESULT result = 0;
    EXPECT_FALSE(price.ProcessWindowMessage(item(214), WM_KILLFOCUS, 0, 0, result, 1));
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"0"});
}

}  // namespace
