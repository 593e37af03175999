#include "market/lot_calculator.h"

#include <gtest/gtest.h>

#include <limits>

namespace host {
namespace {

TEST(HostLots, StocksAreDealtInHundredsAndAllElseInOnes) {
    EXPECT_EQ(lot_size(2), 100);
    for (const int category : {0, 1, 3, 6, -2}) {
        EXPECT_EQ(lot_size(category), 1) << category;
    }
}

TEST(HostLots, MoneyBuysWholeLots) {
    const auto bought = buy_lots(120000.0, 101.5, 100);
    ASSERT_TRUE(bought);
    EXPECT_EQ(bought->lots, 11);
    EXPECT_EQ(bought->quantity, 1100);
    EXPECT_DOUBLE_EQ(bought->cost, 111650.0);
    EXPECT_DOUBLE_EQ(bought->left, 8350.0);
}

TEST(HostLots, MoneyThatPaysExactlyLeavesNothing) {
    const auto bought = buy_lots(0.3, 0.1, 1);
    ASSERT_TRUE(bought);
    EXPECT_EQ(bought->quantity, 3) << "though the quotient lies a hair below";
    EXPECT_EQ(bought->left, 0.0);
    EXPECT_EQ(buy_lots(1000.0, 10.0, 100)->quantity, 100);
    EXPECT_EQ(buy_lots(999.99, 10.0, 100)->quantity, 0);
}

TEST(HostLots, TooLittleMoneyBuysNothingAndStays) {
    const auto bought = buy_lots(50.0, 10.0, 100);
    ASSERT_TRUE(bought);
    EXPECT_EQ(bought->lots, 0);
    EXPECT_EQ(bought->quantity, 0);
    EXPECT_EQ(bought->cost, 0.0);
    EXPECT_EQ(bought->left, 50.0);
}

TEST(HostLots, AQuantityStaysWithinTheLargestOrder) {
    EXPECT_EQ(buy_lots(1e300, 1.0, 1)->quantity, 1000000000);
    EXPECT_EQ(buy_lots(1e300, 1.0, 300)->quantity, 999999900);
    EXPECT_EQ(buy_lots(1e300, 1e-300, 1000000000)->quantity, 1000000000);
}

TEST(HostLots, NothingIsBoughtWithoutMoneyPriceAndLot) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(buy_lots(0.0, 1.0, 1));
    EXPECT_FALSE(buy_lots(-1.0, 1.0, 1));
    EXPECT_FALSE(buy_lots(1.0, 0.0, 1));
    EXPECT_FALSE(buy_lots(1.0, -1.0, 1));
    EXPECT_FALSE(buy_lots(1.0, 1.0, 0));
    EXPECT_FALSE(buy_lots(1.0, 1.0, -1));
    EXPECT_FALSE(buy_lots(infinite, 1.0, 1));
    EXPECT_FALSE(buy_lots(1.0, std::numeric_limits<double>::quiet_NaN(), 1));
}

TEST(HostLots, AnAmountIsReadAsPeopleTypeIt) {
    EXPECT_EQ(read_amount("1,234.5"), 1234.5);
    EXPECT_EQ(read_amount(" 1 000 "), 1000.0);
    EXPECT_EQ(read_amount(".5"), 0.5);
    for (const char* const text : {"", "abc", "1e5", "-1", "+1", "1.2.3", "inf", "12x", "."}) {
        EXPECT_FALSE(read_amount(text)) << text;
    }
    EXPECT_FALSE(read_amount(std::string(400, '9'))) << "beyond every number";
}

TEST(HostLots, AmountsAndQuantitiesAreGroupedInThrees) {
    EXPECT_EQ(amount_text(0.0), "0.00");
    EXPECT_EQ(amount_text(999.999), "1,000.00");
    EXPECT_EQ(amount_text(1234567.5), "1,234,567.50");
    EXPECT_EQ(amount_text(-1234.0), "-1,234.00");
    EXPECT_EQ(quantity_text(100), "100");
    EXPECT_EQ(quantity_text(1000000000), "1,000,000,000");
}

TEST(HostLots, APurchaseIsToldInOneLine) {
    EXPECT_EQ(describe(buy_lots(120000.0, 101.5, 100), 100),
              "11 lots of 100 for 111,650.00, 8,350.00 left over.");
    EXPECT_EQ(describe(buy_lots(10.0, 10.0, 1), 1), "1 lot of 1 for 10.00, 0.00 left over.");
    EXPECT_EQ(describe(buy_lots(10.0, 10.0, 1000), 1000), "Not enough for one lot of 1,000.");
    EXPECT_EQ(describe({}, 1), "Enter an amount, a price and a lot size.");
}

}  // namespace
}  // namespace host
