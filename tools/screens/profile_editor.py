"""Profiles are renamed, moved, reloaded, removed one by one and all at once; the host keeps them for its next start."""

from screen_bar import LIMIT, SET_UP, SYMBOL, TYPE, TYPES, write_profiles

PROFILES, NAME = 1101, 1103
REMOVE, RENAME, MOVE_UP, MOVE_DOWN, RELOAD = 1105, 1106, 1107, 1108, 1109


def names(bar):
    return [row["texts"][0] for row in bar.find(id=PROFILES)[0]["rows"]]


def tab_names(bar):
    return [one["text"] for one in bar.tabs()]


def play(stage):
    write_profiles(stage.settings, ("Alpha", 0, 0), ("Beta", 0, 0), ("Gamma", 0, 0))
    bar = stage.open()
    bar.select_tab("Alpha")
    bar.choose_instrument("ESZ6")
    bar.key("ctrl+shift+p")
    bar.dialog("Trading profiles")
    bar.click(bar.row(PROFILES, 0, "Alpha")["rect"], 0.1)
    bar.wait("its name", lambda: bar.text_of(NAME, "Edit") == "Alpha")
    bar.type_over(NAME, "Beta")
    bar.press_button(RENAME)
    assert bar.message() == "Another profile has this name."
    bar.answer()
    bar.type_over(NAME, "Omega")
    bar.press_button(RENAME)
    bar.wait("the new name", lambda: names(bar) == ["Omega", "Beta", "Gamma"])
    assert tab_names(bar) == ["Alpha", "Beta", "Gamma"], "a tab takes a new name with a reload"
    bar.press_button(MOVE_DOWN)
    bar.wait("one down", lambda: names(bar) == ["Beta", "Omega", "Gamma"])
    bar.picture("renamed-and-moved")
    bar.press_button(RELOAD)
    bar.wait("the tabs anew", lambda: tab_names(bar) == ["Beta", "Gamma", "Omega"])
    bar.key("Escape")
    bar.wait_without_dialog("Trading profiles")
    bar.select_tab("Omega")
    bar.wait("no symbol after a reload", lambda: bar.text_of(SYMBOL, "Edit") == "")
    bar.picture("reloaded")

    # The one that shows goes, by the keyboard alone.
    bar.key("ctrl+shift+p")
    bar.dialog("Trading profiles")
    bar.key("alt+p", "Home", "Down")
    bar.wait("its name", lambda: bar.text_of(NAME, "Edit") == "Omega")
    bar.control(REMOVE, "Button")
    bar.key("alt+v")
    bar.wait("two tabs", lambda: tab_names(bar) == ["Beta", "Gamma"])
    assert names(bar) == ["Beta", "Gamma"]
    bar.key("Escape")
    bar.wait_without_dialog("Trading profiles")
    bar.wait("the leftmost shows", lambda: bar.current_tab() == "Beta")
    bar.choose_instrument("KO")
    assert bar.place("buy")["profile"] == "Beta"
    bar.picture("removed")
    bar.leave()

    again = stage.open("again")
    again.wait("the tabs of the last run", lambda: tab_names(again) == ["Beta", "Gamma"])
    remove_all(again)
    again.leave()


def remove_all(bar):
    """All profiles go at once, or none does."""
    bar.select_tab("Gamma")
    bar.choose_instrument("KO")
    bar.choose(TYPE, TYPES["limit"].text)
    bar.type_over(LIMIT, "50")
    bar.place("buy")
    bar.key("ctrl+shift+p")
    bar.dialog("Trading profiles")
    bar.key("alt+e")
    assert bar.message() == "Remove all profiles (2)?", bar.message()
    bar.picture("all-asked")
    bar.answer()
    assert names(bar) == ["Beta", "Gamma"], "Enter takes the answer that loses nothing"
    bar.key("alt+e")
    bar.message()
    bar.answer("alt+y")
    bar.dialog("Disconnect?")
    bar.key("Escape")
    bar.dialog("Trading profiles")
    assert names(bar) == tab_names(bar) == ["Beta", "Gamma"], "who keeps an order keeps all profiles"
    bar.key("alt+e")
    bar.message()
    bar.answer("alt+y")
    bar.dialog("Disconnect?")
    bar.key("alt+d")
    bar.wait("no profile", lambda: names(bar) == [] and tab_names(bar) == [])
    bar.dialog("Trading profiles")
    bar.picture("all-removed")
    bar.key("Escape")
    bar.wait_without_dialog("Trading profiles")
    assert bar.control(SET_UP, "Button")["text"] == "設定經紀商"
