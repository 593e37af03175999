"""The row slides open and shut as the order type changes, also when the tab is left meanwhile."""

from screen_bar import BUTTONS, LIMIT, LIMIT_SPIN, STOP, STOP_SPIN, TYPE, TYPES, write_profiles

BUY = BUTTONS["buy"]


def choose(bar, kind):
    bar.choose(TYPE, TYPES[kind].text)
    bar.wait(f"the fields of {kind}", lambda: bar.shown_prices() == TYPES[kind].fields)
    return bar.left_of(BUY, "Button")


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0), ("Two", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.choose_instrument("ESZ6")
    shut = bar.left_of(BUY, "Button")
    bar.picture("market")
    places = {}
    for kind in ("stop", "limit", "stop limit"):
        places[kind] = choose(bar, kind)
        bar.picture(kind.replace(" ", "-"))
    stop, limit = (places[kind] - shut for kind in ("stop", "limit"))
    assert stop > 0 and limit > 0, places
    assert places["stop limit"] - shut == stop + limit, "the offsets of both fields add up"

    prices = [bar.control(item, "Edit")["rect"] for item in (STOP, LIMIT)]
    spins = [bar.control(item, "msctls_updown32")["rect"] for item in (STOP_SPIN, LIMIT_SPIN)]
    assert prices[0][2] <= prices[1][0], "the prices stand beside each other"
    for price, spin in zip(prices, spins):
        assert price[0] < spin[0] and spin[2] <= price[2] + (spin[2] - spin[0]), (price, spin)

    # The tab is left within the slide, which no wait delays: the other's row stands at once, and stays.
    other = bar.tab("Two")["rect"]
    up = bar.control(TYPE, "ComboBox")["selected"]
    bar.key(*["Up"] * up)
    bar.click(other)
    bar.wait("tab Two", lambda: bar.current_tab() == "Two")
    bar.choose_instrument("ESZ6")
    assert bar.left_of(BUY, "Button") == shut and bar.shown_prices() == ()
    bar.choose(TYPE, TYPES["stop limit"].text)
    bar.click(bar.tab("One")["rect"])
    bar.wait("tab One", lambda: bar.current_tab() == "One")
    assert bar.left_of(BUY, "Button") == shut and bar.shown_prices() == ()
    bar.select_tab("Two")
    assert bar.left_of(BUY, "Button") == places["stop limit"]
    assert bar.shown_prices() == (STOP, LIMIT)
    bar.picture("after-the-switches")
    bar.leave()
