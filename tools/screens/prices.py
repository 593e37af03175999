"""Prices by typing and by the spin; what is no price, and an order without one."""

from screen_bar import BLOTTER, BUTTONS, LIMIT, LIMIT_SPIN, STOP, TIME_IN_FORCE, TYPE, TYPES, write_profiles


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.choose_instrument("ZNZ6")
    bar.choose(TYPE, TYPES["limit"].text)
    bar.wait("the limit", lambda: bar.shown_prices() == (LIMIT,))

    # No price: no order, a message, and the focus in the field.
    bar.press_button(BUTTONS["buy"])
    assert bar.message().startswith("請輸入 "), bar.message()
    bar.picture("no-price")
    bar.answer()
    bar.wait("the focus in the price", lambda: bar.find(id=LIMIT, focus=True))
    assert bar.orders() == [] and bar.find(id=BLOTTER)[0]["rows"] == []

    # What is no price is said at once.
    bar.type_over(LIMIT, "x")
    assert bar.balloon().startswith("請輸入 "), bar.balloon()
    bar.picture("balloon")
    bar.type_over(LIMIT, "110 8.5/32")
    bar.wait("no balloon", lambda: not bar.find(**{"class": "tooltips_class32"}))

    bar.spin(LIMIT_SPIN, up=True)
    bar.wait("one step up", lambda: bar.text_of(LIMIT, "Edit") == "110 9/32")
    bar.spin(LIMIT_SPIN, up=False)
    bar.spin(LIMIT_SPIN, up=False)
    bar.wait("two steps down", lambda: bar.text_of(LIMIT, "Edit") == "110 8/32")
    bar.picture("spun")

    bar.choose(TIME_IN_FORCE, "IOC")
    order = bar.place("sell")
    assert (order["category"], order["action"], order["limit_price"]) == (3, 2, 110.25), order
    bar.wait("it is filled", lambda: "Filled" in bar.newest_order())
    bar.choose(TYPE, TYPES["stop"].text)
    bar.wait("the stop", lambda: bar.shown_prices() == (STOP,))
    assert bar.text_of(STOP, "Edit") == "", "another type begins without prices"
    bar.picture("another-type")
    bar.leave()
