#include "charting/orderdeck/src/window/RangeLadder.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "tests/support/number_locale_scope.h"

namespace {

using OV_OrderDeck::CAskBidPrices;
using OV_OrderDeck::CRangeLadder;
using action = CRangeLadder::action;

// Letters of 336 pixels: (336 / 26 + 1) / 2 is 6. A height of 13: 13 * 14 / 8 is 22.75, rounded 23, and 1.
constexpr int alphabet = 336;
constexpr int font_height = 13;

class RangeLadder : public testing::Test {
protected:
    RangeLadder() {
        market.SetFormat(2, 25);
        market.SetQuotes(100.0, 99.5);
        ladder.SetFont(alphabet, font_height);
        ladder.Recalculate();
    }
    std::vector<double> rows() {
        ladder.Recalculate();
        std::vector<double> result;
        for (LONG row = 0; row < 7; ++row) {
            result.push_back(ladder.get_Price(row));
        }
        return result;
    }
    std::vector<int> sides() const {
        std::vector<int> result;
        for (LONG row = 0; row < 7; ++row) {
            result.push_back(ladder.get_Side(row));
        }
        return result;
    }

    CAskBidPrices market;
    CRangeLadder ladder{market};
};

using prices = std::vector<double>;

std::vector<LONG> sides_of(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

TEST_F(RangeLadder, BeginsWithSevenRowsFortyWideAtPositionThree) {
    EXPECT_EQ(ladder.get_Rows(), 7);
    EXPECT_EQ(ladder.get_Width(), 40);
    EXPECT_EQ(ladder.get_Pos(), 3);
    EXPECT_EQ(ladder.get_Pick(), 3);
    EXPECT_EQ(ladder.get_HotRow(), -1);
}

TEST_F(RangeLadder, ShowsTwoStepsOnEachSideOfAskMidAndBid) {
    EXPECT_EQ(rows(), (prices{100.5, 100.25, 100.0, 99.75, 99.5, 99.25, 99.0}));
}

TEST_F(RangeLadder, OneStepUpMovesTheMidAlongAndKeepsTheGrid) {
    ladder.Scroll(1);
    EXPECT_EQ(rows(), (prices{100.75, 100.5, 100.25, 100.0, 99.75, 99.5, 99.25}));
    ladder.Scroll(-2);
    EXPECT_EQ(rows(), (prices{100.25, 100.0, 99.75, 99.5, 99.25, 99.0, 98.75}));
}

TEST_F(RangeLadder, HasNoLimits) {
    ladder.Scroll(1000);
    EXPECT_EQ(ladder.get_Pos(), 1003);
    EXPECT_EQ(rows().back(), 100.0 + 0.25 * 996);
    ladder.Scroll(-3000);
    EXPECT_EQ(ladder.get_Pos(), -1997);
    EXPECT_LT(rows().front(), 0.0);
}

TEST_F(RangeLadder, ACodeWithNoStepTurnsItUpsideDown) {
    market.SetFormat(-1, 2);
    EXPECT_EQ(rows(), (prices{96.0, 98.0, 100.0, 99.75, 99.5, 101.5, 103.5}));
}

TEST_F(RangeLadder, PricesOnEachSideStayOnTheirGridWhereverItIsScrolled) {
    std::mt19937 random(20);
    std::uniform_int_distribution<LONG> positions(-500, 500);
    for (int i = 0; i < 2000; ++i) {
        ladder.Scroll(positions(random) - ladder.get_Pos());
        const prices shown = rows();
        for (LONG row = 0; row < 7; ++row) {
            // Rows count down from the position; 1 is the ask, 0 the mid, -1 the bid.
            const LONG place = ladder.get_Pos() - row;
            const double expected = place >= 1   ? 100.0 + 0.25 * (place - 1)
                                    : place == 0 ? 99.75
                                                 : 99.5 + 0.25 * (place + 1);
            ASSERT_EQ(shown[static_cast<std::size_t>(row)], expected);
            ASSERT_EQ(ladder.get_Side(row), place >= 1 ? 0 : place == 0 ? 1 : 2);
        }
    }
}

TEST_F(RangeLadder, PricesStayUntilTheyAreRecalculated) {
    market.SetQuotes(200.0, 199.0);
    EXPECT_EQ(ladder.get_Price(2), 100.0);
    ladder.Recalculate();
    EXPECT_EQ(ladder.get_Price(2), 200.0);
}

TEST_F(RangeLadder, RowsTakeTheirColourByTheirPlaceInTheMarket) {
    EXPECT_EQ(sides(), (std::vector<int>{0, 0, 0, 1, 2, 2, 2}));
    ladder.Scroll(2);
    EXPECT_EQ(sides(), (std::vector<int>{0, 0, 0, 0, 0, 1, 2}));
    ladder.Scroll(-8);
    EXPECT_EQ(sides(), (std::vector<int>{2, 2, 2, 2, 2, 2, 2}));
}

TEST_F(RangeLadder, KnowsTheRowsOfAskAndBid) {
    EXPECT_TRUE(ladder.IsAsk(2));
    EXPECT_FALSE(ladder.IsAsk(1));
    EXPECT_TRUE(ladder.IsBid(4));
    EXPECT_FALSE(ladder.IsBid(5));
    ladder.Scroll(1);
    EXPECT_TRUE(ladder.IsAsk(3));
    EXPECT_TRUE(ladder.IsBid(5));
}

TEST_F(RangeLadder, TakesItsMeasuresFromTheFontInWholeNumbers) {
    EXPECT_EQ(ladder.get_CharWidth(), 6);
    EXPECT_EQ(ladder.get_RowHeight(), 24);
    EXPECT_EQ(ladder.get_ButtonHeight(), 12);
    ladder.SetFont(26 * 15 + 25, 16);
    EXPECT_EQ(ladder.get_CharWidth(), 8) << "(15 + 1) / 2";
    EXPECT_EQ(ladder.get_RowHeight(), 29) << "28 and 1";
    EXPECT_EQ(ladder.get_ButtonHeight(), 14);
}

TEST_F(RangeLadder, NeighbouringRowsShareALine) {
    EXPECT_EQ(ladder.get_Height(), 23 * 7 + 1 + 2 * 12);
    EXPECT_EQ(sides_of(ladder.get_RowRect(0)), (std::vector<LONG>{0, 12, 40, 36}));
    EXPECT_EQ(sides_of(ladder.get_RowRect(1)), (std::vector<LONG>{0, 35, 40, 59}));
    EXPECT_EQ(ladder.get_RowRect(6).bottom, ladder.get_Height() - 12);
}

TEST_F(RangeLadder, AHitIsTheFirstRowThatEndsBelowThePoint) {
    EXPECT_EQ(ladder.HitTest(-5), 0);
    EXPECT_EQ(ladder.HitTest(35), 0);
    EXPECT_EQ(ladder.HitTest(36), 1);
    EXPECT_EQ(ladder.HitTest(12 + 7 * 24 - 1), 6);
    EXPECT_EQ(ladder.HitTest(12 + 7 * 24), -1);
}

TEST_F(RangeLadder, PickingARowGivesItsPriceAndItsPosition) {
    const struct {
        LONG row;
        LONG position;
        double price;
    } picks[] = {{0, 3, 100.5}, {2, 1, 100.0}, {3, 0, 99.75}, {4, -1, 99.5}, {6, -3, 99.0}};
    for (const auto& each : picks) {
        EXPECT_EQ(ladder.Pick(each.row), each.price);
        EXPECT_EQ(ladder.get_Pick(), each.position);
    }
    ladder.Scroll(4);
    ladder.Pick(6);
    EXPECT_EQ(ladder.get_Pick(), 1);
}

TEST_F(RangeLadder, ARowThatIsNoneFailsAndLeavesThePick) {
    EXPECT_THROW(ladder.Pick(-1), std::out_of_range);
    EXPECT_THROW(ladder.Pick(7), std::out_of_range);
    EXPECT_EQ(ladder.get_Pick(), 3);
}

TEST_F(RangeLadder, KeysScrollByOneAndByTen) {
    const struct {
        int key;
        LONG steps;
    } keys[] = {{38, 1}, {104, 1}, {40, -1}, {98, -1}, {33, 10}, {105, 10}, {34, -10}, {99, -10}};
    for (const auto& each : keys) {
        ladder.Open();
        EXPECT_EQ(ladder.Key(each.key), action::moved);
        EXPECT_EQ(ladder.get_Pos(), 3 + each.steps) << each.key;
    }
}

TEST_F(RangeLadder, EscapeHidesAndOtherKeysDoNothing) {
    EXPECT_EQ(ladder.Key(27), action::hide);
    for (int key = 0; key < 256; ++key) {
        switch (key) {
            case 27:
            case 33:
            case 34:
            case 38:
            case 40:
            case 98:
            case 99:
            case 104:
            case 105:
                continue;
            default:
                EXPECT_EQ(ladder.Key(key), action::none) << key;
        }
    }
    EXPECT_EQ(ladder.get_Pos(), 3);
}

TEST_F(RangeLadder, TheWheelScrollsByOneWhateverItsDelta) {
    EXPECT_TRUE(ladder.Wheel(360));
    EXPECT_EQ(ladder.get_Pos(), 4);
    EXPECT_TRUE(ladder.Wheel(-30));
    EXPECT_EQ(ladder.get_Pos(), 3);
    EXPECT_FALSE(ladder.Wheel(0));
    EXPECT_EQ(ladder.get_Pos(), 3);
}

TEST_F(RangeLadder, TheHotRowTellsAChange) {
    EXPECT_TRUE(ladder.put_HotRow(2));
    EXPECT_FALSE(ladder.put_HotRow(2));
    EXPECT_TRUE(ladder.put_HotRow(-1));
}

TEST_F(RangeLadder, GrowsForTheAsksTextAndTwoCharacters) {
    const number_locale_scope plain(english());
    EXPECT_TRUE(ladder.Widen()) << "100.00";
    EXPECT_EQ(ladder.get_Width(), 8 * 6);
    EXPECT_FALSE(ladder.Widen());
    market.SetQuotes(12345.25, 1.0);
    EXPECT_TRUE(ladder.Widen()) << "12,345.25";
    EXPECT_EQ(ladder.get_Width(), 11 * 6);
    market.SetQuotes(1.0, 0.5);
    EXPECT_FALSE(ladder.Widen()) << "it never shrinks";
    EXPECT_EQ(ladder.get_Width(), 66);
}

TEST_F(RangeLadder, StaysForAShortText) {
    const number_locale_scope plain(english());
    market.SetQuotes(1.0, 0.5);
    EXPECT_FALSE(ladder.Widen());
    EXPECT_EQ(ladder.get_Width(), 40);
}

TEST_F(RangeLadder, AFractionCountsByItsPieces) {
    const number_locale_scope plain(english());
    market.SetFormat('k', 1);
    market.SetQuotes(117.5, 117.0);
    // 117 16/32: the pieces 117, 16 and 32, and one for the bar.
    EXPECT_TRUE(ladder.Widen());
    EXPECT_EQ(ladder.get_Width(), (8 + 2) * 6);
}

TEST_F(RangeLadder, ANewSymbolResetsTheWidth) {
    market.SetQuotes(12345.25, 1.0);
    ladder.Widen();
    EXPECT_TRUE(ladder.ResetWidth());
    EXPECT_EQ(ladder.get_Width(), 40);
    EXPECT_FALSE(ladder.ResetWidth());
}

TEST_F(RangeLadder, OpensBesideTheButtonCentredOnIt) {
    const RECT monitor = {0, 0, 1920, 1080};
    // 186 high and 41 wide; the button's middle is 509.
    EXPECT_EQ(sides_of(ladder.get_Placement({300, 500, 400, 518}, monitor)),
              (std::vector<LONG>{400, 416, 441, 602}));
}

TEST_F(RangeLadder, IsMovedToFitTheMonitor) {
    const RECT monitor = {-1000, 100, 920, 1000};
    EXPECT_EQ(sides_of(ladder.get_Placement({800, 110, 900, 128}, monitor)),
              (std::vector<LONG>{879, 100, 920, 286}));
    EXPECT_EQ(sides_of(ladder.get_Placement({-1500, 980, -1400, 998}, monitor)),
              (std::vector<LONG>{-1000, 814, -959, 1000}));
}

// Time goes as the test says.
class told_clock final : public platform::clock {
public:
    DWORD now = 5000;
    SYSTEMTIME local_time() override { return {}; }
    DWORD tick_count() override { return now; }
    double milliseconds() override { return 0.0; }

private:
    platform::port<platform::clock>::replacement m_replacement{*this};
};

class FreshRows : public RangeLadder {
protected:
    FreshRows() { ladder.Open(); }
    void quote(double ask, double bid) {
        market.SetQuotes(ask, bid);
        ladder.Follow();
    }
    // One letter for each row.
    std::string fresh() const {
        std::string rows;
        for (LONG row = 0; row < 7; ++row) {
            rows += ladder.IsFresh(row) ? 'f' : '-';
        }
        return rows;
    }

    told_clock clock;
};

TEST_F(FreshRows, AreNoneWhenTheLadderOpens) {
    EXPECT_EQ(fresh(), "-------");
    quote(100.0, 99.5);
    EXPECT_EQ(fresh(), "-------") << "the quotes are as they were";
}

TEST_F(FreshRows, AreThoseWhosePriceTheQuotesMoved) {
    quote(100.25, 99.5);
    // The middle, 99.875, is 100 on the grid.
    EXPECT_EQ(fresh(), "ffff---");
    clock.now += 1000;
    quote(100.25, 99.25);
    EXPECT_EQ(fresh(), "---ffff");
    clock.now += 1000;
    quote(100.5, 99.0);
    EXPECT_EQ(fresh(), "fff-fff") << "the middle stays at 99.75";
}

TEST_F(FreshRows, AreSoForThreeHundredMilliseconds) {
    quote(101.0, 100.5);
    clock.now += 299;
    EXPECT_EQ(fresh(), "fffffff");
    clock.now += 1;
    EXPECT_EQ(fresh(), "-------");
}

TEST_F(FreshRows, EachMoveCountsAnew) {
    quote(101.0, 99.5);
    clock.now += 200;
    quote(101.25, 99.5);
    clock.now += 200;
    EXPECT_EQ(fresh(), "ffff---") << "the middle is 100.5 now and was 100.25";
    quote(101.25, 99.5);
    clock.now += 100;
    EXPECT_EQ(fresh(), "-------") << "a quote that moves nothing is none";
}

TEST_F(FreshRows, DoNotComeOfScrolling) {
    ladder.Scroll(2);
    ladder.Recalculate();
    EXPECT_EQ(fresh(), "-------");
    ladder.Key(33);
    ladder.Recalculate();
    EXPECT_EQ(fresh(), "-------");
}

// A row that he scrolls to the place of another one goes on being as new as its price.
TEST_F(FreshRows, StayFreshWhileTheyAreScrolled) {
    quote(100.5, 99.5);
    ladder.Scroll(-1);
    ladder.Recalculate();
    EXPECT_EQ(fresh(), "fff----") << "ask and one above it, and the middle";
    ladder.Scroll(3);
    ladder.Recalculate();
    EXPECT_EQ(fresh(), "ffffff-");
}

TEST_F(FreshRows, AreForgottenByTheNextOpening) {
    quote(101.0, 100.5);
    ladder.Open();
    EXPECT_EQ(fresh(), "-------");
    EXPECT_EQ(ladder.get_Pos(), 3);
    EXPECT_EQ(ladder.get_Price(2), 101.0);
}

TEST_F(FreshRows, AreToldOverTheWrapOfTheClock) {
    clock.now = 0xFFFFFFFF - 99;
    quote(101.0, 100.5);
    clock.now += 299;
    EXPECT_EQ(fresh(), "fffffff");
    clock.now += 1;
    EXPECT_EQ(fresh(), "-------");
}

TEST_F(RangeLadder, RowsShowTheirPricesAsTheButtonDoes) {
    const number_locale_scope plain(english());
    EXPECT_EQ(ladder.get_Text(0), L"100.50");
    EXPECT_EQ(ladder.get_Text(3), L"99.75");
    EXPECT_THROW(ladder.get_Text(-1), std::out_of_range);
}

}  // namespace
