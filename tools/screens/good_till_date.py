"""A good-till date is picked in the calendar, and the local midnight passes over it."""

import datetime
import time

from screen_bar import (BUTTONS, DATE, LIMIT, MINUTES_OF_A_DAY, TIME_IN_FORCE, TYPE, TYPES,
                        forget_earlier_sessions, write_profiles, zone_in_which_it_is)
from screen_driver import ScreenError

BUY = BUTTONS["buy"]
PICKER = "SysDateTimePick32"
EPOCH = datetime.date(1899, 12, 30)
DAY = datetime.timedelta(days=1)


class Midnight:
    """A time zone in which so many minutes of the day are left, the present one included, and that day."""

    def __init__(self, minutes):
        def early():
            now = datetime.datetime.now(datetime.timezone.utc)
            return now if 1 <= now.second <= 40 else None
        # The picker looks at the clock once a minute.
        while not (now := early()):
            time.sleep(0.1)
        self.zone, self.today = zone_in_which_it_is(MINUTES_OF_A_DAY - minutes, now)
        self._end = now.replace(second=0, microsecond=0) + datetime.timedelta(minutes=minutes)

    def passed(self):
        return datetime.datetime.now(datetime.timezone.utc) >= self._end


def shows(bar, day):
    text = f"{day.month}/{day.day}/{day.year}"
    bar.wait(f"{text} in the date field", lambda: bar.text_of(DATE, PICKER) == text)


def calendar(bar):
    found = bar.find(**{"class": "SysMonthCal32"})
    return found[0] if found else None


def open_calendar(bar, picture):
    bar.click(bar.control(DATE, PICKER)["rect"], 0.93)
    bar.wait("the calendar", lambda: (calendar(bar) or {}).get("days"))
    bar.picture(picture)
    return calendar(bar)["days"]


def click_day(bar, day, picture):
    bar.click(open_calendar(bar, picture)[day.isoformat()])
    bar.wait("the calendar shut", lambda: not calendar(bar))
    bar.wait_for_news()


def pick(bar, day, picture):
    click_day(bar, day, picture)
    shows(bar, day)


def good_till(order):
    return EPOCH + datetime.timedelta(days=int(order["gtd_date"]))


def fill_in(bar, tab):
    bar.select_tab(tab)
    bar.choose_instrument("KO")
    bar.choose(TYPE, TYPES["limit"].text)
    bar.type_over(LIMIT, "50")


def slide_the_date_in(bar):
    without = bar.left_of(BUY, "Button")
    assert not bar.find(id=DATE, **{"class": PICKER})
    bar.choose(TIME_IN_FORCE, "GTD")
    bar.wait("the date field", lambda: bar.find(id=DATE, **{"class": PICKER}))
    date = bar.control(DATE, PICKER)["rect"]
    moved = bar.left_of(BUY, "Button") - without
    assert date[2] - date[0] < moved < 2 * (date[2] - date[0]), (date, moved)
    assert date[2] < bar.left_of(BUY, "Button")


def before_midnight(bar, today):
    fill_in(bar, "Two")
    slide_the_date_in(bar)
    shows(bar, today)
    pick(bar, today + DAY, "calendar")
    bar.picture("picked")
    assert good_till(bar.place("buy")) == today + DAY
    fill_in(bar, "One")
    slide_the_date_in(bar)
    shows(bar, today)
    assert good_till(bar.place("buy")) == today
    bar.wait("it rests", lambda: "Working" in bar.newest_order())
    bar.picture("before-midnight")


def open_before_midnight(stage):
    """A host on which all of that was done before its midnight; a slow machine gets more of the day."""
    for minutes in (1, 4, 16, 64):
        write_profiles(stage.settings, ("One", 0, 0), ("Two", 0, 0))
        forget_earlier_sessions()
        midnight = Midnight(minutes)
        # The calendar opens downwards.
        bar = stage.open("", "--size", "1400x620", environment={"TZ": midnight.zone})
        try:
            before_midnight(bar, midnight.today)
            return bar, midnight
        except (AssertionError, ScreenError):
            if not midnight.passed():
                raise
            bar.stop()
    raise AssertionError("an hour was not enough")


def play(stage):
    bar, midnight = open_before_midnight(stage)
    today = midnight.today
    while not midnight.passed():
        time.sleep(0.1)
    bar.wait("the end of the day's order", lambda: "Expired" in bar.newest_order())
    shows(bar, today + DAY)
    bar.picture("after-midnight")
    # The day that has passed can't be picked any more.
    click_day(bar, today, "calendar-after-midnight")
    shows(bar, today + DAY)
    pick(bar, today + 2 * DAY, "calendar-again")
    assert good_till(bar.place("buy")) == today + 2 * DAY
    bar.wait("it rests", lambda: "Working" in bar.newest_order())
    bar.picture("ordered")
    bar.key("alt+o")
    bar.click(bar.menu_item("Cancel &all orders")["rect"])
    bar.wait("no live order", lambda: "Cancelled" in bar.newest_order())
    bar.leave()
