"""Live orders are listed before the window closes; who stays keeps everything."""

from screen_bar import CONNECTED, LIMIT, SYMBOL, TIME_IN_FORCE, TYPE, TYPES, write_profiles

ORDERS = 1122


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.choose_instrument("KO")
    bar.choose(TYPE, TYPES["limit"].text)
    bar.choose(TIME_IN_FORCE, "GTC")
    bar.type_over(LIMIT, "50")
    bar.place("buy")

    bar.key("alt+F4")
    bar.dialog("Disconnect?")
    rows = bar.find(id=ORDERS)[0]["rows"]
    assert [row["texts"] for row in rows] == [["Buy 100 KO Limit 50.00 GTC", "DEMO-101", "Working"]], rows
    bar.picture("asked")
    bar.key("Return")
    bar.wait_without_dialog("Disconnect?")
    bar.wait_for_connection("One", CONNECTED)
    row = [bar.text_of(item, "Edit") for item in (SYMBOL, LIMIT)]
    assert row == ["KO", "50"], row
    bar.place("buy")
    bar.picture("stayed")

    bar.key("alt+F4")
    bar.dialog("Disconnect?")
    assert len(bar.find(id=ORDERS)[0]["rows"]) == 2
    bar.key("alt+d")
    assert bar.ended() == 0
