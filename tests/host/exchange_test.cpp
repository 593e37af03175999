#include "market/exchange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {
namespace {

using ::testing::ElementsAre;

constexpr int es = 6;

class HostExchange : public ::testing::Test {
protected:
    order_request request(int side, int type, int quantity, double stop, double limit,
                          int force = time_in_force::day) {
        order_request value;
        value.profile = "Paper";
        value.account = "A";
        value.instrument_id = es;
        value.action = side;
        value.category = type;
        value.quantity = quantity;
        value.stop_price = stop;
        value.limit_price = limit;
        value.time_in_force = force;
        return value;
    }
    int place(const order_request& value) { return m_exchange.place(value, {"A"}).id; }
    int buy_limit(int quantity, double price, int force = time_in_force::day) {
        return place(request(action::buy, category::limit, quantity, 0.0, price, force));
    }
    const order& get(int id) const { return m_exchange.orders()[static_cast<std::size_t>(id) - 1]; }

    double m_now = 46346.5;
    std::vector<std::pair<int, order_status>> m_changes;
    exchange m_exchange{[this] { return m_now; },
                        [this](const order& one) { m_changes.emplace_back(one.id, one.status); }};
};

TEST_F(HostExchange, AMarketOrderTakesTheOtherSideAtOnce) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 20});
    const int buy = place(request(action::buy, category::market, 3, 0.0, 0.0));
    const int sell = place(request(action::sell, category::market, 4, 0.0, 0.0));
    EXPECT_EQ(get(buy).status, order_status::filled);
    EXPECT_EQ(get(buy).average_price, 6021.5);
    EXPECT_EQ(get(sell).filled, 4);
    EXPECT_EQ(get(sell).average_price, 6021.25);
    EXPECT_THAT(m_changes,
                ElementsAre(std::pair(buy, order_status::working), std::pair(buy, order_status::filled),
                            std::pair(sell, order_status::working), std::pair(sell, order_status::filled)));
}

TEST_F(HostExchange, ARejectedOrderKeepsItsReasonAndNeverTrades) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 20});
    const int id = place(request(action::buy, category::market, 0, 0.0, 0.0));
    EXPECT_EQ(get(id).status, order_status::rejected);
    EXPECT_EQ(get(id).reason, "Quantity must be from 1 to 1000000");
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 20});
    EXPECT_EQ(get(id).filled, 0);
    EXPECT_EQ(m_changes.size(), 1u);
}

TEST_F(HostExchange, ALimitOrderWaitsForItsPriceAndTradesAtTheQuote) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 20});
    const int id = buy_limit(2, 6021.0);
    EXPECT_EQ(get(id).status, order_status::working);
    m_exchange.on_quote(es, {6020.5, 6020.75, 10, 20});
    EXPECT_EQ(get(id).status, order_status::filled);
    EXPECT_EQ(get(id).average_price, 6020.75);
}

TEST_F(HostExchange, AnotherInstrumentsQuoteTradesNothing) {
    const int id = buy_limit(2, 6021.0);
    m_exchange.on_quote(7, {1.0, 1.25, 10, 20});
    EXPECT_EQ(get(id).filled, 0);
}

TEST_F(HostExchange, FillsAreAsLargeAsTheQuoteAndGoOnWithTheNext) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 3});
    const int id = place(request(action::buy, category::market, 5, 0.0, 0.0));
    EXPECT_EQ(get(id).status, order_status::partly_filled);
    EXPECT_EQ(get(id).filled, 3);
    m_exchange.on_quote(es, {6022.0, 6022.5, 10, 20});
    EXPECT_EQ(get(id).status, order_status::filled);
    EXPECT_DOUBLE_EQ(get(id).average_price, (3 * 6021.5 + 2 * 6022.5) / 5);
}

TEST_F(HostExchange, WhatOneOrderTookIsGoneForTheNext) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 3});
    place(request(action::buy, category::market, 2, 0.0, 0.0));
    const int second = place(request(action::buy, category::market, 2, 0.0, 0.0));
    EXPECT_EQ(get(second).filled, 1);
}

TEST_F(HostExchange, TheBetterPriceGoesFirstThenTheOlderOrder) {
    const int low = buy_limit(1, 6020.0);
    const int high = buy_limit(1, 6021.0);
    const int late = buy_limit(1, 6021.0);
    m_exchange.on_quote(es, {6019.0, 6020.0, 1, 2});
    EXPECT_EQ(get(high).filled, 1);
    EXPECT_EQ(get(late).filled, 1);
    EXPECT_EQ(get(low).filled, 0);
}

TEST_F(HostExchange, SellsPreferTheLowerLimitAndMarketOrdersGoFirst) {
    const int dear = place(request(action::sell, category::limit, 1, 0.0, 6020.5));
    const int cheap = place(request(action::sell, category::limit, 1, 0.0, 6020.0));
    const int market = place(request(action::sell, category::market, 1, 0.0, 0.0));
    m_exchange.on_quote(es, {6021.0, 6021.25, 2, 2});
    EXPECT_EQ(get(market).filled, 1);
    EXPECT_EQ(get(cheap).filled, 1);
    EXPECT_EQ(get(dear).filled, 0);
}

TEST_F(HostExchange, ABuyStopIsTouchedByTheAskAndBecomesAMarketOrder) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 20});
    const int id = place(request(action::buy, category::stop, 1, 6022.0, 0.0));
    EXPECT_EQ(get(id).status, order_status::waiting);
    m_exchange.on_quote(es, {6021.5, 6021.75, 10, 20});
    EXPECT_EQ(get(id).status, order_status::waiting);
    m_exchange.on_quote(es, {6022.0, 6022.25, 10, 20});
    EXPECT_EQ(get(id).status, order_status::filled);
    EXPECT_EQ(get(id).average_price, 6022.25);
}

TEST_F(HostExchange, ASellStopIsTouchedByTheBid) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 20});
    const int id = place(request(action::sell, category::stop, 1, 6021.0, 0.0));
    EXPECT_EQ(get(id).status, order_status::waiting);
    m_exchange.on_quote(es, {6021.0, 6021.5, 10, 20});
    EXPECT_EQ(get(id).status, order_status::filled);
}

TEST_F(HostExchange, ATouchedStopLimitWorksAtItsLimit) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 20});
    const int id = place(request(action::buy, category::stop_limit, 1, 6022.0, 6022.0));
    m_exchange.on_quote(es, {6022.25, 6022.5, 10, 20});
    EXPECT_EQ(get(id).status, order_status::working);
    EXPECT_EQ(get(id).filled, 0);
    m_exchange.on_quote(es, {6021.75, 6022.0, 10, 20});
    EXPECT_EQ(get(id).status, order_status::filled);
}

TEST_F(HostExchange, ImmediateOrCancelKeepsWhatItGotAndCancelsTheRest) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 3});
    const int part = buy_limit(5, 6021.5, time_in_force::ioc);
    EXPECT_EQ(get(part).status, order_status::cancelled);
    EXPECT_EQ(get(part).filled, 3);
    EXPECT_EQ(get(part).reason, "The rest could not be filled at once");
    const int none = buy_limit(5, 6020.0, time_in_force::ioc);
    EXPECT_EQ(get(none).status, order_status::cancelled);
    EXPECT_EQ(get(none).reason, "Could not be filled at once");
}

TEST_F(HostExchange, FillOrKillIsAllOrNothingAtOnce) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 3});
    const int none = buy_limit(4, 6021.5, time_in_force::fok);
    EXPECT_EQ(get(none).status, order_status::cancelled);
    EXPECT_EQ(get(none).filled, 0);
    const int all = buy_limit(3, 6021.5, time_in_force::fok);
    EXPECT_EQ(get(all).status, order_status::filled);
}

TEST_F(HostExchange, AllOrNoneRestsUntilOneQuoteHoldsItWhole) {
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 3});
    const int all = buy_limit(4, 6021.5, time_in_force::aon);
    const int behind = buy_limit(1, 6021.5);
    EXPECT_EQ(get(all).status, order_status::working);
    EXPECT_EQ(get(behind).status, order_status::filled);
    m_exchange.on_quote(es, {6021.25, 6021.5, 10, 4});
    EXPECT_EQ(get(all).status, order_status::filled);
}

TEST_F(HostExchange, ALiveOrderCanBeCancelledOnce) {
    const int id = buy_limit(1, 6000.0);
    EXPECT_TRUE(m_exchange.cancel(id));
    EXPECT_EQ(get(id).status, order_status::cancelled);
    EXPECT_EQ(get(id).reason, "Cancelled by the user");
    EXPECT_FALSE(m_exchange.cancel(id));
    EXPECT_FALSE(m_exchange.cancel(99));
    m_exchange.on_quote(es, {5999.0, 5999.25, 10, 20});
    EXPECT_EQ(get(id).filled, 0);
}

TEST_F(HostExchange, TheDaysEndEndsWhatDoesNotLiveOn) {
    const int day = buy_limit(1, 6000.0);
    const int gtc = buy_limit(1, 6000.0, time_in_force::gtc);
    const int aon = buy_limit(1, 6000.0, time_in_force::aon);
    order_request dated = request(action::buy, category::limit, 1, 0.0, 6000.0, time_in_force::gtd);
    dated.gtd_date = 46347.25;
    const int gtd = place(dated);
    m_exchange.end_of_day();
    EXPECT_EQ(get(day).status, order_status::working);
    m_now = 46347.001;
    m_exchange.end_of_day();
    EXPECT_EQ(get(day).status, order_status::expired);
    EXPECT_EQ(get(aon).status, order_status::expired);
    EXPECT_EQ(get(gtd).status, order_status::working);
    m_now = 46348.0;
    m_exchange.end_of_day();
    EXPECT_EQ(get(gtd).status, order_status::expired);
    EXPECT_EQ(get(gtc).status, order_status::working);
}

TEST_F(HostExchange, LiveOrdersAreThoseOfTheProfileThatMayStillTrade) {
    const int working = buy_limit(1, 6000.0);
    m_exchange.cancel(buy_limit(1, 6000.0));
    const int waiting = place(request(action::buy, category::stop, 1, 7000.0, 0.0));
    std::vector<int> ids;
    for (const order& one : m_exchange.live_orders("Paper")) {
        ids.push_back(one.id);
    }
    EXPECT_THAT(ids, ElementsAre(working, waiting));
    EXPECT_TRUE(m_exchange.live_orders("Other").empty());
}

TEST_F(HostExchange, ABrokersReasonRejectsAGoodOrder) {
    const order placed =
        m_exchange.place(request(action::buy, category::market, 1, 0.0, 0.0), {"A"}, "Too late");
    EXPECT_EQ(placed.status, order_status::rejected);
    EXPECT_EQ(placed.reason, "Too late");
    EXPECT_EQ(placed.filled, 0);
}

TEST_F(HostExchange, OrdersFollowTheNewNameOfTheirProfile) {
    buy_limit(1, 100.0);
    order_request other = request(action::buy, category::limit, 1, 0.0, 100.0);
    other.profile = "Other";
    place(other);
    m_changes.clear();
    m_exchange.rename_profile("Paper", "New");
    EXPECT_THAT(m_changes, ElementsAre(std::pair(1, order_status::working)));
    EXPECT_EQ(m_exchange.live_orders("New").size(), 1u);
    EXPECT_TRUE(m_exchange.live_orders("Paper").empty());
    EXPECT_EQ(m_exchange.live_orders("Other").size(), 1u);
}

}  // namespace
}  // namespace host
