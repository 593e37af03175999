#include "unicomp/datetimeutils/interface/DateTime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "tests/foundations/range_text.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

using namespace ovDateTime;

constexpr SYSTEMTIME time_record(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0,
                                 WORD second = 0, WORD milliseconds = 0) {
    return {year, month, 0, day, hour, minute, second, milliseconds};
}

LONGLONG ticks_of(const SYSTEMTIME& record) {
    SDateTime stamp;
    stamp = record;
    return stamp.m_ticks;
}

TEST(DateTime, ConstantsHaveTheirValues) {
    EXPECT_EQ(ticks_per_second, 10000000);
    EXPECT_EQ(ticks_per_millisecond, 10000);
    EXPECT_EQ(ticks_per_day, 864000000000);
    EXPECT_EQ(epoch_days, 693593);
    EXPECT_EQ(epoch_ticks, 599264352000000000);
    EXPECT_EQ(default_ticks, 599266080000000000);
    EXPECT_EQ(epoch_ticks, epoch_days * ticks_per_day);
}

TEST(DateTime, IsOneFieldOf64BitsAndBeginsAtDayTwo) {
    static_assert(sizeof(SDateTime) == 8);
    EXPECT_EQ(SDateTime().m_ticks, 599266080000000000);
    EXPECT_EQ(SDateTime().GetDayNumber(), 2);
    EXPECT_EQ(SDateTime().GetTimeOfDay(), 0);
}

TEST(DateTime, TheDayNumberDropsTheTime) {
    EXPECT_EQ(SDateTime(599266080000000000 + 863999999999).GetDayNumber(), 2);
    EXPECT_EQ(SDateTime(599266080000000000 + 864000000000).GetDayNumber(), 3);
    EXPECT_EQ(SDateTime(599266080000000000 + 863999999999).GetTimeOfDay(), 86399);
    EXPECT_EQ(SDateTime(599264352000000000).GetDayNumber(), 0);
    EXPECT_EQ(SDateTime(599264352000000000 - 864000000000).GetDayNumber(), -1);
}

TEST(DateTime, AnOleDateIsTheDaysSinceItsEpochWithTheirFraction) {
    EXPECT_EQ(SDateTime(599264352000000000).ToOleDate(), 0.0);
    EXPECT_EQ(SDateTime().ToOleDate(), 2.0);
    EXPECT_EQ(SDateTime(599264352000000000 + 45000 * 864000000000 + 216000000000).ToOleDate(), 45000.25);
    EXPECT_EQ(SDateTime(599264352000000000 + 65380 * 864000000000 + 432000000000).ToOleDate(), 65380.5);
}

TEST(DateTime, AnOleDateBecomesTicks) {
    EXPECT_EQ(SDateTime::OleDate2Ticks(0.0), 599264352000000000);
    EXPECT_EQ(SDateTime::OleDate2Ticks(-0.0), 599264352000000000);
    EXPECT_EQ(SDateTime::OleDate2Ticks(2.0), 599266080000000000);
    EXPECT_EQ(SDateTime::OleDate2Ticks(2.5), 599266080000000000 + 432000000000);
    EXPECT_EQ(SDateTime::OleDate2Ticks(65380.0), 599264352000000000 + 65380 * 864000000000);
}

TEST(DateTime, AnOleDateIsRoundedToTenMicroseconds) {
    EXPECT_EQ(SDateTime::OleDate2Ticks(0.4 / 8640000000.0), 599264352000000000);
    EXPECT_EQ(SDateTime::OleDate2Ticks(0.6 / 8640000000.0), 599264352000000100);
    EXPECT_EQ(SDateTime::OleDate2Ticks(1.4 / 8640000000.0), 599264352000000100);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> dates(0.0, 65381.0);
    for (int i = 0; i < 10000; ++i) {
        const double date = dates(random);
        const LONGLONG ticks = SDateTime::OleDate2Ticks(date);
        ASSERT_EQ(ticks % 100, 0);
        ASSERT_NEAR(static_cast<double>(ticks - 599264352000000000), date * 864000000000.0, 60.0) << date;
    }
}

TEST(DateTime, TheDayAfterTheLastIsAStampThatIsNotValid) {
    const SDateTime stamp(SDateTime::OleDate2Ticks(65381.0));
    EXPECT_EQ(stamp.m_ticks, 599264352000000000 + 65381 * 864000000000);
    EXPECT_EQ(stamp.GetDayNumber(), 65381);
    diagnostics_recorder recorder;
    EXPECT_FALSE(IsDateTimeValid(stamp.GetDayNumber(), stamp.GetTimeOfDay()));
}

TEST(DateTime, AnOleDateOutsideTheRangeIsRefused) {
    const std::string text =
        "ovDateTime::SDateTime::OleDate2Ticks: value of 'value' is out of range [0..65381]; value = ";
    EXPECT_EQ(range_text([] { SDateTime::OleDate2Ticks(-0.5); }), text + "-0.5");
    EXPECT_EQ(range_text([] { SDateTime::OleDate2Ticks(70000.25); }), text + "70000.2") << "six digits";
    EXPECT_EQ(range_text([] { SDateTime::OleDate2Ticks(1e15); }), text + "1e+15");
    EXPECT_EQ(range_text([] { SDateTime::OleDate2Ticks(std::nextafter(65381.0, 70000.0)); }), text + "65381");
    EXPECT_EQ(range_text([] { SDateTime::OleDate2Ticks(std::numeric_limits<double>::infinity()); }),
              text + "inf");
    EXPECT_EQ(range_text([] { SDateTime::OleDate2Ticks(std::numeric_limits<double>::quiet_NaN()); }),
              text + "nan");
}

TEST(DateTime, ASystemTimeBecomesTicks) {
    EXPECT_EQ(ticks_of(time_record(1900, 1, 1)), 599266080000000000);
    EXPECT_EQ(ticks_of(time_record(2000, 1, 1)), 630822816000000000);
    EXPECT_EQ(ticks_of(time_record(2000, 1, 1, 12, 34, 56, 789)),
              630822816000000000 + (12 * 3600 + 34 * 60 + 56) * 10000000LL + 7890000);
    EXPECT_EQ(ticks_of(time_record(2078, 12, 31, 23, 59, 59)), 655753535990000000);
    EXPECT_EQ(ticks_of(time_record(2000, 2, 29)), 630822816000000000 + 59 * 864000000000);
}

TEST(DateTime, TheDayOfTheWeekAndTheOldValueHaveNoPart) {
    SYSTEMTIME record = time_record(2000, 1, 1);
    record.wDayOfWeek = 65535;
    SDateTime stamp(-1);
    EXPECT_EQ(&(stamp = record), &stamp);
    EXPECT_EQ(stamp.m_ticks, 630822816000000000);
}

TEST(DateTime, ASystemTimeIsRefusedWithItsFirstWrongField) {
    const std::string function = "ovDateTime::SDateTime::operator =: value of ";
    SYSTEMTIME record = time_record(1899, 13, 32, 24, 60, 60, 1000);
    const auto refusal = [&] { return range_text([&] { ticks_of(record); }); };
    EXPECT_EQ(refusal(),
              function + "'aDate.wMilliseconds' is out of range [0..999]; aDate.wMilliseconds = 1000");
    record.wMilliseconds = 999;
    EXPECT_EQ(refusal(), function + "'aDate.wSecond' is out of range [0..59]; aDate.wSecond = 60");
    record.wSecond = 59;
    EXPECT_EQ(refusal(), function + "'aDate.wMinute' is out of range [0..59]; aDate.wMinute = 60");
    record.wMinute = 59;
    EXPECT_EQ(refusal(), function + "'aDate.wHour' is out of range [0..23]; aDate.wHour = 24");
    record.wHour = 23;
    EXPECT_EQ(refusal(), function + "'aDate.wDay' is out of range [1..31]; aDate.wDay = 32");
    record.wDay = 0;
    EXPECT_EQ(refusal(), function + "'aDate.wDay' is out of range [1..31]; aDate.wDay = 0");
    record.wDay = 31;
    EXPECT_EQ(refusal(), function + "'aDate.wMonth' is out of range [1..12]; aDate.wMonth = 13");
    record.wMonth = 0;
    EXPECT_EQ(refusal(), function + "'aDate.wMonth' is out of range [1..12]; aDate.wMonth = 0");
    record.wMonth = 4;
    EXPECT_EQ(refusal(), function + "'aDate.wYear' is out of range [1900..2078]; aDate.wYear = 1899");
    record.wYear = 65535;
    EXPECT_EQ(refusal(), function + "'aDate.wYear' is out of range [1900..2078]; aDate.wYear = 65535");
    record.wYear = 2078;
    EXPECT_EQ(refusal(),
              "ovDateTime::details::DateToJulianImpl: value of 'aDate.Day' is out of range [1..30]; "
              "aDate.Day = 31");
    record.wMonth = 5;
    EXPECT_EQ(refusal(), "nothing was raised");
}

TEST(DateTime, ARefusedSystemTimeLeavesTheStamp) {
    SDateTime stamp(630822816000000000);
    EXPECT_THROW(stamp = time_record(1900, 2, 29), std::range_error);
    EXPECT_EQ(stamp.m_ticks, 630822816000000000);
}

TEST(DateTime, AStampBecomesASystemTime) {
    const SDateTime stamp(630822816000000000 + (12 * 3600 + 34 * 60 + 56) * 10000000LL + 7899999);
    const SYSTEMTIME record = stamp.ToSYSTEMTIME();
    EXPECT_EQ(record.wYear, 2000);
    EXPECT_EQ(record.wMonth, 1);
    EXPECT_EQ(record.wDayOfWeek, 6) << "a Saturday";
    EXPECT_EQ(record.wDay, 1);
    EXPECT_EQ(record.wHour, 12);
    EXPECT_EQ(record.wMinute, 34);
    EXPECT_EQ(record.wSecond, 56);
    EXPECT_EQ(record.wMilliseconds, 789);
}

TEST(DateTime, AGivenRecordIsFilledAndCopied) {
    SYSTEMTIME given{9, 9, 9, 9, 9, 9, 9, 9};
    const SYSTEMTIME copy = SDateTime().ToSYSTEMTIME(&given);
    for (const SYSTEMTIME& each : {given, copy}) {
        EXPECT_EQ(each.wYear, 1900);
        EXPECT_EQ(each.wMonth, 1);
        EXPECT_EQ(each.wDayOfWeek, 1);
        EXPECT_EQ(each.wDay, 1);
        EXPECT_EQ(each.wHour, 0);
        EXPECT_EQ(each.wMinute, 0);
        EXPECT_EQ(each.wSecond, 0);
        EXPECT_EQ(each.wMilliseconds, 0);
    }
}

TEST(DateTime, AStampWithoutAValidDayIsRefused) {
    EXPECT_EQ(range_text([] { SDateTime(599264352000000000).ToSYSTEMTIME(); }),
              "ovDateTime::ReplaceDateInSYSTEMTIME: value of 'aDate' is out of range [2..65380]; aDate = 0");
    EXPECT_EQ(
        range_text([] { SDateTime(SDateTime::OleDate2Ticks(65381.0)).ToSYSTEMTIME(); }),
        "ovDateTime::ReplaceDateInSYSTEMTIME: value of 'aDate' is out of range [2..65380]; aDate = 65381");
}

TEST(DateTime, StampsSurviveTheWayThroughASystemTime) {
    std::mt19937_64 random(2);
    std::uniform_int_distribution<LONGLONG> milliseconds(0, 65379LL * 86400000 - 1);
    for (int i = 0; i < 10000; ++i) {
        const SDateTime stamp(default_ticks + milliseconds(random) * 10000);
        ASSERT_EQ(ticks_of(stamp.ToSYSTEMTIME()), stamp.m_ticks);
    }
}

}  // namespace
