#include "charting/orderdeck/src/tab/DataFeeds.h"

#include <gtest/gtest.h>

#include "platform/registry.h"

namespace OV_OrderDeck {
namespace {

const CString key_path = L"SOFTWARE\\OrderDeck Tests\\tab_tests\\Plugin vs DataFeed";

TEST(data_feed_of_plugin, is_that_of_the_association_or_empty) {
    EXPECT_EQ(L"CQG", data_feed_of_plugin(L"CQG-FIX"));
    EXPECT_EQ(L"TradeNode", data_feed_of_plugin(L"Avanza"));
    EXPECT_EQ(L"", data_feed_of_plugin(L"Nobody knows it"));
    EXPECT_EQ(L"", data_feed_of_plugin(L""));
}

TEST(data_feed_of_plugin, reads_the_registry_on_first_use_only) {
    ASSERT_EQ(L"CQG", data_feed_of_plugin(L"CQG-FIX"));
    platform::registry_key key;
    ASSERT_EQ(ERROR_SUCCESS, key.Create(HKEY_CURRENT_USER, key_path));
    ASSERT_EQ(ERROR_SUCCESS, key.SetString(L"CQG-FIX", L"Changed"));
    EXPECT_EQ(L"CQG", data_feed_of_plugin(L"CQG-FIX"));
    EXPECT_EQ(ERROR_SUCCESS, key.SetString(L"CQG-FIX", L"CQG"));
    // Written once at the first use, not at each.
    ASSERT_EQ(ERROR_SUCCESS, key.DeleteValue(L"Avanza"));
    EXPECT_EQ(L"TradeNode", data_feed_of_plugin(L"Avanza"));
    DWORD type = 0;
    DWORD bytes = 0;
    EXPECT_EQ(ERROR_FILE_NOT_FOUND, key.QueryValue(L"Avanza", type, nullptr, bytes));
    EXPECT_EQ(ERROR_SUCCESS, key.SetString(L"Avanza", L"TradeNode"));
}

}  // namespace
}  // namespace OV_OrderDeck
