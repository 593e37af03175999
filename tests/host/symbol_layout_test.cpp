#include <gtest/gtest.h>

#include "propds2/sheet_layout.h"
#include "symbols/panel_layout.h"

namespace host {
namespace {

constexpr int at_96 = 1000;
constexpr int at_144 = 1500;

TEST(HostSheetLayout, ButtonsStandAtTheRightBottomAndThePageTakesTheRest) {
    const sheet_places places = lay_out_sheet(800, 500, at_96);
    EXPECT_EQ(places.cancel, (box{698, 458, 786, 486}));
    EXPECT_EQ(places.ok, (box{602, 458, 690, 486}));
    EXPECT_EQ(places.page, (box{14, 14, 786, 444}));
}

TEST(HostSheetLayout, LengthsFollowTheResolution) {
    const sheet_places places = lay_out_sheet(1200, 750, at_144);
    EXPECT_EQ(places.cancel, (box{1047, 687, 1179, 729}));
    EXPECT_EQ(places.page, (box{21, 21, 1179, 666}));
}

TEST(HostSheetLayout, APageIsNeverOfNegativeSize) {
    const sheet_places places = lay_out_sheet(10, 10, at_96);
    EXPECT_GE(places.page.width(), 0);
    EXPECT_GE(places.page.height(), 0);
}

TEST(HostSymbolPageLayout, SearchLineAndFeedShareTheTopAndTheListTakesTheRest) {
    const symbol_panel_places places = lay_out_symbols(720, 420, 24, at_96);
    EXPECT_EQ(places.text_label, (box{0, 0, 492, 18}));
    EXPECT_EQ(places.text, (box{0, 18, 492, 42}));
    EXPECT_EQ(places.feed_label, (box{500, 0, 720, 18}));
    EXPECT_EQ(places.feed, (box{500, 18, 720, 42}));
    EXPECT_EQ(places.list, (box{0, 50, 720, 396}));
    EXPECT_EQ(places.count, (box{0, 402, 720, 420}));
}

TEST(HostSymbolPageLayout, TheFeedShrinksWithANarrowPageDownToItsLeastWidth) {
    EXPECT_EQ(lay_out_symbols(480, 300, 24, at_96).feed.width(), 160);
    EXPECT_EQ(lay_out_symbols(300, 300, 24, at_96).feed.width(), 120);
    const symbol_panel_places tiny = lay_out_symbols(10, 10, 24, at_96);
    EXPECT_GE(tiny.text.width(), 0);
    EXPECT_GE(tiny.list.height(), 0);
}

}  // namespace
}  // namespace host
