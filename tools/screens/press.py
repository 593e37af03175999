"""What the screen shows at the press is what goes out, or nothing goes: by mouse and by the space key."""

import time

from screen_bar import BLOTTER, BUTTONS, LIMIT, QUANTITY, STOP, SYMBOL, TYPE, TYPES, write_profiles
from screen_driver import DOUBLE_CLICK

BUY = BUTTONS["buy"]
PRICES = {"market": {}, "limit": {LIMIT: "6010"}, "stop limit": {STOP: "6020", LIMIT: "6010"}}
# What nobody would read as what it is parsed as.
WILD_PRICES = ("6010,5", "71,24", "60,10", "1e2", "117 33/32")


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    for name in PRICES:
        for way in (by_mouse, by_space):
            erased_symbol(bar, name, way)
            unknown_symbol(bar, name, way)
            another_kind_of_symbol(bar, name, way)
            empty_quantity(bar, name, way)
            odd_quantities(bar, name, way)
            if LIMIT in PRICES[name]:
                wild_prices(bar, name, way)
            plain_order(bar, name, way)
    double_and_triple_click(bar)
    cancel_all(bar)
    bar.leave()


def cancel_all(bar):
    bar.key("alt+o")
    bar.click(bar.menu_item("Cancel &all orders")["rect"])
    bar.wait("no live order", lambda: not any("Working" in row["texts"] or "Waiting" in row["texts"]
                                              for row in bar.find(id=BLOTTER)[0]["rows"]))


def by_mouse(bar):
    time.sleep(DOUBLE_CLICK)
    bar.click(bar.find(id=BUY, **{"class": "Button"})[0]["rect"])


def by_space(bar):
    """The focus goes backwards from the symbol, which is the first field, to the buttons, which are the last."""
    for _ in range(16):
        if bar.find(id=BUY, focus=True) or not bar.find(id=BUY, **{"class": "Button"}, enabled=True):
            break
        before = [one["id"] for one in bar.windows() if one["focus"]]
        bar.key("shift+Tab")
        bar.wait("another focus", lambda: [one["id"] for one in bar.windows() if one["focus"]] != before)
    bar.key("space")


def fill_in(bar, name):
    """ESZ6, one contract, and the prices of that type of order."""
    bar.choose_instrument("ESZ6")
    bar.choose(TYPE, TYPES[name].text)
    bar.wait("the prices", lambda: bar.shown_prices() == tuple(PRICES[name]))
    for item, text in PRICES[name].items():
        bar.type_over(item, text)
    bar.type_over(QUANTITY, "1")


def stopped(bar, what, way):
    """Presses Buy and sees nothing go out, and why."""
    before = len(bar.orders())
    way(bar)
    bar.wait_for_news()
    bar.wait_for_news()
    assert len(bar.orders()) == before, (what, bar.orders()[before:])
    bar.picture(what)


def sends(bar, way):
    before = len(bar.orders())
    way(bar)
    bar.wait("the order", lambda: len(bar.orders()) > before)
    return bar.orders()[before]


def erased_symbol(bar, name, way):
    fill_in(bar, name)
    bar.enter(SYMBOL)
    bar.key("Delete")
    bar.wait("no symbol", lambda: bar.text_of(SYMBOL, "Edit") == "")
    stopped(bar, "erased-symbol", way)


def unknown_symbol(bar, name, way):
    fill_in(bar, name)
    bar.type_over(SYMBOL, "zzzz")
    if way is by_mouse:
        stopped(bar, "unknown-symbol", way)
        assert "zzzz → ESZ6" in bar.balloon(), bar.balloon()
    else:
        # The focus has left the name before the key is pressed: what is pressed is ESZ6, and it is shown.
        order = sends(bar, way)
        assert order["symbol"] == "ESZ6" and order["seen"]["symbol"] == "ESZ6", order


def another_kind_of_symbol(bar, name, way):
    if name != "market":
        return
    fill_in(bar, name)
    bar.type_over(SYMBOL, "MSFT")
    if way is by_mouse:
        stopped(bar, "another-quantity", way)
        assert "1 → 100" in bar.balloon(), bar.balloon()
    order = sends(bar, way)
    assert (order["symbol"], order["quantity"], order["seen"]["quantity"]) == ("MSFT", 100, "100"), order


def empty_quantity(bar, name, way):
    fill_in(bar, name)
    bar.enter(QUANTITY)
    bar.key("Delete")
    bar.wait("no quantity", lambda: bar.text_of(QUANTITY, "Edit") == "")
    stopped(bar, "empty-quantity", way)


def odd_quantities(bar, name, way):
    if way is not by_mouse:
        return
    for text in ("0", "99999999999"):
        fill_in(bar, name)
        bar.type_over(QUANTITY, text)
        stopped(bar, f"quantity-{text}", way)


def wild_prices(bar, name, way):
    fill_in(bar, name)
    for text in WILD_PRICES:
        bar.type_over(LIMIT, text)
        assert "讀作" in bar.balloon(), bar.balloon()
        stopped(bar, f"price-{WILD_PRICES.index(text)}", way)
        assert bar.text_of(LIMIT, "Edit") == text, "it is left for the user to mend"


def plain_order(bar, name, way):
    fill_in(bar, name)
    order = sends(bar, way)
    assert order["symbol"] == "ESZ6" and order["quantity"] == 1, order
    assert order["seen"]["source"] == ("mouse" if way is by_mouse else "key"), order
    for item, field in ((STOP, "stop_price"), (LIMIT, "limit_price")):
        wanted = PRICES[name].get(item)
        assert order["seen"].get(field) == wanted, order
        assert order[field] == float(wanted or 0), order
    bar.picture(f"order-{name.replace(' ', '-')}")


def double_and_triple_click(bar):
    fill_in(bar, "market")
    rect = bar.control(BUY, "Button")["rect"]
    for clicks in (2, 3):
        time.sleep(DOUBLE_CLICK)
        before = len(bar.orders())
        bar.in_one_go(*[rect] * clicks)
        bar.wait("the order", lambda: len(bar.orders()) > before)
        bar.wait_for_news()
        bar.wait_for_news()
        assert len(bar.orders()) == before + 1, bar.orders()[before:]
