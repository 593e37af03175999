"""Everything is back after a restart: the tab, the connections and the symbols."""

from screen_bar import CONNECTED, DISCONNECTED, SYMBOL, write_profiles


def play(stage):
    write_profiles(stage.settings, ("Alpha", 100, 0), ("Beta", 100, 0), ("Gamma", 100, 0))
    bar = stage.open()
    for name, symbol in (("Alpha", "ESZ6"), ("Beta", "EURUSD")):
        bar.select_tab(name)
        bar.key("ctrl+shift+t")
        bar.wait_for_connection(name, CONNECTED)
        bar.choose_instrument(symbol)
    bar.picture("before")
    bar.leave()

    bar = stage.open("again")
    bar.wait("the tab that showed", lambda: bar.current_tab() == "Beta")
    bar.wait_for_connection("Alpha", CONNECTED)
    bar.wait_for_connection("Beta", CONNECTED)
    assert bar.tab_image("Gamma") == DISCONNECTED
    bar.wait("its symbol", lambda: bar.text_of(SYMBOL, "Edit") == "EURUSD")
    bar.picture("beta-again")
    bar.select_tab("Alpha")
    bar.wait("its symbol", lambda: bar.text_of(SYMBOL, "Edit") == "ESZ6")
    order = bar.place("buy")
    assert (order["profile"], order["symbol"]) == ("Alpha", "ESZ6"), order
    bar.picture("alpha-again")
    bar.leave()
