#include <gtest/gtest.h>

#include <array>
#include <map>

#include "TradingCenter.h"
#include "platform/registry.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/failing_registry.h"
#include "unicomp/ProfileVsDataFeedAssociation/interface/ProfileVsDataFeedAssociation.h"

namespace {

using platform::registry_key;
using association = Unicomp::CProfileDataFeedAssociation<IUnknown>;
using table = std::map<CString, CString>;
using texts = std::vector<std::wstring>;

const CString key_path = L"SOFTWARE\\OrderDeck Tests\\association_tests\\Plugin vs DataFeed";

const table& built_in() {
    static const table rows{
        {L"Interactive Brokers", L"Interactive Brokers"},
        {L"Open E Cry", L"Open E Cry"},
        {L"Rithmic 01", L"Rithmic 01"},
        {L"Zen-Fire", L"Zen-Fire"},
        {L"Patsystems", L"Patsystems"},
        {L"Trading Technologies", L"Trading Technologies"},
        {L"Dukascopy", L"Dukascopy"},
        {L"PFGBEST", L"PFGBEST"},
        {L"MB Trading", L"MB Trading"},
        {L"LMAX", L"LMAX"},
        {L"CQG", L"CQG"},
        {L"MIG Bank", L"MIG Bank"},
        {L"WeBank", L"WeBank"},
        {L"AvaTrade", L"AvaTrade"},
        {L"AMPTTNet", L"AMPTTNet"},
        {L"OANDA", L"OANDA"},
        {L"IWBank Quick Trade", L"IWBank QuickTrade"},
        {L"Rithmic Paper Trading", L"Rithmic 01"},
        {L"ZenFire Local Sim", L"Zen-Fire"},
        {L"Rithmic Local Sim", L"Rithmic 01"},
        {L"Rithmic+", L"Rithmic 01"},
        {L"Avanza", L"TradeNode"},
        {L"CQG-FIX", L"CQG"},
        {L"TTNet", L"AMPTTNet"},
    };
    return rows;
}

class Association : public testing::Test {
protected:
    Association() { registry_key::DeleteTree(HKEY_CURRENT_USER, key_path); }
    ~Association() override { registry_key::DeleteTree(HKEY_CURRENT_USER, key_path); }

    static registry_key open_key() {
        registry_key key;
        EXPECT_EQ(key.Create(HKEY_CURRENT_USER, key_path), ERROR_SUCCESS);
        return key;
    }

    static bool key_exists() {
        return registry_key().Open(HKEY_CURRENT_USER, key_path, KEY_READ) == ERROR_SUCCESS;
    }

    // The rows of the key, each a text with its terminator.
    static table stored() {
        table rows;
        const registry_key key = open_key();
        DWORD subkeys = 0;
        DWORD count = 0;
        EXPECT_EQ(key.QueryInfo(subkeys, count), ERROR_SUCCESS);
        for (DWORD i = 0; i < count; ++i) {
            std::array<wchar_t, 1024> name{};
            std::array<wchar_t, 1024> text{};
            auto length = static_cast<DWORD>(name.size());
            EXPECT_EQ(key.EnumValue(i, name.data(), length), ERROR_SUCCESS);
            DWORD type = REG_NONE;
            DWORD bytes = sizeof(text);
            EXPECT_EQ(key.QueryValue(name.data(), type, reinterpret_cast<BYTE*>(text.data()), bytes),
                      ERROR_SUCCESS);
            EXPECT_EQ(type, DWORD{REG_SZ}) << name.data();
            rows[name.data()] = text.data();
        }
        return rows;
    }

    static CString feed_of(const association& feeds, const wchar_t* plugin) {
        return platform::text_of(feeds.DetectDataFeedByPluginName(plugin));
    }

    texts assertions() const {
        texts found;
        for (const reported_assertion& each : m_recorder.assertions()) {
            EXPECT_NE(each.file.find(L"ProfileVsDataFeedAssociations"), std::wstring::npos) << each.file;
            found.push_back(each.description);
        }
        return found;
    }

    diagnostics_recorder m_recorder;
};

TEST_F(Association, HasEveryBuiltInRow) {
    const association feeds;
    for (const auto& [plugin, feed] : built_in()) {
        EXPECT_EQ(feed_of(feeds, plugin.c_str()), feed) << plugin;
        EXPECT_TRUE(feeds.HasPluginName(plugin.c_str()));
    }
}

TEST_F(Association, WithoutTheKeyMakesItWithTheBuiltInRowsAndNoOther) {
    ASSERT_FALSE(key_exists());
    const association feeds;
    EXPECT_EQ(stored(), built_in());
    EXPECT_EQ(built_in().size(), 24U);
    EXPECT_EQ(assertions(), texts{});
}

TEST_F(Association, TheContextIsBelowTheSettingsRoot) {
    EXPECT_EQ(platform::text_of(association().context()), key_path);
}

TEST_F(Association, ARowOfTheRegistryReplacesABuiltInOne) {
    ASSERT_EQ(open_key().SetString(L"CQG", L"My Feed"), ERROR_SUCCESS);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"CQG"), L"My Feed");
    table expected = built_in();
    expected[L"CQG"] = L"My Feed";
    EXPECT_EQ(stored(), expected);
    EXPECT_EQ(assertions(), texts{});
}

TEST_F(Association, ExtraRowsAreKept) {
    ASSERT_EQ(open_key().SetString(L"Paper", L"自由行情"), ERROR_SUCCESS);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"Paper"), L"自由行情");
    table expected = built_in();
    expected[L"Paper"] = L"自由行情";
    EXPECT_EQ(stored(), expected);
}

TEST_F(Association, AnExpandableTextIsARowToo) {
    const wchar_t text[] = L"Feed %PATH%";
    ASSERT_EQ(open_key().SetValue(L"LMAX", REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(text), sizeof(text)),
              ERROR_SUCCESS);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"LMAX"), L"Feed %PATH%");
    EXPECT_EQ(stored().at(L"LMAX"), L"Feed %PATH%");
}

TEST_F(Association, AnUnknownPluginHasNoFeedAndAddsNoRow) {
    const association feeds;
    EXPECT_EQ(feeds.DetectDataFeedByPluginName(L"Nobody").length(), 0U);
    EXPECT_EQ(feeds.DetectDataFeedByPluginName(_bstr_t()).length(), 0U);
    EXPECT_FALSE(feeds.HasPluginName(L"Nobody"));
    feeds.serialize();
    EXPECT_EQ(stored(), built_in());
}

TEST_F(Association, NamesAreToldApartExactly) {
    const association feeds;
    EXPECT_TRUE(feeds.HasPluginName(L"Zen-Fire"));
    EXPECT_FALSE(feeds.HasPluginName(L"zen-fire"));
    EXPECT_FALSE(feeds.HasPluginName(L"Zen-Fire "));
    EXPECT_FALSE(feeds.HasPluginName(L"Zen"));
    EXPECT_FALSE(feeds.HasPluginName(L""));
    EXPECT_EQ(feed_of(feeds, L"zen-fire"), L"");
}

TEST_F(Association, ReadsThenWritesInTheOrderOfTheNames) {
    ASSERT_EQ(open_key().SetString(L"AAA", L"Feed"), ERROR_SUCCESS);
    texts expected{L"open_key " + key_path + L" 2001f",
                   L"query_info",
                   L"enum_value 0",
                   L"query_value AAA",
                   L"close_key",
                   L"create_key " + key_path + L" 2001f"};
    table rows = built_in();
    rows[L"AAA"] = L"Feed";
    for (const auto& [plugin, feed] : rows) {
        expected.push_back(L"set_value " + plugin);
    }
    expected.push_back(L"close_key");
    const failing_registry registry;
    const association feeds;
    EXPECT_EQ(registry.calls(), expected);
}

TEST_F(Association, AKeyThatDoesNotOpenLeavesTheBuiltInTable) {
    ASSERT_EQ(open_key().SetString(L"CQG", L"My Feed"), ERROR_SUCCESS);
    failing_registry registry;
    registry.fail("open_key", ERROR_ACCESS_DENIED);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"CQG"), L"CQG");
    EXPECT_EQ(assertions(), texts{});
}

TEST_F(Association, AnUnknownNumberOfRowsIsAssertedAndCountsAsNone) {
    ASSERT_EQ(open_key().SetString(L"CQG", L"My Feed"), ERROR_SUCCESS);
    failing_registry registry;
    registry.fail("query_info", ERROR_ACCESS_DENIED);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"CQG"), L"CQG");
    EXPECT_EQ(assertions(), texts{L"0L == lRes"});
}

TEST_F(Association, ANameOf254CharactersFitsAndOneMoreIsAssertedAndStoredEmpty) {
    const CString fits(254, L'f');
    ASSERT_EQ(open_key().SetString(fits, L"Feed"), ERROR_SUCCESS);
    {
        const association feeds;
        EXPECT_EQ(feed_of(feeds, fits.c_str()), L"Feed");
        EXPECT_EQ(assertions(), texts{});
    }
    const CString longer(255, L'l');
    ASSERT_EQ(open_key().SetString(longer, L"Feed"), ERROR_SUCCESS);
    const association feeds;
    EXPECT_FALSE(feeds.HasPluginName(longer.c_str()));
    EXPECT_TRUE(feeds.HasPluginName(L""));
    EXPECT_EQ(feed_of(feeds, L""), L"");
    EXPECT_EQ(feed_of(feeds, L"CQG"), L"CQG");
    EXPECT_EQ(assertions(), texts{L"0L == lRes"});
    EXPECT_EQ(stored().at(longer), L"Feed") << "the user's own row stays in the registry";
}

TEST_F(Association, ATextThatDoesNotFitIsAssertedAndStoredEmpty) {
    ASSERT_EQ(open_key().SetString(L"Fits", CString(254, L'f')), ERROR_SUCCESS);
    ASSERT_EQ(open_key().SetString(L"CQG", CString(255, L'f')), ERROR_SUCCESS);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"Fits"), CString(254, L'f'));
    EXPECT_TRUE(feeds.HasPluginName(L"CQG"));
    EXPECT_EQ(feed_of(feeds, L"CQG"), L"");
    EXPECT_EQ(assertions(), texts{L"0L == lRes"});
}

TEST_F(Association, WhatIsNoTextIsAssertedAndStoredEmpty) {
    const registry_key key = open_key();
    ASSERT_EQ(key.SetDWORD(L"CQG", 5), ERROR_SUCCESS);
    const wchar_t endless[] = {L'a', L'b'};
    ASSERT_EQ(key.SetValue(L"LMAX", REG_SZ, reinterpret_cast<const BYTE*>(endless), sizeof(endless)),
              ERROR_SUCCESS);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"CQG"), L"");
    EXPECT_TRUE(feeds.HasPluginName(L"CQG"));
    EXPECT_EQ(feed_of(feeds, L"LMAX"), L"");
    EXPECT_EQ(assertions(), (texts{L"0L == lRes", L"0L == lRes"}));
}

TEST_F(Association, AKeyThatCannotBeMadeIsAssertedAndNothingIsWritten) {
    failing_registry registry;
    registry.fail("create_key", ERROR_ACCESS_DENIED);
    const association feeds;
    EXPECT_EQ(feed_of(feeds, L"Avanza"), L"TradeNode");
    EXPECT_EQ(assertions(), texts{L"key.Create(HKEY_CURRENT_USER, context()) == ERROR_SUCCESS"});
    EXPECT_EQ(registry.calls().size(), 2U) << "open and create";
}

TEST_F(Association, ARowThatCannotBeWrittenIsAssertedAndTheNextAreWritten) {
    {
        failing_registry registry;
        registry.fail("set_value", ERROR_ACCESS_DENIED, 2, 3);
        const association feeds;
        EXPECT_EQ(assertions(), (texts{L"0L == Res", L"0L == Res", L"0L == Res"}));
    }
    table expected = built_in();
    auto failed = std::next(expected.begin());
    for (int i = 0; i < 3; ++i) {
        failed = expected.erase(failed);
    }
    EXPECT_EQ(stored(), expected);
}

TEST_F(Association, BothInstantiationsBehaveAlike) {
    const Unicomp::CProfileDataFeedAssociation<ITC_TradingProfile> feeds;
    EXPECT_EQ(stored(), built_in());
    EXPECT_EQ(platform::text_of(feeds.DetectDataFeedByPluginName(L"TTNet")), L"AMPTTNet");
    EXPECT_EQ(platform::text_of(feeds.context()), key_path);
}

}  // namespace
