// Values of a row, and their three failures.
#include "charting/orderdeck/src/lookup/SymbolFields.h"

#include <gmock/gmock.h>

#include "charting/orderdeck/src/lookup/FillSymbolInfo.h"
#include "tests/lookup/fake_symbols.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using OV_OrderDeck::GetAsDouble;
using OV_OrderDeck::GetAsLong;
using OV_OrderDeck::GetAsString;
using OV_OrderDeck::GetAsStringStr;
using testing::ElementsAre;

HRESULT raised_by(const std::function<void()>& call) {
    try {
        call();
    } catch (const _com_error& error) {
        return error.Error();
    }
    return S_OK;
}

class symbol_fields : public testing::Test {
protected:
    // The lines of the reports since the last question.
    std::vector<int> reported_lines() {
        std::vector<int> lines;
        for (const auto& report : diagnostics.assertions()) {
            lines.push_back(report.line);
        }
        diagnostics.clear();
        return lines;
    }
    std::vector<std::optional<HRESULT>> reported_codes() {
        std::vector<std::optional<HRESULT>> codes;
        for (const auto& report : diagnostics.assertions()) {
            codes.push_back(report.hresult);
        }
        diagnostics.clear();
        return codes;
    }

    // One reader's three failures, each raised with its own result and reported.
    void expect_three_failures(const std::string& field, const std::function<void()>& read) {
        host.fail("Table.get_Field", E_ACCESSDENIED, 1);
        EXPECT_EQ(raised_by(read), E_ACCESSDENIED);
        EXPECT_THAT(reported_codes(), ElementsAre(E_ACCESSDENIED));
        host.forget_faults();
        host.leave_unwritten("Table.get_Field");
        EXPECT_EQ(raised_by(read), E_POINTER);
        EXPECT_THAT(reported_codes(), ElementsAre(E_POINTER));
        host.forget_faults();
        host.fail(field, E_ABORT, 1);
        EXPECT_EQ(raised_by(read), E_ABORT);
        EXPECT_THAT(reported_codes(), ElementsAre(E_ABORT));
    }

    test::fake_host host;
    com_ptr<test::FakeTable> table =
        platform::make_com<test::FakeTable>(host, std::vector{test::symbol_row(5, L"ESZ6")});
    diagnostics_recorder diagnostics;
};

TEST_F(symbol_fields, a_number_a_price_and_a_text_come_from_their_field) {
    EXPECT_EQ(GetAsLong(eOVF_Id, *table), 5);
    EXPECT_EQ(GetAsDouble(eOVF_StrikePrice, *table), 125.5);
    EXPECT_STREQ(GetAsString(eOVF_Name, *table), L"ESZ6");
    EXPECT_EQ(GetAsStringStr(eOVF_Name, *table), L"ESZ6");
    EXPECT_THAT(host.calls(), ElementsAre("Table.get_Field(1016)", "Field(\"1016\").get_AsLong()",
                                          "Table.get_Field(32)", "Field(\"32\").get_AsDouble()",
                                          "Table.get_Field(31)", "Field(\"31\").get_AsString()",
                                          "Table.get_Field(31)", "Field(\"31\").get_AsString()"));
}

TEST_F(symbol_fields, a_null_text_is_empty) {
    test::row unnamed = test::symbol_row(5, L"ESZ6");
    unnamed[31] = test::cell();
    table->fill({unnamed});
    EXPECT_TRUE(!GetAsString(eOVF_Name, *table));
    EXPECT_EQ(GetAsStringStr(eOVF_Name, *table), L"");
}

TEST_F(symbol_fields, each_reader_reports_and_raises_its_three_failures) {
    expect_three_failures("Field(\"1016\").get_AsLong", [&] { GetAsLong(eOVF_Id, *table); });
    expect_three_failures("Field(\"32\").get_AsDouble", [&] { GetAsDouble(eOVF_StrikePrice, *table); });
    expect_three_failures("Field(\"31\").get_AsString", [&] { GetAsString(eOVF_Name, *table); });
    expect_three_failures("Field(\"31\").get_AsString", [&] { GetAsStringStr(eOVF_Name, *table); });
}

TEST_F(symbol_fields, the_failures_of_a_number_are_reported_at_lines_199_to_201) {
    host.fail("Table.get_Field", E_FAIL, 1);
    EXPECT_EQ(raised_by([&] { GetAsLong(eOVF_Id, *table); }), E_FAIL);
    EXPECT_THAT(reported_lines(), ElementsAre(199));
    host.forget_faults();
    host.leave_unwritten("Table.get_Field");
    EXPECT_EQ(raised_by([&] { GetAsLong(eOVF_Id, *table); }), E_POINTER);
    EXPECT_THAT(reported_lines(), ElementsAre(200));
    host.forget_faults();
    host.fail("Field.get_AsLong", E_FAIL, 1);
    EXPECT_EQ(raised_by([&] { GetAsLong(eOVF_Id, *table); }), E_FAIL);
    EXPECT_THAT(reported_lines(), ElementsAre(201));
}

TEST_F(symbol_fields, a_text_is_taken_over_from_its_only_holder) {
    _bstr_t text(L"ESZ6");
    const wchar_t* const characters = text;
    BSTR target = SysAllocString(L"old");
    OV_OrderDeck::take_over(target, text);
    EXPECT_EQ(target, characters);
    EXPECT_TRUE(!text);
    SysFreeString(target);
}

TEST_F(symbol_fields, a_text_that_a_copy_shares_is_not_taken_over) {
    _bstr_t text(L"ESZ6");
    const _bstr_t copy = text;
    BSTR target = SysAllocString(L"old");
    EXPECT_EQ(raised_by([&] { OV_OrderDeck::take_over(target, text); }), E_POINTER);
    EXPECT_STREQ(target, L"old");
    EXPECT_STREQ(copy, L"ESZ6");
    SysFreeString(target);
}

TEST_F(symbol_fields, a_null_text_is_taken_over_as_null) {
    _bstr_t text;
    BSTR target = SysAllocString(L"old");
    OV_OrderDeck::take_over(target, text);
    EXPECT_EQ(target, nullptr);
}

}  // namespace
