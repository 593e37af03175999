// The catch ladder that ends every boundary.
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/IDebugObject.h"
#include "tests/diagnostics/record_texts.h"

namespace {

using BugSlayerUtil::code_location;
using BugSlayerUtil::guard;
using Texts = std::vector<std::wstring>;

constexpr code_location boundary{"src/Tab.cpp", 77, "Select", "HRESULT Select(int)"};

class Guard : public testing::Test {
protected:
    Guard() {
        BugSlayerUtil::trace(boundary, L"connect");
        recorder.clear();
    }

    diagnostics_recorder recorder;
};

TEST_F(Guard, GivesTheResultOfItsBody) {
    EXPECT_EQ(guard(boundary, [] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(guard(boundary, [] {}), S_OK);
    EXPECT_TRUE(recorder.steps().empty());
}

TEST_F(Guard, TurnsAComErrorIntoItsResult) {
    EXPECT_EQ(guard(boundary, [] { _com_issue_error(E_POINTER); }), E_POINTER);
    EXPECT_EQ(recorder.traces(), Texts{L"HRESULT - 80004003; FILE - src/Tab.cpp, LINE - 77"});
}

TEST_F(Guard, TurnsAnOutOfRangeIntoAnInvalidArgument) {
    EXPECT_EQ(guard(boundary, [] { throw std::out_of_range("index"); }), E_INVALIDARG);
    EXPECT_EQ(recorder.traces(), Texts{L"std::out_of_range - index; FILE - src/Tab.cpp, LINE - 77"});
}

TEST_F(Guard, TurnsAnotherStandardExceptionIntoUnexpected) {
    EXPECT_EQ(guard(boundary, [] { throw std::runtime_error("no row"); }), E_UNEXPECTED);
    EXPECT_EQ(guard(boundary, [] { throw std::length_error("too long"); }), E_UNEXPECTED);
    EXPECT_EQ(recorder.traces(), (Texts{L"std::exception - no row; FILE - src/Tab.cpp, LINE - 77",
                                        L"std::exception - too long; FILE - src/Tab.cpp, LINE - 77"}));
}

TEST_F(Guard, TurnsAnythingElseIntoUnexpected) {
    EXPECT_EQ(guard(boundary, [] { throw 42; }), E_UNEXPECTED);
    EXPECT_EQ(guard(boundary, [] { throw static_cast<IDebugObject*>(nullptr); }), E_UNEXPECTED);
    EXPECT_EQ(recorder.traces(), (Texts{L"unknown exception; FILE - src/Tab.cpp, LINE - 77",
                                        L"unknown exception; FILE - src/Tab.cpp, LINE - 77"}));
}

TEST_F(Guard, WritesNothingWhenMemoryRanOut) {
    EXPECT_EQ(guard(boundary, [] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(guard(boundary, [] { throw std::bad_array_new_length(); }), E_OUTOFMEMORY);
    EXPECT_TRUE(recorder.steps().empty());
}

TEST_F(Guard, TakesThrownTextsAsDataOfAnyLength) {
    const std::string longText = "%s%n" + std::string(100000, 'x');
    guard(boundary, [&] { throw std::runtime_error(longText); });
    ASSERT_EQ(recorder.traces().size(), 1u);
    EXPECT_EQ(recorder.traces()[0], L"std::exception - " + std::wstring(longText.begin(), longText.end()) +
                                        L"; FILE - src/Tab.cpp, LINE - 77");
}

TEST_F(Guard, WritesATraceRecordOfAMessageAndAsksForNoAction) {
    recorder.answer(L"PROCESS", E_ABORT);
    guard(boundary, [] { throw 42; });
    const processed_record record = only_record(recorder);
    EXPECT_EQ(text_of(record, L"$Type"), L"TRACE");
    EXPECT_EQ(number_of(record, L"$Ident"), 0);
    EXPECT_EQ(text_of(record, L"File"), L"src/Tab.cpp");
    EXPECT_EQ(number_of(record, L"Line"), 77);
    EXPECT_EQ(text_of(record, L"Function"), L"Select");
}

TEST_F(Guard, KeepsTheLastErrorOfTheFailure) {
    recorder.at_each_step([] { SetLastError(999); });
    guard(boundary, [] {
        SetLastError(31);
        throw 42;
    });
    EXPECT_EQ(GetLastError(), 31u);
}

TEST_F(Guard, ReleasesAnErrorRecordThatWasThrown) {
    EXPECT_EQ(guard(boundary, [] { BugSlayerUtil::throw_error(boundary, "Singleton"); }), E_UNEXPECTED);
    EXPECT_EQ(recorder.errors(), Texts{L"Singleton"});
    EXPECT_EQ(recorder.traces(), Texts{L"unknown exception; FILE - src/Tab.cpp, LINE - 77"});
    EXPECT_EQ(call_list(recorder), (Texts{L"CREATE", L"FILTER", L"PROCESS", L"RELEASE", L"CREATE", L"FILTER",
                                          L"PROCESS", L"RELEASE"}));
}

}  // namespace
