#include <gtest/gtest.h>

#include <algorithm>
#include <locale>

#include "tests/foundations/range_text.h"
#include "tests/support/diagnostics_recorder.h"
#include "unicomp/datetimeutils/interface/DateTime.h"

namespace {

using namespace ovDateTime;

TEST(TimeOfDay, CountsSecondsSinceMidnight) {
    EXPECT_EQ(HMSToTime(0, 0, 0), 0);
    EXPECT_EQ(HMSToTime(0, 0, 59), 59);
    EXPECT_EQ(HMSToTime(1, 2, 3), 3723);
    EXPECT_EQ(HMSToTime(23, 59, 59), 86399);
}

TEST(TimeOfDay, RefusesTheFirstWrongPart) {
    const std::string function = "ovDateTime::HMSToTime: value of ";
    EXPECT_EQ(range_text([] { HMSToTime(24, 60, 60); }),
              function + "'aHour' is out of range [0..23]; aHour = 24");
    EXPECT_EQ(range_text([] { HMSToTime(-1, 0, 0); }),
              function + "'aHour' is out of range [0..23]; aHour = -1");
    EXPECT_EQ(range_text([] { HMSToTime(23, 60, 60); }),
              function + "'aMinute' is out of range [0..59]; aMinute = 60");
    EXPECT_EQ(range_text([] { HMSToTime(0, -1, 0); }),
              function + "'aMinute' is out of range [0..59]; aMinute = -1");
    EXPECT_EQ(range_text([] { HMSToTime(0, 59, 60); }),
              function + "'aSecond' is out of range [0..59]; aSecond = 60");
    EXPECT_EQ(range_text([] { HMSToTime(0, 0, -1); }),
              function + "'aSecond' is out of range [0..59]; aSecond = -1");
}

class grouped_digits : public std::numpunct<char> {
    char do_thousands_sep() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(TimeOfDay, TheNumbersOfARefusalStayPlainUnderAHostsLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new grouped_digits));
    const std::string text = range_text([] { HMSToTime(1234567, 0, 0); });
    std::locale::global(before);
    EXPECT_EQ(text, "ovDateTime::HMSToTime: value of 'aHour' is out of range [0..23]; aHour = 1234567");
}

TEST(TimeOfDay, EverySecondOfADayComesApartAndTogether) {
    for (LONG second = 0; second <= 86399; ++second) {
        TTime time{-1, -1, -1};
        ASSERT_TRUE(TimeToTTime(second, time));
        ASSERT_TRUE(time.Hour >= 0 && time.Hour <= 23 && time.Minute >= 0 && time.Minute <= 59 &&
                    time.Second >= 0 && time.Second <= 59)
            << second;
        ASSERT_EQ(HMSToTime(time.Hour, time.Minute, time.Second), second);
    }
}

TEST(TimeOfDay, ASecondOutsideTheDayIsRefused) {
    TTime time{};
    const std::string text = "ovDateTime::TimeToTTime: value of 'aTime' is out of range [0..86399]; aTime = ";
    EXPECT_EQ(range_text([&] { TimeToTTime(-1, time); }), text + "-1");
    EXPECT_EQ(range_text([&] { TimeToTTime(86400, time); }), text + "86400");
}

const SYSTEMTIME filled{1, 2, 3, 4, 5, 6, 7, 8};

TEST(TimeOfDay, ReplacingTheDateLeavesTheTime) {
    SYSTEMTIME record = filled;
    EXPECT_EQ(ReplaceDateInSYSTEMTIME(2, record), 0);
    EXPECT_EQ(record.wYear, 1900);
    EXPECT_EQ(record.wMonth, 1);
    EXPECT_EQ(record.wDayOfWeek, 1) << "a Monday";
    EXPECT_EQ(record.wDay, 1);
    EXPECT_EQ(record.wHour, 5);
    EXPECT_EQ(record.wMinute, 6);
    EXPECT_EQ(record.wSecond, 7);
    EXPECT_EQ(record.wMilliseconds, 8);
    EXPECT_EQ(ReplaceDateInSYSTEMTIME(65380, record), 0);
    EXPECT_EQ(record.wYear, 2078);
    EXPECT_EQ(record.wMonth, 12);
    EXPECT_EQ(record.wDay, 31);
}

TEST(TimeOfDay, ReplacingTheTimeLeavesTheDateAndClearsTheMilliseconds) {
    SYSTEMTIME record = filled;
    EXPECT_EQ(ReplaceTimeInSYSTEMTIME(86399, record), 0);
    EXPECT_EQ(record.wYear, 1);
    EXPECT_EQ(record.wMonth, 2);
    EXPECT_EQ(record.wDayOfWeek, 3);
    EXPECT_EQ(record.wDay, 4);
    EXPECT_EQ(record.wHour, 23);
    EXPECT_EQ(record.wMinute, 59);
    EXPECT_EQ(record.wSecond, 59);
    EXPECT_EQ(record.wMilliseconds, 0);
}

TEST(TimeOfDay, ReplacingRefusesWhatIsOutOfRange) {
    SYSTEMTIME record = filled;
    const std::string date =
        "ovDateTime::ReplaceDateInSYSTEMTIME: value of 'aDate' is out of range [2..65380]; aDate = ";
    EXPECT_EQ(range_text([&] { ReplaceDateInSYSTEMTIME(0, record); }), date + "0");
    EXPECT_EQ(range_text([&] { ReplaceDateInSYSTEMTIME(1, record); }), date + "1");
    EXPECT_EQ(range_text([&] { ReplaceDateInSYSTEMTIME(65381, record); }), date + "65381");
    const std::string time =
        "ovDateTime::ReplaceTimeInSYSTEMTIME: value of 'aTime' is out of range [0..86399]; aTime = ";
    EXPECT_EQ(range_text([&] { ReplaceTimeInSYSTEMTIME(-1, record); }), time + "-1");
    EXPECT_EQ(range_text([&] { ReplaceTimeInSYSTEMTIME(86400, record); }), time + "86400");
    EXPECT_EQ(record.wYear, 1);
    EXPECT_EQ(record.wHour, 5);
}

struct validity {
    LONG date;
    LONG time;
    bool valid;
};

TEST(IsDateTimeValid, TakesADayOfTheRangeWithASecondOfTheDayOrNeither) {
    diagnostics_recorder recorder;
    const validity rows[] = {
        {2, 0, true},          {65380, 86399, true},
        {36526, 43200, true},  {0, 0, true},
        {0, 1, false},         {1, 0, false},
        {1, 1, false},         {65381, 0, false},
        {-1, 0, false},        {2, -1, false},
        {2, 86400, false},     {65380, 86400, false},
        {INT32_MAX, 0, false}, {INT32_MIN, INT32_MIN, false},
    };
    for (const validity& row : rows) {
        EXPECT_EQ(IsDateTimeValid(row.date, row.time), row.valid) << row.date << ' ' << row.time;
    }
}

TEST(IsDateTimeValid, TracesWhatIsNotValidUnderItsOwnName) {
    diagnostics_recorder recorder;
    EXPECT_TRUE(IsDateTimeValid(2, 0));
    EXPECT_TRUE(IsDateTimeValid(0, 0));
    EXPECT_TRUE(recorder.traces().empty());
    EXPECT_FALSE(IsDateTimeValid(1, -5));
    EXPECT_EQ(recorder.traces(), std::vector<std::wstring>{L"1 - -5"});
    const auto records = recorder.records();
    ASSERT_EQ(records.size(), 1U);
    const recorded_value* const function = find_field(records[0], L"Function");
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(function->text, L"ovDateTime::IsDateTimeValid");
}

}  // namespace
