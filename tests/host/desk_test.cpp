#include "market/desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace host {
namespace {

using ::testing::ElementsAre;

order_request buy(int type, double stop, double limit) {
    order_request request;
    request.profile = "Paper";
    request.account = "A";
    request.instrument_id = 8;
    request.action = action::buy;
    request.category = type;
    request.quantity = 2;
    request.stop_price = stop;
    request.limit_price = limit;
    request.time_in_force = time_in_force::day;
    return request;
}

TEST(HostDesk, AnOrderMeetsTheFirstQuoteAndIsTold) {
    options settings;
    settings.frozen_quotes = true;
    desk paper(settings, [] { return 46346.5; });
    std::vector<std::string> events;
    std::vector<order_status> statuses;
    paper.on_event = [&](const std::string& text) { events.push_back(text); };
    paper.on_order = [&](const order& one) { statuses.push_back(one.status); };
    paper.place(buy(category::market, 0.0, 0.0), {"A"});
    paper.place(buy(category::limit, 0.0, 117.0), {"B"});
    EXPECT_THAT(events, ElementsAre("Order 1: Buy 2 ZBZ6 Market DAY, Filled",
                                    "Order 2: Buy 2 ZBZ6 Limit 117 DAY, Rejected (Unknown account)"));
    EXPECT_THAT(statuses, ElementsAre(order_status::working, order_status::filled, order_status::rejected));
}

TEST(HostDesk, AMovingFeedEndsInATradeForAPriceInItsWay) {
    options settings;
    settings.seed = 5;
    desk paper(settings, [] { return 46346.5; });
    const double bid = paper.get_quote(8).bid;
    const int id = paper.place(buy(category::limit, 0.0, bid), {"A"}).id;
    ASSERT_EQ(paper.live_orders("Paper").size(), 1u);
    for (int turn = 0; turn < 5000 && !paper.live_orders("Paper").empty(); ++turn) {
        paper.tick();
    }
    EXPECT_EQ(paper.orders()[static_cast<std::size_t>(id) - 1].status, order_status::filled);
    EXPECT_LE(paper.orders()[0].average_price, bid);
}

TEST(HostDesk, ATickEndsTheOrdersOfTheDayBefore) {
    double now = 46346.5;
    options settings;
    settings.frozen_quotes = true;
    desk paper(settings, [&] { return now; });
    paper.place(buy(category::limit, 0.0, 100.0), {"A"});
    now = 46347.0;
    paper.tick();
    EXPECT_EQ(paper.orders()[0].status, order_status::expired);
    EXPECT_FALSE(paper.cancel(1));
}

TEST(HostDesk, OrdersAreDescribedInTheirScale) {
    EXPECT_EQ(describe(buy(category::stop_limit, 117.375, 117.40625)),
              "Buy 2 ZBZ6 Stop limit 117 12/32 117 13/32 DAY");
    EXPECT_EQ(describe(buy(category::stop, 117.0, 5.0)), "Buy 2 ZBZ6 Stop 117 DAY");
}

TEST(HostDesk, TheBrokerRejectsNoneAllOrSomeAsTheSeedDraws) {
    options settings;
    settings.frozen_quotes = true;
    desk paper(settings, [] { return 46346.5; });
    const auto rejected = [&](unsigned percent) {
        int count = 0;
        for (int number = 0; number < 200; ++number) {
            const order& placed = paper.place(buy(category::limit, 0.0, 100.0), {"A"}, percent);
            count += placed.status == order_status::rejected ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(rejected(0), 0);
    EXPECT_EQ(rejected(100), 200);
    EXPECT_GT(rejected(30), 30);
    EXPECT_LT(rejected(30), 90);
}

}  // namespace
}  // namespace host
