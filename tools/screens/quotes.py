"""Prices from the quotes: the button gives its own price, the ladder beside it any price around the market."""

from screen_bar import ASK_BID, LIMIT, STOP, TYPE, TYPES, write_profiles

LADDER = {"class": "OrderDeckRangeBar", "parent": 0}
ROWS = 7


def open_ladder(bar):
    # The arrow stands at the right end of the button.
    bar.click(bar.control(ASK_BID, "Button")["rect"], 0.96)
    return bar.wait("the ladder", lambda: bar.find(**LADDER))[0]["rect"]


def pick(bar, row):
    """Clicks a row, 0 at the top; above and below the rows are arrows of half a row's height."""
    left, top, right, bottom = open_ladder(bar)
    bar.picture(f"ladder-{row}")
    height = (bottom - top) / (ROWS + 1)
    bar.click([left, top, right, bottom], 0.5, (row + 1) * height / (bottom - top))
    bar.wait("no ladder", lambda: not bar.find(**LADDER))


def limit_becomes(bar, text):
    bar.wait(f"{text!r} as the limit", lambda: bar.text_of(LIMIT, "Edit") == text)


def button_shows(bar, text):
    bar.wait(f"{text!r} on the button", lambda: bar.text_of(ASK_BID, "Button").strip() == text)


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.choose_instrument("ZNZ6")
    bar.choose(TYPE, TYPES["limit"].text)
    bar.wait("the limit", lambda: bar.shown_prices() == (LIMIT,))
    assert bar.row(1001, 0, "ZNZ6")["texts"][3:5] == ["110 8.5/32", "110 9/32"]

    # Bid, mid and ask are kinds of price; the mid is theirs, rounded to the tick.
    button_shows(bar, "110 9/32")
    bar.click(bar.control(ASK_BID, "Button")["rect"], 0.3)
    limit_becomes(bar, "110 9/32")
    pick(bar, 4)
    limit_becomes(bar, "110 8.5/32")
    button_shows(bar, "110 8.5/32")
    pick(bar, 2)
    limit_becomes(bar, "110 9/32")
    button_shows(bar, "110 9/32")
    bar.picture("the-ask")

    # Any other row is a price for once.
    pick(bar, 0)
    limit_becomes(bar, "110 10/32")
    button_shows(bar, "110 9/32")
    pick(bar, 6)
    limit_becomes(bar, "110 7.5/32")
    bar.picture("below-the-bid")

    # Nothing is chosen by leaving the ladder. Keys go where the mouse is.
    bar.move(open_ladder(bar))
    bar.key("Escape")
    bar.wait("no ladder", lambda: not bar.find(**LADDER))
    assert bar.text_of(LIMIT, "Edit") == "110 7.5/32"

    # The price goes into the field that is hidden, too.
    order = bar.place("sell")
    assert order["limit_price"] == order["stop_price"] == 110 + 7.5 / 32, order
    assert not bar.find(id=STOP, **{"class": "Edit"})
    bar.leave()
