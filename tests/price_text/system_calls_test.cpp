// What is asked of the system for number texts, and how often.
#include <gtest/gtest.h>

#include <windows.h>

#include "tests/support/diagnostics_recorder.h"
#include "tests/support/number_locale_scope.h"
#include "tests/support/win32/told_import.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"

namespace {

TEST(SystemCalls, ALocaleFieldThatFailsIsEmptyAndNotReported) {
    const diagnostics_recorder reports;
    int failures = 0;
    const test::told_import<"GetLocaleInfoW", int(LCID, LCTYPE, LPWSTR, int)> system(
        [&](LCID, LCTYPE, LPWSTR, int) {
            ++failures;
            return 0;
        });
    const platform::number_conventions read =
        platform::port<platform::number_locale>::system().user_conventions();
    EXPECT_EQ(failures, 5);
    EXPECT_EQ(read.decimal_separator, L"");
    EXPECT_EQ(read.group_separator, L"");
    EXPECT_EQ(read.grouping, L"");
    EXPECT_EQ(read.leading_zero, 0u);
    EXPECT_EQ(read.negative_form, 0u);
    EXPECT_TRUE(reports.assertions().empty());
    EXPECT_TRUE(reports.traces().empty());
    EXPECT_TRUE(reports.errors().empty());
}

TEST(SystemCalls, TheLettersOfQuantitiesAreLoadedOnceForTheProcess) {
    using local_format::CNumberFormat;
    const number_locale_scope scope(english());
    EXPECT_EQ(CNumberFormat::QuantityToText(1500), L"1.5K");
    EXPECT_EQ(CNumberFormat::QuantityToText(1000000), L"1M");
    int loads = 0;
    const test::told_import<"LoadStringW", int(HINSTANCE, UINT, LPWSTR, int)> system(
        [&](HINSTANCE, UINT, LPWSTR, int) {
            ++loads;
            return 0;
        });
    EXPECT_EQ(CNumberFormat::QuantityToText(2000), L"2K");
    EXPECT_EQ(CNumberFormat::QuantityToText(2000000), L"2M");
    EXPECT_EQ(loads, 0);
}

}  // namespace
