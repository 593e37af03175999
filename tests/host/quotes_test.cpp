#include "market/quotes.h"

#include <gtest/gtest.h>

#include <set>

#include "market/price_text.h"

namespace host {
namespace {

TEST(HostInstruments, EveryIdAndNameIsItsOwnAndTheFirstPriceLiesOnTheGrid) {
    std::set<int> ids;
    std::set<std::string> names;
    for (const instrument& one : instruments()) {
        EXPECT_TRUE(ids.insert(one.id).second) << one.name;
        EXPECT_TRUE(names.insert(one.name).second) << one.name;
        EXPECT_GT(one.tick(), 0.0) << one.name;
        EXPECT_TRUE(on_grid(one.first_price, one.tick())) << one.name;
    }
    EXPECT_GE(ids.size(), 12u);
}

TEST(HostInstruments, EveryScaleOfTheListIsThere) {
    std::set<int> scales;
    std::set<instrument_kind> kinds;
    for (const instrument& one : instruments()) {
        scales.insert(one.scale);
        kinds.insert(one.kind);
    }
    EXPECT_EQ(scales, (std::set<int>{0, 2, 4, 5, 'g', 'k', 'l', 'x'}));
    EXPECT_EQ(kinds.size(), 4u);
}

TEST(HostInstruments, NamesAreFoundWithoutCaseAndOnlyWhole) {
    ASSERT_NE(find_instrument("esz6"), nullptr);
    EXPECT_EQ(find_instrument("esz6")->name, "ESZ6");
    EXPECT_EQ(find_instrument("ESZ"), nullptr);
    EXPECT_EQ(find_instrument(""), nullptr);
    EXPECT_EQ(find_instrument(6)->name, "ESZ6");
    EXPECT_EQ(find_instrument(0), nullptr);
}

TEST(HostQuotes, ASeedRepeatsItself) {
    quote_feed left(7, false);
    quote_feed right(7, false);
    quote_feed other(8, false);
    bool differs = false;
    for (int turn = 0; turn < 200; ++turn) {
        left.tick();
        right.tick();
        other.tick();
        for (const instrument& one : instruments()) {
            ASSERT_EQ(left.get(one.id), right.get(one.id));
            differs = differs || !(left.get(one.id) == other.get(one.id));
        }
    }
    EXPECT_TRUE(differs);
}

TEST(HostQuotes, QuotesStayPositiveOnTheGridAndUncrossed) {
    quote_feed feed(3, false);
    for (int turn = 0; turn < 2000; ++turn) {
        feed.tick();
        for (const instrument& one : instruments()) {
            const quote& value = feed.get(one.id);
            ASSERT_GT(value.bid, 0.0) << one.name;
            ASSERT_GT(value.ask, value.bid) << one.name;
            ASSERT_TRUE(on_grid(value.bid, one.tick()) && on_grid(value.ask, one.tick())) << one.name;
            ASSERT_GT(value.bid_size, 0) << one.name;
            ASSERT_GT(value.ask_size, 0) << one.name;
        }
    }
}

TEST(HostQuotes, AMovingFeedMovesAndAFrozenOneDoesNot) {
    quote_feed moving(1, false);
    quote_feed frozen(1, true);
    const quote before = frozen.get(6);
    EXPECT_EQ(before.bid, 6021.25);
    EXPECT_EQ(before.ask, 6021.5);
    bool moved = false;
    for (int turn = 0; turn < 50; ++turn) {
        moving.tick();
        frozen.tick();
        moved = moved || moving.get(6).bid != before.bid;
        EXPECT_EQ(frozen.get(6), before);
    }
    EXPECT_TRUE(moved);
    EXPECT_THROW(frozen.get(999), std::out_of_range);
}

}  // namespace
}  // namespace host
