#include "market/validation.h"

#include <gtest/gtest.h>

#include <limits>

namespace host {
namespace {

constexpr int today = 46346;
const std::vector<std::string> accounts{"DEMO-001", "DEMO-002"};

// A limit order on an instrument with a tick of a quarter.
order_request good() {
    order_request request;
    request.account = "DEMO-002";
    request.instrument_id = 6;
    request.action = action::buy;
    request.category = category::limit;
    request.quantity = 1;
    request.limit_price = 6000.25;
    request.time_in_force = time_in_force::day;
    return request;
}

std::string judge(const order_request& request) {
    return refusal(request, accounts, today);
}

TEST(HostValidation, AGoodOrderPasses) {
    EXPECT_EQ(judge(good()), "");
}

TEST(HostValidation, TheInstrumentMustExist) {
    order_request request = good();
    request.instrument_id = 0;
    EXPECT_EQ(judge(request), "No such instrument");
}

TEST(HostValidation, TheAccountMustBeKnownExactly) {
    order_request request = good();
    for (const char* account : {"", "demo-001", "DEMO-003"}) {
        request.account = account;
        EXPECT_EQ(judge(request), "Unknown account") << account;
    }
}

TEST(HostValidation, ActionAndTypeMustBeKnown) {
    order_request request = good();
    for (const int value : {0, 3, -1}) {
        request.action = value;
        EXPECT_EQ(judge(request), "Neither a buy nor a sell");
    }
    request = good();
    for (const int value : {0, 5, -1}) {
        request.category = value;
        EXPECT_EQ(judge(request), "Unknown order type");
    }
}

TEST(HostValidation, TheQuantityHasBounds) {
    order_request request = good();
    for (const int value : {0, -1, max_quantity + 1, std::numeric_limits<int>::min()}) {
        request.quantity = value;
        EXPECT_EQ(judge(request), "Quantity must be from 1 to 1000000") << value;
    }
    request.quantity = max_quantity;
    EXPECT_EQ(judge(request), "");
}

TEST(HostValidation, PricesThatTheTypeUsesMustBePositiveAndOnTheGrid) {
    order_request request = good();
    for (const double price : {0.0, -6000.25, std::numeric_limits<double>::max() * 2.0,
                               std::numeric_limits<double>::quiet_NaN()}) {
        request.limit_price = price;
        EXPECT_EQ(judge(request), "Limit price must be above zero") << price;
    }
    request.limit_price = 6000.3;
    EXPECT_EQ(judge(request), "Limit price is not a multiple of the tick");

    request = good();
    request.category = category::stop_limit;
    EXPECT_EQ(judge(request), "Stop price must be above zero");
    request.stop_price = 6000.1;
    EXPECT_EQ(judge(request), "Stop price is not a multiple of the tick");
    request.stop_price = 6000.0;
    EXPECT_EQ(judge(request), "");
    request.limit_price = 0.0;
    EXPECT_EQ(judge(request), "Limit price must be above zero");
}

TEST(HostValidation, PricesThatTheTypeDoesNotUseAreIgnored) {
    order_request request = good();
    request.stop_price = -1.0;
    EXPECT_EQ(judge(request), "");
    request.category = category::market;
    request.limit_price = 0.1;
    EXPECT_EQ(judge(request), "");
}

TEST(HostValidation, TimesInForceAreThoseOfferedForTheType) {
    using namespace time_in_force;
    EXPECT_EQ(offered_times_in_force(category::market), (std::vector<int>{day, ioc, fok}));
    EXPECT_EQ(offered_times_in_force(category::stop), (std::vector<int>{day, gtc, gtd}));
    EXPECT_EQ(offered_times_in_force(category::limit), (std::vector<int>{day, gtc, gtd, ioc, fok, aon}));
    EXPECT_EQ(offered_times_in_force(category::stop_limit), (std::vector<int>{day, gtc, gtd}));
    EXPECT_TRUE(offered_times_in_force(0).empty());

    order_request request = good();
    request.category = category::market;
    request.time_in_force = gtc;
    EXPECT_EQ(judge(request), "Time in force is not offered for this order type");
}

TEST(HostValidation, AGoodTillDateIsTodayOrLater) {
    order_request request = good();
    request.time_in_force = time_in_force::gtd;
    request.gtd_date = today - 0.001;
    EXPECT_EQ(judge(request), "Good-till date lies in the past");
    request.gtd_date = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(judge(request), "Good-till date lies in the past");
    request.gtd_date = today;
    EXPECT_EQ(judge(request), "");
    request.gtd_date = today + 0.9;
    EXPECT_EQ(judge(request), "");
    request.time_in_force = time_in_force::day;
    request.gtd_date = 2.0;
    EXPECT_EQ(judge(request), "");
}

}  // namespace
}  // namespace host
