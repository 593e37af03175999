"""Tabs are switched while the row slides: at rest each row stands as its own order type says."""

from screen_bar import BUTTONS, LIMIT, STOP, TYPE, TYPES, write_profiles

BUY, SELL = BUTTONS["buy"], BUTTONS["sell"]


def row(bar):
    """What stands in the row and where, once it rests."""
    left = bar.left_of(BUY, "Button"), bar.left_of(SELL, "Button")
    return bar.shown_prices(), left


def stands(bar, tab, kind, rows):
    bar.wait(f"tab {tab}", lambda: bar.current_tab() == tab)
    bar.wait(f"the type {kind}", lambda: bar.text_of(TYPE, "ComboBox") == TYPES[kind].text)
    bar.wait(f"the row of {kind}", lambda: row(bar) == rows[kind])
    for item in (STOP, LIMIT):
        assert bool(bar.find(id=item, **{"class": "Edit"})) == (item in TYPES[kind].fields)


def learn(bar):
    """The rows at rest, each after a slide of its own."""
    rows = {}
    for kind, one in TYPES.items():
        bar.choose(TYPE, one.text)
        bar.wait(f"the fields of {kind}", lambda: bar.shown_prices() == one.fields)
        rows[kind] = row(bar)
    return rows


def focus_type(bar, kind):
    """The keyboard into the list of types, which stays shut."""
    bar.click(kind)
    bar.wait("the list of types", lambda: bar.find(id=TYPE, **{"class": "ComboBox"}, dropped=True))
    bar.key("Escape")
    bar.wait("the focus in it", lambda: bar.find(id=TYPE, **{"class": "ComboBox"}, dropped=False, focus=True))


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0), ("Two", 0, 0))
    bar = stage.open()
    for name in ("Two", "One"):
        bar.select_tab(name)
        bar.choose_instrument("ESZ6")
    rows = learn(bar)
    assert len({left for _, left in rows.values()}) == 3, rows
    one, two = bar.tab("One")["rect"], bar.tab("Two")["rect"]
    kind = bar.control(TYPE, "ComboBox")["rect"]

    # Away while the row shuts.
    focus_type(bar, kind)
    bar.in_one_go("Home", two)
    stands(bar, "Two", "market", rows)
    bar.select_tab("One")
    stands(bar, "One", "market", rows)

    # Away while it opens, and back before it has shut again.
    focus_type(bar, kind)
    bar.in_one_go("End", two, one)
    stands(bar, "One", "stop limit", rows)
    bar.picture("away-and-back")
    bar.select_tab("Two")
    stands(bar, "Two", "market", rows)

    # There and back and there again, between rows of which none is the other's.
    bar.choose(TYPE, TYPES["limit"].text)
    stands(bar, "Two", "limit", rows)
    bar.select_tab("One")
    focus_type(bar, kind)
    bar.in_one_go("Home", "Down", two, one, two)
    stands(bar, "Two", "limit", rows)
    bar.picture("there-again")
    bar.select_tab("One")
    stands(bar, "One", "stop", rows)
    bar.type_over(STOP, "6000")
    order = bar.place("buy")
    assert (order["category"], order["stop_price"], order["limit_price"]) == (2, 6000.0, 0.0), order
    bar.picture("the-other")
    bar.leave()
