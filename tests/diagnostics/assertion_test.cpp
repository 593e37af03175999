// Assertion records, and what a call site makes of the answer.
#include <gtest/gtest.h>

#include "diagnostics/AsserterClass.h"
#include "diagnostics/BugSlayerUtil.h"
#include "tests/diagnostics/record_texts.h"

namespace {

using BugSlayerUtil::AsserterClass;
using BugSlayerUtil::assertion;
using BugSlayerUtil::code_location;
using Texts = std::vector<std::wstring>;

constexpr code_location somewhere{"unicomp/some.cpp", 42, "work", "void work(int)"};

// The client connects at the first report of the process; the tests here begin after that.
class Assertion : public testing::Test {
protected:
    Assertion() {
        BugSlayerUtil::trace(somewhere, L"connect");
        recorder.clear();
        SetLastError(0);
    }

    diagnostics_recorder recorder;
};

TEST_F(Assertion, WritesItsFieldsInTheirOrder) {
    SetLastError(5);
    AsserterClass asserter(somewhere, 3);
    EXPECT_EQ(asserter.Report(L"bEnabled", E_FAIL), S_OK);
    const processed_record record = only_record(recorder);
    EXPECT_EQ(field_list(record),
              (Texts{L"<<ASSERT>> EMPTY", L"$Type BSTR", L"Last Error Code UI4", L"HRESULT I4",
                     L"Description BSTR", L"Thread ID UI4", L"File BSTR", L"Line INT", L"$Group INT",
                     L"Function BSTR", L"$FuncSig BSTR", L"$EXCEPTION_POINTERS UI8"}));
    EXPECT_EQ(text_of(record, L"$Type"), L"ASSERT");
    EXPECT_EQ(number_of(record, L"Last Error Code"), 5);
    EXPECT_EQ(number_of(record, L"HRESULT"), E_FAIL);
    EXPECT_EQ(text_of(record, L"Description"), L"bEnabled");
    EXPECT_EQ(number_of(record, L"Thread ID"), GetCurrentThreadId());
    EXPECT_EQ(text_of(record, L"File"), L"unicomp/some.cpp");
    EXPECT_EQ(number_of(record, L"Line"), 42);
    EXPECT_EQ(number_of(record, L"$Group"), 3);
    EXPECT_EQ(text_of(record, L"Function"), L"work");
    EXPECT_EQ(text_of(record, L"$FuncSig"), L"void work(int)");
    EXPECT_NE(number_of(record, L"$EXCEPTION_POINTERS"), 0);
}

TEST_F(Assertion, LeavesOutWhatIsNotSet) {
    AsserterClass asserter(somewhere);
    asserter.Report(L"");
    EXPECT_EQ(field_list(only_record(recorder)),
              (Texts{L"<<ASSERT>> EMPTY", L"$Type BSTR", L"Thread ID UI4", L"File BSTR", L"Line INT",
                     L"Function BSTR", L"$FuncSig BSTR", L"$EXCEPTION_POINTERS UI8"}));
}

TEST_F(Assertion, WritesAResultThatIsGivenAlsoWhenItIsZero) {
    assertion(somewhere, "work", S_OK);
    EXPECT_EQ(number_of(only_record(recorder), L"HRESULT"), 0);
}

TEST_F(Assertion, IsMadeFilteredProcessedAndReleasedOnce) {
    assertion(somewhere, "work");
    EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"FILTER", L"PROCESS", L"RELEASE"}));
}

TEST_F(Assertion, TakesTheContextBackBeforeTheRecordIsReleased) {
    assertion(somewhere, "work");
    const std::vector<debug_step> steps = recorder.steps();
    ASSERT_GE(steps.size(), 2u);
    const debug_step& last_write = steps[steps.size() - 2];
    EXPECT_EQ(last_write.what, L"SET");
    EXPECT_EQ(last_write.field.name, L"$EXCEPTION_POINTERS");
    EXPECT_EQ(last_write.field.value.type, VT_UI8);
    EXPECT_EQ(last_write.field.value.integer, 0);
    EXPECT_EQ(steps.back().what, L"RELEASE");
}

TEST_F(Assertion, EndsWithoutARecordWhenCreateFails) {
    for (const HRESULT result : {E_FAIL, E_ABORT, HRESULT(1)}) {
        recorder.clear();
        recorder.answer(L"CREATE", result);
        AsserterClass asserter(somewhere);
        EXPECT_EQ(asserter.Report(L"work"), E_FAIL);
        EXPECT_EQ(call_list(recorder), Texts{L"CREATE"});
    }
}

TEST_F(Assertion, EndsWhenCreateGivesNoRecord) {
    recorder.give_no_record(true);
    assertion(somewhere, "work");
    EXPECT_EQ(call_list(recorder), Texts{L"CREATE"});
}

TEST_F(Assertion, IsNotProcessedNorActedOnWhenTheFilterStopsIt) {
    for (const HRESULT result : {S_FALSE, E_FAIL, E_ABORT}) {
        recorder.clear();
        recorder.answer(L"FILTER", result);
        recorder.answer(L"PROCESS", E_ABORT);
        AsserterClass asserter(somewhere);
        const HRESULT report = asserter.Report(L"work");
        EXPECT_EQ(report, S_OK);
        asserter.Act(report);
        EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"FILTER", L"RELEASE"}));
    }
}

TEST_F(Assertion, GoesOnAfterAnyOtherAnswer) {
    for (const HRESULT result : {S_OK, HRESULT(2), E_FAIL, E_POINTER, HRESULT(-1)}) {
        recorder.answer(L"PROCESS", result);
        AsserterClass asserter(somewhere);
        const HRESULT report = asserter.Report(L"work");
        EXPECT_EQ(report, result);
        asserter.Act(report);
    }
    EXPECT_EQ(recorder.assertions().size(), 5u);
}

TEST_F(Assertion, KeepsTheLastErrorWhateverTheLibraryDoes) {
    recorder.at_each_step([] { SetLastError(999); });
    SetLastError(1234);
    assertion(somewhere, "work");
    EXPECT_EQ(GetLastError(), 1234u);
    EXPECT_EQ(number_of(only_record(recorder), L"Last Error Code"), 1234);
}

TEST_F(Assertion, PutsTheLastErrorBackAtTheEndOfTheReportAndOfTheScope) {
    recorder.at_each_step([] { SetLastError(999); });
    SetLastError(7);
    {
        AsserterClass asserter(somewhere);
        SetLastError(8);
        asserter.Report(L"work");
        EXPECT_EQ(GetLastError(), 8u);
    }
    EXPECT_EQ(GetLastError(), 7u);
    EXPECT_EQ(number_of(only_record(recorder), L"Last Error Code"), 7);
}

TEST_F(Assertion, LosesNoMoreThanTheFieldThatTheLibraryRefuses) {
    recorder.answer(L"SET", E_FAIL);
    assertion(somewhere, "work");
    EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"FILTER", L"PROCESS", L"RELEASE"}));
}

TEST_F(Assertion, TakesItsTextsAsData) {
    assertion({"100%s.cpp", 1, "%n", "%d"}, "100%s %n %5000d");
    const processed_record record = only_record(recorder);
    EXPECT_EQ(text_of(record, L"Description"), L"100%s %n %5000d");
    EXPECT_EQ(text_of(record, L"File"), L"100%s.cpp");
    EXPECT_EQ(text_of(record, L"Function"), L"%n");
    EXPECT_EQ(text_of(record, L"$FuncSig"), L"%d");
}

TEST_F(Assertion, ReadsItsTextAsUtf8AndKeepsWhatIsNot) {
    assertion(somewhere, "數量 > 0");
    assertion(somewhere, "caf\xE9");
    ASSERT_EQ(recorder.assertions().size(), 2u);
    EXPECT_EQ(recorder.assertions()[0].description, L"數量 > 0");
    EXPECT_EQ(recorder.assertions()[1].description, L"caf\u00E9");
}

TEST_F(Assertion, OfAnExpressionBearsItsTextAndItsPlace) {
    const int quantity = -1;
    const int line = __LINE__ + 1;
    EXPECT_FALSE(BS_ASSERT(quantity > 0));
    ASSERT_EQ(recorder.assertions().size(), 1u);
    const reported_assertion seen = recorder.assertions()[0];
    EXPECT_EQ(seen.description, L"quantity > 0");
    EXPECT_FALSE(seen.hresult.has_value());
    EXPECT_TRUE(seen.file.ends_with(L"tests/diagnostics/assertion_test.cpp"));
    EXPECT_EQ(seen.line, line);
    EXPECT_EQ(seen.function, L"TestBody");
    EXPECT_EQ(find_field(only_record(recorder), L"$Group"), nullptr);
}

// The outer function of a lambda, with a reference and an argument to tell from its name.
const int& checked(const int* value) {
    [&] { [&] { BS_ASSERT(*value > 0); }(); }();
    return *value;
}

TEST_F(Assertion, InALambdaBearsTheFunctionThatTheLambdaStandsIn) {
    [] { BS_ASSERT(false); }();
    const int negative = -1;
    checked(&negative);
    ASSERT_EQ(recorder.assertions().size(), 2u);
    EXPECT_EQ(recorder.assertions()[0].function, L"TestBody");
    EXPECT_TRUE(text_of(recorder.records()[0], L"$FuncSig").ends_with(L"_Test::TestBody()"));
    EXPECT_EQ(recorder.assertions()[1].function, L"checked");
    EXPECT_TRUE(text_of(recorder.records()[1], L"$FuncSig").ends_with(L"checked(const int*)"));
}

TEST_F(Assertion, OfAnExpressionThatHoldsWritesNothing) {
    EXPECT_TRUE(BS_ASSERT(recorder.records().empty()));
    EXPECT_TRUE(BS_ASSERT_TEXT(true, "never"));
    EXPECT_TRUE(BS_ASSERT_OK(S_OK));
    EXPECT_TRUE(recorder.steps().empty());
}

TEST_F(Assertion, OfAnExpressionEvaluatesItOnce) {
    int calls = 0;
    BS_ASSERT(++calls == 0);
    BS_ASSERT_OK(HRESULT(++calls));
    EXPECT_EQ(calls, 2);
}

TEST_F(Assertion, OfAResultCarriesIt) {
    EXPECT_FALSE(BS_ASSERT_OK(E_POINTER));
    EXPECT_FALSE(BS_ASSERT_OK_TEXT(S_FALSE, "SetAccount"));
    ASSERT_EQ(recorder.assertions().size(), 2u);
    EXPECT_EQ(recorder.assertions()[0].description, L"E_POINTER");
    EXPECT_EQ(recorder.assertions()[0].hresult, E_POINTER);
    EXPECT_EQ(recorder.assertions()[1].description, L"SetAccount");
    EXPECT_EQ(recorder.assertions()[1].hresult, S_FALSE);
}

template <class Raise>
HRESULT raised(Raise raise) {
    try {
        raise();
    } catch (const _com_error& error) {
        return error.Error();
    }
    return S_OK;
}

TEST_F(Assertion, IsFollowedByAComErrorWhereTheCallerCannotGoOn) {
    const void* const owner = nullptr;
    EXPECT_EQ(raised([&] { BS_REQUIRE(owner != nullptr, E_POINTER); }), E_POINTER);
    EXPECT_EQ(raised([&] { BS_RAISE("no way on", E_FAIL); }), E_FAIL);
    EXPECT_EQ(raised([&] { BS_REQUIRE(owner == nullptr, E_POINTER); }), S_OK);
    EXPECT_EQ(raised([] { BS_REQUIRE(FAILED(S_OK), E_FAIL); }), E_FAIL);
    ASSERT_EQ(recorder.assertions().size(), 3u);
    EXPECT_EQ(recorder.assertions()[0].description, L"owner != nullptr");
    EXPECT_EQ(recorder.assertions()[1].description, L"no way on");
    EXPECT_EQ(recorder.assertions()[2].description, L"FAILED(S_OK)") << "as it stands in the code";
}

}  // namespace
