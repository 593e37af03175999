// The symbol and the account of a tab, as the root drives them.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/tab/tab_fixture.h"
#include "unicomp/FormatUtil/interface/PriceToString.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

const std::string order_entry = "Profile(\"Alpha\").get_ManualTrading()";
const std::string all_fields = "TabCtrl.Update(1, 0x3ff80)";

// What the host sees after a change of symbol while the profile is connected.
bool is_full_change(const calls& seen) {
    return seen.size() == 5 && seen[0] == order_entry &&
           seen[1] == "ManualTrading(\"Alpha\").GetAccounts()" && seen[2] == order_entry &&
           seen[3].find("ManualTrading(\"Alpha\").SetSymbol(") == 0 && seen[4] == all_fields;
}

class tab_symbol : public test::tab_fixture {
protected:
    void make_disconnected_tab() {
        profile->state = eTM_CC_Disconnected;
        make_tab();
        profile->fire_state(eTM_CC_Disconnected);
        reset_record();
    }

    const test::FakeManualTrading::symbol& last_notice() { return profile->trading->symbols.back(); }
};

TEST_F(tab_symbol, a_new_symbol_while_connected_clears_the_prices_and_tells_host_and_bar) {
    make_ready_tab();
    type(eODUE_FirstPrice, L"90");
    type(eODUE_SecondPrice, L"91");
    tab->OnQuote(1.0, 2.0);
    reset_record();
    put_symbol(L"NQZ6");
    EXPECT_TRUE(is_full_change(host.calls())) << ::testing::PrintToString(host.calls());
    EXPECT_EQ(L"", text(eODUE_FirstPrice));
    EXPECT_EQ(L"", text(eODUE_SecondPrice));
    EXPECT_TRUE(field(eODUE_FirstPrice).IsEmpty());
    EXPECT_TRUE(quotes().IsEmpty());
    EXPECT_TRUE(reported().empty());
}

TEST_F(tab_symbol, a_new_symbol_while_not_connected_keeps_the_prices) {
    make_disconnected_tab();
    put_symbol(L"ESZ6");
    for (const ETM_ConnectionChanged state : {eTM_CC_Disconnected, eTM_CC_Connecting}) {
        profile->fire_state(state);
        tab->OnQuote(1.0, 2.0);
        type(eODUE_FirstPrice, L"90");
        reset_record();
        put_symbol(state == eTM_CC_Connecting ? L"NQZ6" : L"YMZ6");
        EXPECT_EQ(0, host.count("GetAccounts"));
        EXPECT_EQ(3u, host.calls().size());
        EXPECT_EQ(L"90", text(eODUE_FirstPrice));
        // The quotes belong to the old symbol in every state.
        EXPECT_TRUE(quotes().IsEmpty());
    }
}

TEST_F(tab_symbol, a_symbol_that_goes_keeps_the_prices_and_sends_a_record_of_zeros) {
    make_ready_tab();
    type(eODUE_FirstPrice, L"90");
    tab->OnQuote(1.0, 2.0);
    reset_record();
    symbol_field().LookupByText(L"", true, false);
    EXPECT_EQ(3u, host.calls().size());
    EXPECT_EQ(all_fields, host.calls().back());
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
    EXPECT_TRUE(quotes().IsEmpty());
    const SManualSymbol& record = last_notice().record;
    unsigned char zeros[sizeof(record)] = {};
    EXPECT_EQ(0, std::memcmp(zeros, &record, sizeof(record)));
    EXPECT_EQ(L"CQG", last_notice().data_feed);
}

TEST_F(tab_symbol, the_notice_carries_the_symbol_and_the_feed_of_the_plug_in) {
    make_ready_tab();
    test::symbol instrument_with_all = instrument(L"OPT");
    instrument_with_all.root = L"R";
    instrument_with_all.description = L"D";
    instrument_with_all.exchange = L"X";
    instrument_with_all.currency = 5;
    instrument_with_all.price_scale_code = 'k';
    instrument_with_all.min_movement = 2.0;
    instrument_with_all.big_point_value = 1000.0;
    instrument_with_all.put_or_call = VARIANT_TRUE;
    instrument_with_all.strike_price = 12.5;
    put_symbol(instrument_with_all);
    const auto& notice = last_notice();
    EXPECT_EQ(L"OPT", notice.name);
    EXPECT_EQ(L"R", notice.root);
    EXPECT_EQ(L"D", notice.description);
    EXPECT_EQ(L"X", notice.exchange);
    EXPECT_EQ(L"CQG", notice.data_feed);
    EXPECT_EQ(3, notice.record.Category);
    EXPECT_EQ(5, notice.record.Currency);
    EXPECT_EQ(45000.0, notice.record.Expiry);
    EXPECT_EQ(2, notice.record.MinMovement);
    EXPECT_EQ(0.03125, notice.record.PriceStep);
    EXPECT_EQ(1000.0, notice.record.BigPointValue);
    EXPECT_EQ(VARIANT_TRUE, notice.record.PutOrCall);
    EXPECT_EQ(12.5, notice.record.StrikePrice);
    EXPECT_EQ(0, notice.record.Reserved);
}

TEST_F(tab_symbol, a_decimal_scale_is_sent_with_a_step_of_zero) {
    make_ready_tab();
    put_symbol(L"NQZ6");
    EXPECT_EQ(0.0, last_notice().record.PriceStep);
}

TEST_F(tab_symbol, the_feed_of_an_unknown_plug_in_is_an_empty_text) {
    profile->plugin = L"Nobody knows it";
    make_ready_tab();
    put_symbol(L"NQZ6");
    EXPECT_EQ(L"", last_notice().data_feed);
}

TEST_F(tab_symbol, without_order_entry_the_symbol_is_reported_and_kept) {
    make_disconnected_tab();
    profile->trading.reset();
    put_symbol(L"ESZ6");
    EXPECT_EQ((std::vector<std::wstring>{L"_trad"}), reported());
    EXPECT_EQ(L"ESZ6", tab->get_SymbolName());
    EXPECT_EQ((calls{order_entry, all_fields}), host.calls());
}

TEST_F(tab_symbol, a_refused_notice_is_reported_and_the_symbol_stays) {
    make_ready_tab();
    host.fail("ManualTrading.SetSymbol", E_ABORT);
    put_symbol(L"NQZ6");
    EXPECT_EQ((std::vector<HRESULT>{E_ABORT}), reported_codes());
    EXPECT_EQ(L"NQZ6", tab->get_SymbolName());
    EXPECT_EQ(all_fields, host.calls().back());
}

TEST_F(tab_symbol, results_that_are_not_zero_are_reported_though_they_are_successes) {
    make_ready_tab();
    host.fail("ManualTrading.SetSymbol", S_FALSE);
    put_symbol(L"NQZ6");
    EXPECT_EQ((std::vector<HRESULT>{S_FALSE}), reported_codes());
    reset_record();
    host.fail("ManualTrading.SetAccount", S_FALSE);
    tab->put_Account(L"A2");
    EXPECT_EQ((std::vector<HRESULT>{S_FALSE}), reported_codes());
}

TEST_F(tab_symbol, prices_are_shown_in_the_scale_of_the_present_symbol) {
    make_disconnected_tab();
    EXPECT_EQ(0, tab->_get_price_format().Code);
    EXPECT_EQ(1, tab->_get_price_format().MinMove);
    put_symbol(L"ESZ6");
    EXPECT_EQ(2, tab->_get_price_format().Code);
    EXPECT_EQ(1, tab->_get_price_format().MinMove);
    const CPriceToString* const made = &tab->_get_price_format();
    EXPECT_EQ(made, &tab->_get_price_format());
    test::symbol fractions = instrument(L"ZB");
    fractions.price_scale_code = 'k';
    put_symbol(fractions);
    EXPECT_EQ('k', tab->_get_price_format().Code);
    symbol_field().LookupByText(L"", true, false);
    EXPECT_EQ(0, tab->_get_price_format().Code);
}

TEST_F(tab_symbol, name_and_id_are_those_of_a_valid_record_only) {
    make_ready_tab();
    EXPECT_EQ(L"ESZ6", tab->get_SymbolName());
    EXPECT_EQ(7, tab->get_SymbolId());
    symbol_field().LookupByText(L"", true, false);
    EXPECT_EQ(L"", tab->get_SymbolName());
    EXPECT_EQ(0, tab->get_SymbolId());
}

TEST_F(tab_symbol, the_record_goes_out_as_it_came) {
    make_ready_tab();
    symbol_info_holder out;
    out.Name = SysAllocString(L"old");
    tab->get_SymbolInfo(out);
    EXPECT_STREQ(L"ESZ6", out.Name);
    EXPECT_EQ(7, out.id);
    EXPECT_EQ(45000.0, out.Expiry);
    EXPECT_TRUE(reported().empty());
}

TEST_F(tab_symbol, asking_for_a_record_that_is_not_valid_is_reported) {
    make_tab();
    symbol_info_holder out;
    tab->get_SymbolInfo(out);
    EXPECT_EQ((std::vector<std::wstring>{L"m_bValid"}), reported());
}

TEST_F(tab_symbol, a_record_of_another_feed_is_ignored) {
    make_ready_tab();
    for (const wchar_t* const feed : {L"Rithmic 01", L"cqg", L"CQG ", L"CQG-FIX"}) {
        test::symbol foreign = instrument(L"NQZ6");
        foreign.data_feed = feed;
        put_symbol(foreign);
        EXPECT_EQ(L"ESZ6", tab->get_SymbolName());
    }
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(tab_symbol, a_record_of_the_own_feed_or_of_none_is_taken) {
    make_ready_tab();
    test::symbol own = instrument(L"NQZ6");
    own.data_feed = L"CQG";
    put_symbol(own);
    EXPECT_EQ(L"NQZ6", tab->get_SymbolName());
    own.name = L"YMZ6";
    own.data_feed.clear();
    put_symbol(own);
    EXPECT_EQ(L"YMZ6", tab->get_SymbolName());
    symbol_info_holder zeros;
    tab->put_SymbolInfo(zeros);
    EXPECT_FALSE(field(eODUE_Symbol).IsEmpty());
    EXPECT_EQ(L"", tab->get_SymbolName());
}

TEST_F(tab_symbol, a_record_that_counts_as_the_same_is_dropped) {
    make_ready_tab();
    type(eODUE_FirstPrice, L"90");
    reset_record();
    put_symbol(L"ESZ6");
    test::symbol same = instrument(L"ESZ6");
    same.id = 99;
    same.expiry = 45001.0;
    same.min_movement = 5.0;
    same.price_scale_code = 'k';
    put_symbol(same);
    EXPECT_EQ(calls{}, host.calls());
    EXPECT_EQ(7, tab->get_SymbolId());
    EXPECT_EQ(L"90", text(eODUE_FirstPrice));
}

TEST_F(tab_symbol, an_id_is_looked_up) {
    make_ready_tab();
    lookup->by_id[55] = instrument(L"NQZ6");
    tab->put_SymbolId(55);
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfoById(55)"));
    EXPECT_EQ(L"NQZ6", tab->get_SymbolName());
    EXPECT_EQ(E_FAIL, raised_by([&] { tab->put_SymbolId(0); }));
}

TEST_F(tab_symbol, a_name_is_looked_up_for_a_plug_in_that_the_service_does_not_know) {
    make_ready_tab();
    lookup->by_name[L"NQZ6"] = instrument(L"NQZ6");
    tab->put_SymbolName(L"NQZ6");
    EXPECT_EQ(1, host.count("Lookup.IsPluginSupported(\"CQG-FIX\")"));
    EXPECT_EQ(1, host.count("Lookup.GetSymbolInfo(\"NQZ6\", 1, \"ESZ6\")"));
    EXPECT_EQ(L"NQZ6", tab->get_SymbolName());
    EXPECT_TRUE(desktop.message_boxes().empty());
}

TEST_F(tab_symbol, a_name_does_nothing_for_a_plug_in_that_the_service_knows) {
    make_ready_tab();
    lookup->supported = true;
    lookup->by_name[L"NQZ6"] = instrument(L"NQZ6");
    tab->put_SymbolName(L"NQZ6");
    tab->put_SymbolName(L"");
    EXPECT_EQ(0, host.count("GetSymbolInfo"));
    EXPECT_EQ(L"ESZ6", tab->get_SymbolName());
    EXPECT_TRUE(reported().empty());
}

TEST_F(tab_symbol, an_empty_or_null_name_fails) {
    make_ready_tab();
    EXPECT_EQ(E_FAIL, raised_by([&] { tab->put_SymbolName(L""); }));
    EXPECT_EQ(E_FAIL, raised_by([&] { tab->put_SymbolName(nullptr); }));
    EXPECT_EQ(2u, reported().size());
    EXPECT_EQ(L"ESZ6", tab->get_SymbolName());
}

TEST_F(tab_symbol, another_account_is_selected_and_sent) {
    make_ready_tab();
    tab->put_Account(L"A2");
    EXPECT_EQ(
        (calls{order_entry, "ManualTrading(\"Alpha\").SetAccount(\"A2\")", "TabCtrl.Update(1, 0x1000)"}),
        host.calls());
    EXPECT_EQ(L"A2", tab->get_Account());
}

TEST_F(tab_symbol, the_selected_account_is_not_sent_again) {
    make_ready_tab();
    tab->put_Account(L"A1");
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(tab_symbol, an_unknown_account_leaves_the_selection_and_sends_it_once_more) {
    make_ready_tab();
    tab->put_Account(L"a2");
    EXPECT_EQ(
        (calls{order_entry, "ManualTrading(\"Alpha\").SetAccount(\"A1\")", "TabCtrl.Update(1, 0x1000)"}),
        host.calls());
    EXPECT_EQ(L"A1", tab->get_Account());
    tab->put_Account(nullptr);
    EXPECT_EQ(2, host.count("SetAccount(\"A1\")"));
    EXPECT_TRUE(reported().empty());
}

TEST_F(tab_symbol, a_refused_account_is_reported_and_shown) {
    make_ready_tab();
    host.fail("ManualTrading.SetAccount", E_ACCESSDENIED);
    tab->put_Account(L"A2");
    EXPECT_EQ((std::vector<HRESULT>{E_ACCESSDENIED}), reported_codes());
    EXPECT_EQ("TabCtrl.Update(1, 0x1000)", host.calls().back());
}

TEST_F(tab_symbol, an_account_without_order_entry_fails) {
    make_ready_tab();
    profile->trading.reset();
    EXPECT_EQ(E_POINTER, raised_by([&] { tab->put_Account(L"A2"); }));
    EXPECT_EQ(1u, reported().size());
}

TEST_F(tab_symbol, the_host_may_change_the_symbol_inside_its_notice) {
    make_ready_tab();
    bool once = true;
    host.on_call("ManualTrading.SetSymbol", [&] {
        if (once) {
            once = false;
            put_symbol(L"YMZ6");
        }
    });
    put_symbol(L"NQZ6");
    EXPECT_EQ(L"YMZ6", tab->get_SymbolName());
    // The outer notice still has its texts.
    EXPECT_EQ(L"NQZ6", last_notice().name);
}

}  // namespace
}  // namespace OV_OrderDeck
