#include "market/order_log.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "market/time_text.h"
#include "tests/support/own_names.h"

namespace host {
namespace {

order_request sample() {
    order_request request;
    request.profile = "紙上 \"A\"";
    request.account = "DEMO-001";
    request.instrument_id = 8;
    request.action = 2;
    request.category = 4;
    request.quantity = 7;
    request.stop_price = 117.375;
    request.limit_price = 117.34375;
    request.time_in_force = 3;
    request.gtd_date = 46374.25;
    return request;
}

const char* const sample_line =
    "{\"time\":\"2026-11-20T12:00:00\",\"profile\":\"紙上 "
    "\\\"A\\\"\",\"account\":\"DEMO-001\",\"symbol\":\"ZBZ6\","
    "\"action\":2,\"category\":4,\"quantity\":7,\"stop_price\":117.375,\"limit_price\":117.34375,"
    "\"time_in_force\":3,\"gtd_date\":46374.25}";

TEST(HostOrderLog, ALineHoldsTheSevenArgumentsAsTheyCame) {
    EXPECT_EQ(order_log_line(46346.5, sample()), sample_line);
}

TEST(HostOrderLog, ALineTellsWhatTheUserSawBesideTheValues) {
    order_request request = sample();
    order_sight seen;
    seen.number = 12;
    seen.milliseconds = 1790000000123;
    seen.source = press_source::key;
    seen.symbol = "ZBZ6";
    seen.limit_price = "117 11/32";
    seen.bid = 117.25;
    seen.ask = 117.5;
    seen.quote_age = 40;
    request.seen = seen;
    const std::string line = order_log_line(46346.5, request);
    EXPECT_EQ(line.substr(0, line.find(",\"seen\"")) + "}", sample_line);
    EXPECT_EQ(line.substr(line.find("\"seen\"")),
              "\"seen\":{\"number\":12,\"utc_milliseconds\":1790000000123,\"source\":\"key\","
              "\"symbol\":\"ZBZ6\",\"limit_price\":\"117 11/32\",\"bid\":117.25,\"ask\":117.5,"
              "\"quote_age\":40}}");
}

TEST(HostOrderLog, AResultHasALineOfItsOwn) {
    EXPECT_EQ(order_result_line(12, -2147467260), "{\"after\":12,\"result\":-2147467260}");
}

TEST(HostOrderSight, IsToldInTheOrderOfTheRowWithoutWhatWasNotShown) {
    order_sight seen;
    seen.symbol = "ZBZ6";
    seen.quantity = "1.5K";
    seen.limit_price = "117 11/32";
    seen.time_in_force = "DAY";
    seen.button = "not told";
    EXPECT_EQ(sight_text(seen), "ZBZ6 | 1.5K | 117 11/32 | DAY");
}

TEST(HostOrderLog, LinesAreInTheFileAsSoonAsTheyAreWritten) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / (test_support::own_name() + ".jsonl");
    {
        const std::u8string text = path.u8string();
        order_log log(std::string(text.begin(), text.end()));
        log.write(46346.5, sample());
        log.write(46346.5, sample());
        std::ifstream file(path);
        std::string first;
        std::string second;
        std::string third;
        EXPECT_TRUE(std::getline(file, first) && std::getline(file, second));
        EXPECT_EQ(first, sample_line);
        EXPECT_EQ(second, sample_line);
        EXPECT_FALSE(std::getline(file, third));
    }
    std::filesystem::remove(path);
}

TEST(HostOrderLog, APathThatCannotBeOpenedIsSaid) {
    EXPECT_THROW(order_log("no-such-folder/orders.jsonl"), std::runtime_error);
    EXPECT_NO_THROW(order_log(""));
}

TEST(HostTimeText, DatesAndClocks) {
    EXPECT_EQ(date_text(0.0), "");
    EXPECT_EQ(date_text(2.0), "1900-01-01");
    EXPECT_EQ(date_text(46374.99), "2026-12-18");
    EXPECT_EQ(clock_text(46346.0), "00:00:00");
    EXPECT_EQ(clock_text(46346.0 + (9 * 3600 + 5 * 60 + 7) / 86400.0), "09:05:07");
    EXPECT_EQ(iso_time_text(46346.75), "2026-11-20T18:00:00");
    EXPECT_EQ(iso_time_text(46346.9999999), "2026-11-21T00:00:00");
}

}  // namespace
}  // namespace host
