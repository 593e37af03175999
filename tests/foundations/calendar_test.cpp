#include <gtest/gtest.h>

#include <chrono>

#include "tests/foundations/range_text.h"
#include "unicomp/datetimeutils/interface/DateTime.h"

namespace {

using ovDateTime::GetDaysInMonth;
using ovDateTime::TDate;
using ovDateTime::details::DateToJulianImpl;
using ovDateTime::details::GetDayOfWeekImpl;
using ovDateTime::details::JulianToDateImpl;

LONG day_number(SHORT year, SHORT month, SHORT day) {
    LONG days = -1;
    EXPECT_TRUE(DateToJulianImpl({month, day, year}, days));
    return days;
}

std::string refusal(SHORT year, SHORT month, SHORT day) {
    LONG days = 0;
    return range_text([&] { DateToJulianImpl({month, day, year}, days); });
}

void expect_date(const TDate& date, int year, int month, int day) {
    EXPECT_EQ(date.Year, year);
    EXPECT_EQ(date.Month, month);
    EXPECT_EQ(date.Day, day);
}

TEST(Calendar, DatesAndTimesHaveSixteenBitFieldsInTheirOrder) {
    static_assert(sizeof(TDate) == 6 && offsetof(TDate, Month) == 0 && offsetof(TDate, Day) == 2 &&
                  offsetof(TDate, Year) == 4);
    using ovDateTime::TTime;
    static_assert(sizeof(TTime) == 6 && offsetof(TTime, Hour) == 0 && offsetof(TTime, Minute) == 2 &&
                  offsetof(TTime, Second) == 4);
    const TDate date{1, 2, 3};
    expect_date(date, 3, 1, 2);
}

TEST(Calendar, MonthsHaveTheirLengths) {
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(GetDaysInMonth(2023, month), lengths[month - 1]) << month;
    }
}

TEST(Calendar, FebruaryOfALeapYearHas29Days) {
    EXPECT_EQ(GetDaysInMonth(2024, 2), 29);
    EXPECT_EQ(GetDaysInMonth(2000, 2), 29);
    EXPECT_EQ(GetDaysInMonth(1900, 2), 28);
    EXPECT_EQ(GetDaysInMonth(2024, 1), 31);
    EXPECT_EQ(GetDaysInMonth(2024, 3), 31);
}

TEST(Calendar, TheYearOfAMonthMayBeAny) {
    EXPECT_EQ(GetDaysInMonth(1600, 2), 29);
    EXPECT_EQ(GetDaysInMonth(2100, 2), 28);
    EXPECT_EQ(GetDaysInMonth(-4, 2), 29);
}

TEST(Calendar, AMonthOutsideTheYearIsRefused) {
    EXPECT_EQ(range_text([] { GetDaysInMonth(2000, 0); }),
              "ovDateTime::GetDaysInMonth: value of 'aMonth' is out of range [1..12]; aMonth = 0");
    EXPECT_EQ(range_text([] { GetDaysInMonth(2000, 13); }),
              "ovDateTime::GetDaysInMonth: value of 'aMonth' is out of range [1..12]; aMonth = 13");
}

TEST(Calendar, TheFirstDaysOfYearsAreThoseOfTheTable) {
    const std::pair<SHORT, LONG> rows[] = {{1900, 2},    {1901, 367},  {1902, 732},  {1903, 1097},
                                           {1904, 1462}, {1905, 1828}, {2078, 65016}};
    for (const auto& [year, day] : rows) {
        EXPECT_EQ(day_number(year, 1, 1), day) << year;
    }
}

TEST(Calendar, EveryDayOfTheRangeAgreesWithTheCivilCalendar) {
    using namespace std::chrono;
    const sys_days zero = 1899y / December / 30;
    for (LONG day = 2; day <= 65380; ++day) {
        const sys_days expected = zero + days(day);
        const year_month_day civil(expected);
        TDate date{};
        ASSERT_TRUE(JulianToDateImpl(day, date));
        ASSERT_EQ(year(date.Year) / month(static_cast<unsigned>(date.Month)) /
                      std::chrono::day(static_cast<unsigned>(date.Day)),
                  civil)
            << day;
        LONG back = 0;
        ASSERT_TRUE(DateToJulianImpl(date, back));
        ASSERT_EQ(back, day);
        ASSERT_EQ(GetDayOfWeekImpl(day), static_cast<LONG>(weekday(expected).c_encoding())) << day;
    }
}

TEST(Calendar, TheEndsOfTheRange) {
    EXPECT_EQ(day_number(1900, 1, 1), 2);
    EXPECT_EQ(GetDayOfWeekImpl(2), 1) << "a Monday";
    EXPECT_EQ(day_number(2078, 12, 31), 65380);
    EXPECT_EQ(day_number(2000, 2, 29), day_number(2000, 3, 1) - 1);
    EXPECT_EQ(day_number(1900, 2, 28), day_number(1900, 3, 1) - 1);
}

TEST(Calendar, ADateIsRefusedWithTheRangeOfItsFirstWrongPart) {
    const std::string function = "ovDateTime::details::DateToJulianImpl: value of ";
    EXPECT_EQ(refusal(1899, 13, 0),
              function + "'aDate.Year' is out of range [1900..2078]; aDate.Year = 1899");
    EXPECT_EQ(refusal(2079, 1, 1), function + "'aDate.Year' is out of range [1900..2078]; aDate.Year = 2079");
    EXPECT_EQ(refusal(2000, 0, 0), function + "'aDate.Month' is out of range [1..12]; aDate.Month = 0");
    EXPECT_EQ(refusal(2000, 13, 32), function + "'aDate.Month' is out of range [1..12]; aDate.Month = 13");
    EXPECT_EQ(refusal(2000, 1, 0), function + "'aDate.Day' is out of range [1..31]; aDate.Day = 0");
    EXPECT_EQ(refusal(2023, 4, 31), function + "'aDate.Day' is out of range [1..30]; aDate.Day = 31");
    EXPECT_EQ(refusal(1900, 2, 29), function + "'aDate.Day' is out of range [1..28]; aDate.Day = 29");
    EXPECT_EQ(refusal(2000, 2, 30), function + "'aDate.Day' is out of range [1..29]; aDate.Day = 30");
    EXPECT_EQ(refusal(2000, 1, -7), function + "'aDate.Day' is out of range [1..31]; aDate.Day = -7");
}

TEST(Calendar, ADayNumberOutsideTheRangeHasNoDateAndWritesNone) {
    for (const LONG day : {-1, 1, 65381, INT32_MAX, INT32_MIN}) {
        TDate date{7, 8, 9};
        EXPECT_FALSE(JulianToDateImpl(day, date)) << day;
        expect_date(date, 9, 7, 8);
    }
}

TEST(Calendar, DayNumberZeroIsTheDayOfTheEpoch) {
    TDate date{};
    EXPECT_TRUE(JulianToDateImpl(0, date));
    expect_date(date, 1899, 12, 30);
    EXPECT_EQ(GetDayOfWeekImpl(0), 6) << "a Saturday";
}

TEST(Calendar, TheDayOfTheWeekTakesDayOneAndRefusesWhatIsOutside) {
    EXPECT_EQ(GetDayOfWeekImpl(1), 0) << "a Sunday";
    EXPECT_EQ(GetDayOfWeekImpl(65380), 6);
    const std::string text =
        "ovDateTime::details::GetDayOfWeekImpl: value of 'aDays' is out of range [0..65380]; aDays = ";
    EXPECT_EQ(range_text([] { GetDayOfWeekImpl(-1); }), text + "-1");
    EXPECT_EQ(range_text([] { GetDayOfWeekImpl(65381); }), text + "65381");
}

}  // namespace
