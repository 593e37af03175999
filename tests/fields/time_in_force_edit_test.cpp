// The good-till date: where it starts, what it takes, and when it counts as none.
#include "charting/orderdeck/src/tab/Controls/TimeInForceEdit.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include "platform/clock.h"
#include "tests/fields/fields_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;
using test::raised_by;

class StoppedClock : public platform::clock {
public:
    explicit StoppedClock(const SYSTEMTIME& now) : m_now(now) {}

    SYSTEMTIME local_time() override { return m_now; }
    DWORD tick_count() override { return 0; }
    double milliseconds() override { return 0.0; }

private:
    SYSTEMTIME m_now;
};

SYSTEMTIME moment(WORD year, WORD month, WORD day, WORD hour, WORD minute, WORD second, WORD thousandths) {
    SYSTEMTIME result{};
    result.wYear = year;
    result.wMonth = month;
    result.wDay = day;
    result.wHour = hour;
    result.wMinute = minute;
    result.wSecond = second;
    result.wMilliseconds = thousandths;
    return result;
}

class date_field : public test::fields_fixture {
protected:
    date_field() { make_tab_at(moment(2026, 11, 20, 6, 0, 0, 0)); }

    void make_tab_at(const SYSTEMTIME& now) {
        StoppedClock clock(now);
        const platform::port<platform::clock>::replacement in_place(clock);
        make_tab();
    }
    void put_date(double value) { date().put_Value(_variant_t(value, VT_DATE)); }
    double value() {
        const _variant_t result = date().get_Value();
        EXPECT_EQ(VT_DATE, V_VT(&result));
        return V_DATE(&result);
    }
};

TEST_F(date_field, starts_at_the_local_time_in_which_it_was_made_and_is_not_empty) {
    // 2026-11-20 is day 46346.
    EXPECT_EQ(46346.25, value());
    EXPECT_FALSE(date().IsEmpty());
    make_tab_at(moment(2000, 2, 29, 13, 45, 30, 250));
    // 2000-02-29 is day 36585; 49530.25 seconds are past.
    EXPECT_EQ((36585.0 * 86400 + 49530.25) / 86400, value());
}

TEST_F(date_field, a_clock_outside_the_calendar_makes_no_field) {
    StoppedClock clock(moment(2079, 1, 1, 0, 0, 0, 0));
    const platform::port<platform::clock>::replacement in_place(clock);
    EXPECT_THROW(CTimeInForceEdit(), std::range_error);
}

TEST_F(date_field, gives_back_what_was_put) {
    for (const double day : {2.5, 45000.25, 45000.0, 65380.75, 36585.5}) {
        put_date(day);
        EXPECT_EQ(day, value());
        EXPECT_FALSE(date().IsEmpty()) << day;
    }
    EXPECT_TRUE(reported().empty());
    EXPECT_EQ(calls{}, host.calls());
}

TEST_F(date_field, takes_dates_alone) {
    put_date(45000.25);
    _variant_t real(45001.0);
    _variant_t text(L"2026-11-20");
    _variant_t none;
    _variant_t number(45001L);
    std::size_t reports = 0;
    for (const _variant_t* wrong : {&real, &text, &none, &number}) {
        EXPECT_NE(S_OK, raised_by([&] { date().put_Value(*wrong); })) << V_VT(wrong);
        EXPECT_EQ(++reports, reported().size());
        EXPECT_EQ(45000.25, value());
    }
}

TEST_F(date_field, a_date_by_reference_is_another_type) {
    DATE day = 45001.0;
    VARIANT reference;
    VariantInit(&reference);
    V_VT(&reference) = VT_BYREF | VT_DATE;
    V_BYREF(&reference) = &day;
    EXPECT_NE(S_OK, raised_by([&] { date().put_Value(reference); }));
    EXPECT_EQ(46346.25, value());
}

TEST_F(date_field, refuses_what_is_outside_the_calendar_and_keeps_its_value) {
    for (const double day : {-0.5, 65381.5, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(put_date(day), std::range_error) << day;
        EXPECT_EQ(46346.25, value());
    }
}

TEST_F(date_field, the_date_of_a_stamp_that_nobody_set_is_none) {
    put_date(2.0);
    EXPECT_TRUE(date().IsEmpty());
    EXPECT_TRUE(recorder.traces().empty());
}

TEST_F(date_field, one_unit_behind_that_stamp_is_a_date) {
    // 10 microseconds, the finest that a date is kept in.
    put_date(2.0 + 1.0 / 8640000000.0);
    EXPECT_FALSE(date().IsEmpty());
}

TEST_F(date_field, days_that_are_not_valid_are_none_and_traced) {
    const struct {
        double day;
        const wchar_t* trace;
    } rows[] = {{1.0, L"1 - 0"}, {0.5, L"0 - 43200"}, {65381.0, L"65381 - 0"}};
    for (const auto& row : rows) {
        put_date(row.day);
        recorder.clear();
        EXPECT_TRUE(date().IsEmpty()) << row.day;
        const auto traces = recorder.traces();
        ASSERT_EQ(1u, traces.size());
        EXPECT_NE(std::wstring::npos, traces[0].find(row.trace)) << row.day;
    }
}

// Day 0 at midnight counts as a valid moment everywhere, so a date that was taken away is not empty.
TEST_F(date_field, day_zero_at_midnight_is_not_none) {
    put_date(0.0);
    EXPECT_EQ(0.0, value());
    EXPECT_FALSE(date().IsEmpty());
}

TEST_F(date_field, shows_under_gtd_alone_and_keeps_its_value_while_hidden) {
    make_ready_tab();
    put_date(45000.25);
    for (LONG code = 1; code <= 6; ++code) {
        time_in_force().Select(code);
        EXPECT_EQ(code != 3, date().get_Hidden()) << code;
        EXPECT_EQ(45000.25, value());
        EXPECT_FALSE(date().IsEmpty());
    }
}

TEST_F(date_field, hides_without_a_time_in_force) {
    EXPECT_TRUE(time_in_force().IsEmpty());
    EXPECT_TRUE(date().get_Hidden());
    EXPECT_TRUE(reported().empty());
}

TEST_F(date_field, shows_under_a_gtd_that_the_list_no_longer_holds) {
    odd->times_in_force[eMTPA_OC_Market] = {1, 2, 3, 4, 5, 6};
    time_in_force().Update(eMTPA_OC_Market);
    time_in_force().Select(3);
    odd->times_in_force[eMTPA_OC_Market] = {1, 2, 4, 5, 6};
    time_in_force().Update(eMTPA_OC_Market);
    EXPECT_FALSE(date().get_Hidden());
}

}  // namespace
}  // namespace OV_OrderDeck
