#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "centre_fixture.h"
#include "symbols/choice.h"
#include "symbols/query.h"
#include "symbols/table.h"

namespace host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

instrument make_one(int id, instrument_kind kind, std::string name, std::string feed = "Main") {
    instrument one;
    one.id = id;
    one.kind = kind;
    one.name = std::move(name);
    one.root = "RT";
    one.description = "說明";
    one.exchange = "X";
    one.time_zone = "Asia/Taipei";
    one.currency = "TWD";
    one.scale = 'k';
    one.min_move = 4;
    one.point_value = 50.0;
    one.first_price = 10.0;
    one.feed = std::move(feed);
    return one;
}

symbol_store make_store() {
    instrument put = make_one(3, instrument_kind::option, "PUT1", "Other");
    put.expiry = 46374.0;
    put.strike = 420.5;
    put.put = true;
    instrument elsewhere = make_one(6, instrument_kind::stock, "AAA");
    elsewhere.exchange = "Y";
    return symbol_store({make_one(1, instrument_kind::stock, "AAA"),
                         make_one(2, instrument_kind::basket, "BK1"), put,
                         make_one(4, instrument_kind::basket, "BK2"),
                         make_one(5, instrument_kind::stock, "OLD", ""), elsewhere});
}

class HostSymbolTables : public ::testing::Test {
protected:
    ref<IovField> field(tagOVFIELDID id) {
        IovField* raw = nullptr;
        EXPECT_EQ(m_table->get_Field(id, &raw), S_OK) << id;
        return ref<IovField>(raw, false);
    }
    LONG number(tagOVFIELDID id) {
        LONG value = -7;
        EXPECT_EQ(field(id)->get_AsLong(&value), S_OK) << id;
        return value;
    }
    double real(tagOVFIELDID id) {
        double value = -7.0;
        EXPECT_EQ(field(id)->get_AsDouble(&value), S_OK) << id;
        return value;
    }
    std::string text(tagOVFIELDID id) {
        BSTR value = nullptr;
        EXPECT_EQ(field(id)->get_AsString(&value), S_OK) << id;
        return take(value);
    }
    bool at_end() {
        VARIANT_BOOL end = 7;
        EXPECT_EQ(m_table->get_EndOfTable(&end), S_OK);
        return end == VARIANT_TRUE;
    }
    // The ids from the first row to the end.
    std::vector<LONG> walk(tagOVFIELDID id) {
        std::vector<LONG> all;
        EXPECT_EQ(m_table->MoveFirst(), S_OK);
        while (!at_end()) {
            all.push_back(number(id));
            EXPECT_EQ(m_table->MoveNext(), S_OK);
        }
        return all;
    }
    HRESULT query_symbol(LONG id) {
        EXPECT_EQ(m_request->put_Symbol(0, id), S_OK);
        return m_query->QuerySymbols(0, m_request.get(), m_table.get());
    }
    LONG id_of(LONG feed, std::string_view name, LONG category, LONG exchange) {
        LONG id = -7;
        EXPECT_EQ(m_query->get_SymbolId(feed, bstr(name), category, exchange, 0, 0, 0, &id), S_OK);
        return id;
    }

    symbol_store m_store = make_store();
    ref<symbol_query> m_query = make<symbol_query>(m_store);
    ref<symbol_table> m_table = make<symbol_table>();
    ref<symbol_request> m_request = make<symbol_request>();
};

TEST_F(HostSymbolTables, TheOrdinaryTableHasAllRowsButBaskets) {
    EXPECT_EQ(m_query->QuerySymbols(0, nullptr, m_table.get()), S_OK);
    EXPECT_THAT(walk(eOVF_Id), ElementsAre(1, 3, 5, 6));
    EXPECT_EQ(query_symbol(0), S_OK);
    EXPECT_THAT(walk(eOVF_Id), ElementsAre(1, 3, 5, 6));
}

TEST_F(HostSymbolTables, TheSecondTableHasTheBasketsUnderItsOwnIdColumn) {
    EXPECT_EQ(m_query->QuerySecondTable(0, 0, m_table.get()), S_OK);
    EXPECT_EQ(number(eOVF_SecondId), 2);
    EXPECT_THAT(walk(eOVF_SecondId), ElementsAre(2, 4));
    m_table->MoveFirst();
    IovField* raw = nullptr;
    EXPECT_EQ(m_table->get_Field(eOVF_Id, &raw), E_INVALIDARG);
    EXPECT_EQ(raw, nullptr);
}

TEST_F(HostSymbolTables, EveryColumnGivesItsFieldByItsOwnReader) {
    ASSERT_EQ(query_symbol(3), S_OK);
    EXPECT_EQ(number(eOVF_PriceScaleCode), 'k');
    EXPECT_EQ(text(eOVF_Exchange), "X");
    EXPECT_EQ(text(eOVF_Name), "PUT1");
    EXPECT_EQ(real(eOVF_StrikePrice), 420.5);
    EXPECT_EQ(text(eOVF_Description), "說明");
    EXPECT_EQ(number(eOVF_Expiry), 46374);
    EXPECT_EQ(number(eOVF_Category), 3);
    EXPECT_EQ(number(eOVF_DataFeedId), 2);
    EXPECT_EQ(text(eOVF_DataFeed), "Other");
    EXPECT_EQ(text(eOVF_Root), "RT");
    EXPECT_EQ(real(eOVF_BigPointValue), 50.0);
    EXPECT_EQ(real(eOVF_MinMovement), 4.0);
    EXPECT_EQ(number(eOVF_PutOrCall), 1);
    EXPECT_EQ(number(eOVF_CurrencyKey), 901);
    EXPECT_EQ(text(eOVF_ExchangeTZI), "Asia/Taipei");
    EXPECT_EQ(number(eOVF_Id), 3);
}

TEST_F(HostSymbolTables, AColumnAskedForAsAnotherTypeFails) {
    ASSERT_EQ(query_symbol(1), S_OK);
    LONG whole = 0;
    double real_value = 0.0;
    BSTR value = nullptr;
    EXPECT_EQ(field(eOVF_Name)->get_AsLong(&whole), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(field(eOVF_Category)->get_AsDouble(&real_value), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(field(eOVF_Category)->get_AsString(&value), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(field(eOVF_Name)->get_AsString(nullptr), E_POINTER);
    EXPECT_EQ(value, nullptr);
}

TEST_F(HostSymbolTables, ARowThatNoFeedServesHasFeedZero) {
    ASSERT_EQ(query_symbol(5), S_OK);
    EXPECT_EQ(number(eOVF_DataFeedId), 0);
    EXPECT_EQ(text(eOVF_DataFeed), "");
    EXPECT_EQ(number(eOVF_PutOrCall), 0);
    EXPECT_EQ(number(eOVF_Expiry), 0);
}

TEST_F(HostSymbolTables, ARequestForOneSymbolGivesItsRowAlone) {
    EXPECT_EQ(query_symbol(6), S_OK);
    EXPECT_EQ(number(eOVF_Id), 6);
    EXPECT_THAT(walk(eOVF_Id), ElementsAre(6));
    EXPECT_EQ(query_symbol(99), S_OK);
    EXPECT_TRUE(at_end());
    // A basket is in the other table.
    EXPECT_EQ(query_symbol(2), S_OK);
    EXPECT_TRUE(at_end());
}

TEST_F(HostSymbolTables, AnEmptyTableEndsAtOnceAndHasNoFields) {
    EXPECT_TRUE(at_end());
    EXPECT_EQ(m_table->MoveFirst(), S_OK);
    EXPECT_EQ(m_table->MoveNext(), S_OK);
    EXPECT_TRUE(at_end());
    IovField* raw = nullptr;
    EXPECT_EQ(m_table->get_Field(eOVF_Name, &raw), E_UNEXPECTED);
    EXPECT_EQ(m_table->get_EndOfTable(nullptr), E_POINTER);
    EXPECT_EQ(m_table->get_Field(eOVF_Name, nullptr), E_POINTER);
}

TEST_F(HostSymbolTables, TextsBecomeIdsAndWhatIsUnknownIsZero) {
    LONG id = -7;
    EXPECT_EQ(m_query->get_DataFeedId(bstr("Other"), &id), S_OK);
    EXPECT_EQ(id, 2);
    EXPECT_EQ(m_query->get_DataFeedId(bstr("other"), &id), S_OK);
    EXPECT_EQ(id, 0);
    EXPECT_EQ(m_query->get_ExchangeId(bstr("Y"), &id), S_OK);
    EXPECT_EQ(id, 2);
    EXPECT_EQ(m_query->get_ExchangeId(nullptr, &id), S_OK);
    EXPECT_EQ(id, 0);
    EXPECT_EQ(id_of(1, "aaa", 2, 1), 1);
    EXPECT_EQ(id_of(1, "AAA", 2, 2), 6);
    EXPECT_EQ(id_of(1, "AAA", 3, 1), 0);
    EXPECT_EQ(id_of(1, "AAA", 254, 1), 0);
    EXPECT_EQ(id_of(1, "AAA", 2, 0), 0);
    EXPECT_EQ(id_of(0, "OLD", 2, 1), 0);
    EXPECT_EQ(m_query->get_SymbolId(1, bstr("AAA"), 2, 1, 0, 0, 0, nullptr), E_POINTER);
}

TEST_F(HostSymbolTables, TheSecondTableStandsOnTheSymbolThatWasResolved) {
    EXPECT_EQ(id_of(1, "BK2", 18, 1), 4);
    EXPECT_EQ(m_query->QuerySecondTable(0, 0, m_table.get()), S_OK);
    EXPECT_EQ(number(eOVF_SecondId), 4);
    EXPECT_THAT(walk(eOVF_SecondId), ElementsAre(2, 4));
}

TEST_F(HostSymbolTables, CurrenciesAreFoundByTheKeysOfTheRows) {
    const auto currencies = query<ICurrencyLookup>(m_query->unknown());
    LONG code = -7;
    EXPECT_EQ(currencies->get_Currency(840, &code), S_OK);
    EXPECT_EQ(code, 1);
    EXPECT_EQ(currencies->get_Currency(901, &code), S_OK);
    EXPECT_EQ(code, 2);
    EXPECT_EQ(currencies->get_Currency(1, &code), E_INVALIDARG);
    EXPECT_EQ(code, 2);
    EXPECT_EQ(currencies->get_Currency(840, nullptr), E_POINTER);
}

TEST_F(HostSymbolTables, TablesAndRequestsOfOthersAreRefusedAndReservedSlotsAnswerNothing) {
    EXPECT_EQ(m_query->QuerySymbols(0, nullptr, nullptr), E_INVALIDARG);
    EXPECT_EQ(m_query->QuerySecondTable(0, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(m_request->put_Symbol(1, 5), E_INVALIDARG);
    EXPECT_EQ(m_request->put_Symbol(0, -1), E_INVALIDARG);
    EXPECT_EQ(m_query->ISymbolQuery_Reserved4(), E_NOTIMPL);
    EXPECT_EQ(m_table->IovTable_Reserved16(), E_NOTIMPL);
}

class HostSymbolChoice : public ::testing::Test {
protected:
    void SetUp() override { m_choice->Prepare(); }

    symbol_store m_store = make_store();
    ref<symbol_choice> m_choice = make<symbol_choice>(m_store);
};

TEST_F(HostSymbolChoice, APresentChoiceIsTakenByFeedNameCategoryAndExchange) {
    EXPECT_EQ(m_choice->Select(bstr("Main"), bstr("AAA"), 2, bstr("Y")), S_OK);
    EXPECT_EQ(m_choice->present(), 6);
    EXPECT_EQ(m_choice->feed(), "Main");
    EXPECT_EQ(m_choice->Select(bstr("Main"), bstr("ZZZ"), 2, bstr("Y")), S_FALSE);
    EXPECT_EQ(m_choice->present(), 6);
}

TEST_F(HostSymbolChoice, FeedAndNameOneByOneDoTheSameAndATypedTextGoesToTheSearchLine) {
    EXPECT_EQ(m_choice->put_DataFeed(bstr("Main")), S_OK);
    EXPECT_EQ(m_choice->put_Name(bstr("bk1")), S_OK);
    EXPECT_EQ(m_choice->put_Description(bstr("whatever")), S_OK);
    EXPECT_EQ(m_choice->present(), 2);
    EXPECT_EQ(m_choice->put_Name(bstr("AAA")), S_OK);
    // Two of that name: neither is the present one.
    EXPECT_EQ(m_choice->present(), 0);
    EXPECT_EQ(m_choice->text(), "");
    IQVDlgSymbols* dialog = nullptr;
    ASSERT_EQ(m_choice->get_Dialog(&dialog), S_OK);
    EXPECT_EQ(dialog->put_Filter(bstr("aa")), S_OK);
    dialog->Release();
    EXPECT_EQ(m_choice->text(), "aa");
}

TEST_F(HostSymbolChoice, WhatWasPickedIsToldUntilItIsTakenBack) {
    LONG id = -7;
    EXPECT_EQ(m_choice->get_SymbolId(&id), E_UNEXPECTED);
    EXPECT_EQ(m_choice->get_DataFeedId(&id), E_UNEXPECTED);
    m_choice->put_DataFeed(bstr("Main"));
    m_choice->pick(m_store.find(3));
    EXPECT_EQ(m_choice->OnDialogEnd(0, 0), S_OK);
    EXPECT_EQ(m_choice->get_SymbolId(&id), S_OK);
    EXPECT_EQ(id, 3);
    EXPECT_EQ(m_choice->get_DataFeedId(&id), S_OK);
    EXPECT_EQ(id, 2);
    BSTR feed = nullptr;
    EXPECT_EQ(m_choice->get_DataFeed(&feed), S_OK);
    // That of the picked symbol, not the one that the dialog began with.
    EXPECT_EQ(take(feed), "Other");
    EXPECT_EQ(m_choice->OnDialogEnd(1, 0), S_OK);
    EXPECT_EQ(m_choice->get_SymbolId(&id), E_UNEXPECTED);
    m_choice->pick(m_store.find(3));
    EXPECT_EQ(m_choice->put_Kind(0), S_OK);
    EXPECT_EQ(m_choice->get_SymbolId(&id), E_UNEXPECTED);
}

TEST_F(HostSymbolChoice, OneSymbolAndNoSeriesIsAllItManages) {
    EXPECT_EQ(m_choice->put_Mode(0, 1), S_OK);
    EXPECT_EQ(m_choice->put_Mode(1, 1), E_INVALIDARG);
    EXPECT_EQ(m_choice->put_Mode(0, 0), E_INVALIDARG);
    EXPECT_EQ(m_choice->put_Kind(1), E_INVALIDARG);
}

}  // namespace
}  // namespace host
