"""Two hosts at the same time trade apart; the second one's end is nothing to the first."""

from screen_bar import CONNECTED, write_profiles


def trade(bar, symbol):
    bar.select_tab("One")
    bar.wait_for_connection("One", CONNECTED)
    bar.choose_instrument(symbol)
    order = bar.place("buy")
    assert order["symbol"] == symbol, order


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    first = stage.open("first", "--size", "1500x860")
    trade(first, "KO")
    first.picture("first")
    # The second window lies over the first one.
    second = stage.open("second", "--size", "1500x860")
    trade(second, "EURUSD")
    second.picture("second")
    second.leave()
    first.come_back()
    trade(first, "ESZ6")
    assert [one["symbol"] for one in first.orders()] == ["KO", "ESZ6"]
    assert [one["symbol"] for one in second.orders()] == ["EURUSD"]
    first.picture("first-again")
    first.leave()
