"""The question to connect comes after Enter and after the symbol dialog, never by itself. All is remembered."""

from screen_bar import CONNECTED, DISCONNECTED, SYMBOL, write_profiles
from screens.lookup import enter_name, symbol_is
from screen_symbols import SymbolDialog

QUESTION = "目前尚未連線至 Far 。是否建立連線?"


def is_asked(bar):
    return any(one["text"] == QUESTION for one in bar.windows())


def answer(bar, button):
    bar.wait("the question to connect", lambda: is_asked(bar))
    bar.picture(f"question-{button.strip('&').lower()}")
    bar.click(bar.button_named(button)["rect"])
    bar.wait("no question", lambda: not is_asked(bar))


def play(stage):
    write_profiles(stage.settings, ("Far", 1500, 0), ("Near", 100, 0))
    bar = stage.open()
    bar.select_tab("Far")
    bar.wait("the tab's symbol edit", lambda: bar.find(id=SYMBOL, **{"class": "Edit"}))
    assert bar.tab_image("Far") == DISCONNECTED
    enter_name(bar, "esz6")
    answer(bar, "&No")
    symbol_is(bar, "ESZ6")
    assert bar.tab_image("Far") == DISCONNECTED

    # Leaving the edit takes the symbol over and asks nothing.
    bar.type_over(SYMBOL, "clz6")
    bar.key("Tab")
    symbol_is(bar, "CLZ6")
    assert not is_asked(bar)
    bar.picture("left-the-edit")

    dialog = SymbolDialog(bar)
    dialog.press_small_button()
    dialog.opened()
    dialog.search("qkh7", 1)
    bar.key("Return")
    dialog.closed()
    answer(bar, "&Yes")
    bar.wait_for_connection("Far", CONNECTED)
    symbol_is(bar, "QKH7")
    enter_name(bar, "nqz6")
    symbol_is(bar, "NQZ6")
    assert not is_asked(bar), "a connected profile needs no question"
    bar.picture("connected")

    bar.select_tab("Near")
    bar.key("ctrl+shift+t")
    bar.wait_for_connection("Near", CONNECTED)
    enter_name(bar, "vana")
    dialog.opened()
    bar.key("Down", "Return")
    dialog.closed()
    symbol_is(bar, "VANa")
    bar.leave()

    bar = stage.open("again")
    bar.wait("the tab that showed", lambda: bar.current_tab() == "Near")
    bar.wait_for_connection("Near", CONNECTED)
    bar.wait_for_connection("Far", CONNECTED)
    # By its id: of its name alone there are two.
    symbol_is(bar, "VANa")
    bar.picture("near-again")
    bar.select_tab("Far")
    symbol_is(bar, "NQZ6")
    assert not is_asked(bar)
    bar.picture("far-again")
    bar.leave()
