#include "market/symbol_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "market/desk.h"
#include "market/symbol_filter.h"

namespace host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

instrument make_one(int id, std::string name, std::string feed = "Main", std::string exchange = "X",
                    instrument_kind kind = instrument_kind::stock) {
    instrument one;
    one.id = id;
    one.kind = kind;
    one.name = std::move(name);
    one.description = "Company " + std::to_string(id);
    one.exchange = std::move(exchange);
    one.currency = "USD";
    one.scale = 2;
    one.min_move = 1;
    one.point_value = 1.0;
    one.first_price = 10.0;
    one.feed = std::move(feed);
    return one;
}

int id_of(const instrument* one) {
    return one == nullptr ? 0 : one->id;
}

std::vector<int> ids(const symbol_filter::rows& found) {
    std::vector<int> all;
    for (const instrument* one : found) {
        all.push_back(one->id);
    }
    return all;
}

TEST(HostSymbolStore, IdsAreFoundAndTheFirstOfTwoEqualOnesCounts) {
    const symbol_store store({make_one(4, "A"), make_one(9, "B"), make_one(4, "C")});
    EXPECT_EQ(store.find(4)->name, "A");
    EXPECT_EQ(store.find(9)->name, "B");
    EXPECT_EQ(store.find(5), nullptr);
    EXPECT_EQ(symbol_store().find(1), nullptr);
}

TEST(HostSymbolStore, ANameIsFoundInItsFeedOnlyExactlyFirstAndElseWithoutCase) {
    const symbol_store store(
        {make_one(1, "VANA"), make_one(2, "VANa"), make_one(3, "ABC"), make_one(4, "ABC", "Other")});
    EXPECT_EQ(id_of(store.find({"VANa", "Main"})), 2);
    EXPECT_EQ(id_of(store.find({"vana", "Main"})), 0);
    EXPECT_EQ(id_of(store.find({"abc", "Main"})), 3);
    EXPECT_EQ(id_of(store.find({"abc", "Other"})), 4);
    EXPECT_EQ(id_of(store.find({"abc", "main"})), 0);
    EXPECT_EQ(id_of(store.find({"AB", "Main"})), 0);
}

TEST(HostSymbolStore, ExchangeAndCategoryDecideBetweenTwinsAndMayBeLeftOut) {
    const symbol_store store({make_one(1, "TWIN", "Main", "X"), make_one(2, "TWIN", "Main", "Y"),
                              make_one(3, "TWIN", "Main", "Y", instrument_kind::future)});
    EXPECT_EQ(id_of(store.find({"TWIN", "Main", "X", 2})), 1);
    EXPECT_EQ(id_of(store.find({"TWIN", "Main", "Y", 2})), 2);
    EXPECT_EQ(id_of(store.find({"TWIN", "Main", "", 1})), 3);
    EXPECT_EQ(id_of(store.find({"TWIN", "Main", "X", 254})), 1);
    EXPECT_EQ(id_of(store.find({"TWIN", "Main", "X", 0})), 1);
    EXPECT_EQ(id_of(store.find({"TWIN", "Main"})), 0);
    EXPECT_EQ(id_of(store.find({"TWIN", "Main", "X", 6})), 0);
}

TEST(HostSymbolStore, FeedsAndExchangesAreNumberedAsTheyOccurAndNoNameIsZero) {
    const symbol_store store(
        {make_one(1, "A", "Q", "X"), make_one(2, "B", "", "Y"), make_one(3, "C", "P", "X")});
    EXPECT_THAT(store.feeds(), ElementsAre("Q", "P"));
    EXPECT_EQ(store.feed_number("Q"), 1);
    EXPECT_EQ(store.feed_number("P"), 2);
    EXPECT_EQ(store.feed_number(""), 0);
    EXPECT_EQ(store.feed_number("q"), 0);
    EXPECT_EQ(store.exchange_number("Y"), 2);
    EXPECT_EQ(store.feed_name(2), "P");
    EXPECT_EQ(store.exchange_name(1), "X");
    EXPECT_EQ(store.feed_name(0), "");
    EXPECT_EQ(store.feed_name(3), "");
}

class HostSymbolFilter : public ::testing::Test {
protected:
    HostSymbolFilter() {
        std::vector<instrument> all{make_one(1, "BESA"),
                                    make_one(2, "ESZ6", "Main", "CME", instrument_kind::future),
                                    make_one(3, "ESH7", "Main", "CME", instrument_kind::future),
                                    make_one(4, "ES"), make_one(5, "ES", "Other", "Y")};
        all[0].description = "晨曦電子";
        all[1].description = "Big index Dec";
        m_store = symbol_store(std::move(all));
    }
    std::vector<int> match(std::string_view text, std::string_view feed = "Main") {
        return ids(symbol_filter(m_store).match(text, feed));
    }

    symbol_store m_store;
};

TEST_F(HostSymbolFilter, NoTextShowsTheFeedAndNoFeedShowsAll) {
    EXPECT_THAT(match(""), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(match("  "), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(match("", ""), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(match("", "None"), IsEmpty());
}

TEST_F(HostSymbolFilter, TheNameItselfComesFirstThenBeginningsThenTheRest) {
    EXPECT_THAT(match("es"), ElementsAre(4, 2, 3, 1));
    EXPECT_THAT(match("ES", ""), ElementsAre(4, 5, 2, 3, 1));
}

TEST_F(HostSymbolFilter, EveryWordHasToOccurSomewhere) {
    EXPECT_THAT(match("dec big"), ElementsAre(2));
    EXPECT_THAT(match("cme ES"), ElementsAre(2, 3));
    EXPECT_THAT(match("future h7"), ElementsAre(3));
    EXPECT_THAT(match("電子"), ElementsAre(1));
    EXPECT_THAT(match("es zzz"), IsEmpty());
    EXPECT_THAT(match("other", ""), ElementsAre(5));
    // Not across two cells: the name ends where the description begins.
    EXPECT_THAT(match("z6big"), IsEmpty());
}

TEST_F(HostSymbolFilter, WhatMayNotBeShownIsNeverFound) {
    const symbol_filter filter(m_store, [](const instrument& one) { return one.id != 2; });
    EXPECT_THAT(ids(filter.match("", "Main")), ElementsAre(1, 3, 4));
    EXPECT_THAT(ids(filter.match("esz6", "Main")), IsEmpty());
}

TEST_F(HostSymbolFilter, EachColumnSortsBothWaysAndEqualCellsKeepTheirOrder) {
    const auto sorted = [&](symbol_column column, bool descending) {
        symbol_filter::rows found = symbol_filter(m_store).match("", "");
        symbol_filter::sort(found, column, descending);
        return ids(found);
    };
    EXPECT_THAT(sorted(symbol_column::name, false), ElementsAre(1, 4, 5, 3, 2));
    EXPECT_THAT(sorted(symbol_column::name, true), ElementsAre(2, 3, 4, 5, 1));
    EXPECT_THAT(sorted(symbol_column::description, false), ElementsAre(2, 3, 4, 5, 1));
    EXPECT_THAT(sorted(symbol_column::exchange, false), ElementsAre(2, 3, 1, 4, 5));
    EXPECT_THAT(sorted(symbol_column::category, true), ElementsAre(1, 4, 5, 2, 3));
    EXPECT_THAT(sorted(symbol_column::feed, true), ElementsAre(5, 1, 2, 3, 4));
}

TEST(HostDesk, AnInstrumentThatIsFoundIsQuotedAndTradedFromThenOn) {
    options settings;
    settings.frozen_quotes = true;
    desk paper(settings, [] { return 46346.5; });
    instrument wanted = make_one(777001, "PICKED", "Main");
    wanted.scale = 'k';
    wanted.first_price = 100.03125;
    paper.use(symbol_store({wanted}));
    const std::size_t before = instruments().size();
    EXPECT_EQ(paper.find({"PICKED", "Elsewhere"}), nullptr);
    EXPECT_EQ(instruments().size(), before);
    const instrument* found = paper.find({"picked", "Main"});
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, wanted);
    EXPECT_EQ(paper.get_quote(777001).bid, 100.03125);
    EXPECT_EQ(paper.get_quote(777001).ask, 100.0625);
    EXPECT_EQ(paper.find({"PICKED", "Main"}), found);
    EXPECT_EQ(instruments().size(), before + 1);

    order_request request;
    request.account = "A";
    request.instrument_id = found->id;
    request.action = action::buy;
    request.category = category::market;
    request.time_in_force = time_in_force::day;
    request.quantity = 1;
    const order& placed = paper.place(request, {"A"});
    EXPECT_EQ(placed.status, order_status::filled);
    EXPECT_EQ(placed.average_price, 100.0625);
}

}  // namespace
}  // namespace host
