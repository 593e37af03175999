"""A trader in a hurry: whatever comes before the bar has rested, nothing is lost, doubled or mixed up."""

import time

from screen_bar import (BUTTONS, CONNECTED, CONNECTING, LIMIT, MESSAGE_TITLE, SYMBOL, TYPE, TYPES,
                        write_profiles)
from screen_driver import DOUBLE_CLICK
from screens.lookup import symbol_is

BUY = BUTTONS["buy"]
PROFILE_NAME = 1103


def play(stage):
    write_profiles(stage.settings, ("Far", 1500, 0), ("Near", 0, 0), ("Next", 0, 0))
    bar = stage.open()
    symbol_and_order_at_once(bar)
    many_orders(bar)
    many_tabs(bar)
    close_at_a_message(bar)
    many_connections(bar)
    remove_while_connecting(bar)
    bar.leave()


def symbol_and_order_at_once(bar):
    """An order is of the symbol that was typed, not of the one before; where the symbol brings another quantity
    than the screen showed at the press, it goes out at the next press."""
    bar.select_tab("Near")
    bar.choose_instrument("KO")
    buy = bar.control(BUY, "Button")["rect"]
    for name, same_quantity in (("MSFT", True), ("EURUSD", False), ("KO", False)):
        before = len(bar.orders())
        bar.enter(SYMBOL)
        bar.in_one_go(*name, buy)
        symbol_is(bar, name)
        if not same_quantity:
            bar.wait_for_news()
            assert len(bar.orders()) == before, bar.orders()[before:]
            time.sleep(DOUBLE_CLICK)
            bar.press_button(BUY)
        bar.wait("the order", lambda: len(bar.orders()) > before)
        assert [one["symbol"] for one in bar.orders()[before:]] == [name]
    bar.picture("symbol-and-order")


def many_orders(bar):
    """As many orders as presses: Buy and Sell in turns are one each, a chain of clicks at one place is one."""
    buy, sell = (bar.control(BUTTONS[side], "Button")["rect"] for side in ("buy", "sell"))
    before = len(bar.orders())
    bar.in_one_go(*[sell, buy] * 4)
    bar.wait("eight orders", lambda: len(bar.orders()) >= before + 8)
    bar.in_one_go(*[sell] * 8)
    bar.wait("the ninth order", lambda: len(bar.orders()) >= before + 9)
    bar.wait_for_news()
    actions = [one["action"] for one in bar.orders()[before:]]
    assert len(actions) == 9 and actions == [actions[0], actions[1]] * 4 + [actions[0]], actions
    assert actions[0] != actions[1]


def many_tabs(bar):
    bar.in_one_go(*[bar.tab(name)["rect"] for name in ("Far", "Next", "Near")] * 6)
    bar.wait("the last tab", lambda: bar.current_tab() == "Near")
    symbol_is(bar, "KO")
    order = bar.place("buy")
    assert (order["profile"], order["symbol"]) == ("Near", "KO"), order


def close_at_a_message(bar):
    """The close key ends the message box, and clicks into the bar below it are nothing."""
    bar.choose(TYPE, TYPES["limit"].text)
    bar.wait("the limit", lambda: bar.shown_prices() == (LIMIT,))
    sell, other = bar.control(BUTTONS["sell"], "Button")["rect"], bar.tab("Next")["rect"]
    before = len(bar.orders())
    bar.press_button(BUY)
    bar.message()
    assert not bar.menus_usable()
    bar.in_one_go(other, sell)
    bar.wait_for_news()
    assert len(bar.find(**{"class": "#32770"}, text=MESSAGE_TITLE, parent=0)) == 1
    # Keys go where the mouse is.
    bar.move(bar.button_named("OK")["rect"])
    bar.answer("alt+F4")
    bar.wait("the focus in the price", lambda: bar.find(id=LIMIT, focus=True))
    assert bar.current_tab() == "Near" and len(bar.orders()) == before
    bar.picture("closed-the-message")


def many_connections(bar):
    """Connect, disconnect and so on, faster than the broker answers: the last one counts."""
    bar.select_tab("Far")
    bar.key(*["ctrl+shift+t"] * 9)
    bar.wait_for_connection("Far", CONNECTED)
    assert bar.log_text().count("Far: connected") == 1
    bar.key("ctrl+shift+t", "ctrl+shift+t")
    bar.wait_for_connection("Far", CONNECTING)


def remove_while_connecting(bar):
    bar.key("ctrl+shift+p")
    bar.dialog("Trading profiles")
    bar.key("alt+p", "Home")
    bar.wait("its name", lambda: bar.text_of(PROFILE_NAME, "Edit") == "Far")
    bar.key("alt+v")
    bar.wait("its tab gone", lambda: not bar.tab("Far"))
    bar.key("Escape")
    bar.wait_without_dialog("Trading profiles")
    assert [one["text"] for one in bar.tabs()] == ["Near", "Next"]
    bar.picture("removed")
