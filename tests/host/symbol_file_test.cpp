#include "market/symbol_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "market/price_text.h"
#include "market/symbol_store.h"

namespace host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* columns =
    "id|feed|name|root|description|exchange|time_zone|category|currency|scale|min_move|point_value|price|"
    "expiry|"
    "strike|side\n";
constexpr const char* good = "7|F|AB|A|Alpha|X|UTC|Stock|USD|2|5|1.5|20.05|||\n";

symbol_file read(const std::string& text) {
    std::istringstream in(text);
    return read_symbols(in);
}

// The fault of one line behind a good one; empty when it was taken.
std::string fault_of(const std::string& line) {
    const symbol_file file = read(std::string(columns) + good + line + "\n");
    EXPECT_EQ(file.instruments.size(), file.faults.empty() ? 2u : 1u);
    return file.faults.empty() ? std::string() : file.faults.front();
}

symbol_file the_file() {
    return read_symbol_file(ORDERDECK_HOST_SYMBOLS);
}

TEST(HostSymbolFile, EveryColumnBecomesAField) {
    const symbol_file file = read(std::string(columns) +
                                  "9|Feed|TXO1|TXO|臺指選擇權|TAIFEX|Asia/Taipei|Option|TWD|k|4|50|12.125|"
                                  "2026-12-18|23200|P\n");
    ASSERT_THAT(file.faults, IsEmpty());
    ASSERT_THAT(file.instruments, SizeIs(1));
    const instrument& one = file.instruments.front();
    EXPECT_EQ(one.id, 9);
    EXPECT_EQ(one.feed, "Feed");
    EXPECT_EQ(one.name, "TXO1");
    EXPECT_EQ(one.root, "TXO");
    EXPECT_EQ(one.description, "臺指選擇權");
    EXPECT_EQ(one.exchange, "TAIFEX");
    EXPECT_EQ(one.time_zone, "Asia/Taipei");
    EXPECT_EQ(one.kind, instrument_kind::option);
    EXPECT_EQ(one.currency, "TWD");
    EXPECT_EQ(one.scale, 'k');
    EXPECT_EQ(one.min_move, 4);
    EXPECT_EQ(one.point_value, 50.0);
    EXPECT_EQ(one.first_price, 12.125);
    EXPECT_EQ(one.expiry, 46374.0);
    EXPECT_EQ(one.strike, 23200.0);
    EXPECT_TRUE(one.put);
}

TEST(HostSymbolFile, CommentsEmptyLinesAndBothLineEndsAreTaken) {
    const symbol_file file = read("# about\r\n\r\n" + std::string(columns) + "\n# more\n" + good);
    EXPECT_THAT(file.faults, IsEmpty());
    EXPECT_THAT(file.instruments, SizeIs(1));
    EXPECT_EQ(file.instruments.front().expiry, 0.0);
}

TEST(HostSymbolFile, ABrokenLineIsToldWithItsNumberAndTheRestIsRead) {
    const symbol_file file = read("# one\n" + std::string(columns) + "oops\n" + good +
                                  "8|F||A|B|X|UTC|Stock|USD|2|5|1|20.05|||\n");
    EXPECT_THAT(file.faults, ElementsAre("line 3: 1 columns instead of 16", "line 5: name is empty"));
    ASSERT_THAT(file.instruments, SizeIs(1));
    EXPECT_EQ(file.instruments.front().name, "AB");
}

TEST(HostSymbolFile, EachFaultSaysWhatIsWrong) {
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.05|||"), "");
    EXPECT_EQ(fault_of("x|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.05|||"), "line 3: id is not a number");
    EXPECT_EQ(fault_of("0|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.05|||"), "line 3: id is not above zero");
    EXPECT_EQ(fault_of("7|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.05|||"), "line 3: id 7 occurs a second time");
    EXPECT_EQ(fault_of("8|F|AC|A|B||UTC|Stock|USD|2|5|1|20.05|||"), "line 3: exchange is empty");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Bond|USD|2|5|1|20.05|||"), "line 3: unknown category \"Bond\"");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|XXX|2|5|1|20.05|||"), "line 3: unknown currency \"XXX\"");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|-1|5|1|20.05|||"), "line 3: unknown price scale \"-1\"");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|K|5|1|20.05|||"), "line 3: unknown price scale \"K\"");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|0|1|20.05|||"), "line 3: min_move is not above zero");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|5|nan|20.05|||"),
              "line 3: point_value is not above zero");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.0 5|||"), "line 3: price is not a number");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.03|||"),
              "line 3: price is not a multiple of the tick");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.05|2026-02-30||"),
              "line 3: expiry is not a date");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.05|18.12.2026||"),
              "line 3: expiry is not a date");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Stock|USD|2|5|1|20.05||30|"),
              "line 3: strike and side belong to options only");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Option|USD|2|5|1|20.05||30|X"),
              "line 3: side of an option is neither C nor P");
    EXPECT_EQ(fault_of("8|F|AC|A|B|X|UTC|Option|USD|2|5|1|20.05|||P"), "line 3: strike is not a number");
}

TEST(HostSymbolFile, WithoutItsFirstLineNothingIsRead) {
    const symbol_file file = read(std::string("# note\n") + good + good);
    EXPECT_THAT(file.instruments, IsEmpty());
    EXPECT_THAT(file.faults, ElementsAre("line 2: the columns are not those of a symbol file"));
    EXPECT_THAT(read("").faults, ElementsAre("the file is empty"));
}

TEST(HostSymbolFile, AMissingFileIsToldByItsName) {
    const symbol_file file = read_symbol_file("nowhere/商品.txt");
    EXPECT_THAT(file.instruments, IsEmpty());
    EXPECT_THAT(file.faults, ElementsAre("nowhere/商品.txt can't be opened"));
}

TEST(HostSymbols, TheFileHasNoFaultAndAtLeastTwoThousandInstruments) {
    const symbol_file file = the_file();
    EXPECT_THAT(file.faults, IsEmpty());
    EXPECT_GE(file.instruments.size(), 2000u);
}

TEST(HostSymbols, WhatIsTradedFromTheStartIsInTheFileAsItIs) {
    const symbol_store store(the_file().instruments);
    int count = 0;
    for (const instrument& one : instruments()) {
        if (one.id > 16) {
            continue;
        }
        const instrument* found = store.find(one.id);
        ASSERT_NE(found, nullptr) << one.name;
        EXPECT_EQ(*found, one) << one.name;
        ++count;
    }
    EXPECT_EQ(count, 16);
}

TEST(HostSymbols, EveryScaleKindAndCurrencyPairedWithItsFeedsIsThere) {
    std::set<int> scales;
    std::set<instrument_kind> kinds;
    std::set<std::string> feeds;
    for (const instrument& one : the_file().instruments) {
        scales.insert(one.scale);
        kinds.insert(one.kind);
        feeds.insert(one.feed);
        EXPECT_LE(one.first_price, 250000.0) << one.name;
        EXPECT_EQ(one.expiry != 0.0,
                  one.kind == instrument_kind::future || one.kind == instrument_kind::option);
    }
    EXPECT_EQ(scales.size(), 36u);
    EXPECT_EQ(kinds.size(), 5u);
    EXPECT_THAT(feeds, ElementsAre("", "OrderDeck Delayed", "OrderDeck Quotes", "OrderDeck Replay"));
}

TEST(HostSymbols, SomeNamesDifferInCaseOnlyAndSomeOccurTwice) {
    std::map<std::string, std::set<std::string>> feeds_of;
    std::multiset<std::string> served;
    for (const instrument& one : the_file().instruments) {
        feeds_of[one.name].insert(one.feed);
        if (one.feed == data_feed) {
            served.insert(one.name);
        }
    }
    EXPECT_EQ(served.count("VANA"), 1u);
    EXPECT_EQ(served.count("VANa"), 1u);
    EXPECT_EQ(served.count("TWIN"), 2u);
    EXPECT_THAT(feeds_of.at("ALAFD"), ElementsAre("OrderDeck Delayed", "OrderDeck Quotes"));
}

}  // namespace
}  // namespace host
