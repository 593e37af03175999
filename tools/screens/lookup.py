"""How a typed name becomes one symbol: at once, by the symbol dialog, or not at all."""

from screen_bar import INSTRUMENTS, SYMBOL, write_profiles
from screen_symbols import OK, SEARCH, SymbolDialog


def enter_name(bar, text):
    bar.type_over(SYMBOL, text)
    bar.key("Return")


def symbol_is(bar, name):
    bar.wait(f"symbol {name!r} on the tab", lambda: bar.text_of(SYMBOL, "Edit") == name)


def play(stage):
    write_profiles(stage.settings, ("Paper", 0, 0))
    bar = stage.open()
    bar.select_tab("Paper")
    bar.log_has("Symbols: 2039 instruments")
    assert "Symbol file:" not in bar.log_text()
    found_at_once(bar)
    unknown(bar)
    ambiguous(bar)
    by_the_small_button(bar)
    bar.leave()


def found_at_once(bar):
    """A name that one symbol has, in any case of its letters; of the second table too."""
    enter_name(bar, "bk03")
    symbol_is(bar, "BK03")
    bar.log_has("Paper: symbol BK03, feed OrderDeck Quotes")
    enter_name(bar, "qkh7")
    symbol_is(bar, "QKH7")
    bar.row(INSTRUMENTS, 0, "QKH7")
    bar.picture("found-at-once")
    order = bar.place("buy")
    assert order["symbol"] == "QKH7", order


def unknown(bar):
    """The dialog shows what was typed; Esc brings the former symbol back."""
    dialog = SymbolDialog(bar)
    enter_name(bar, "nosuch")
    dialog.opened()
    assert bar.text_of(SEARCH, "Edit") == "nosuch"
    assert dialog.list()["count"] == 0
    assert not bar.find(id=OK, enabled=True, **{"class": "Button"}), "there is nothing to choose"
    bar.picture("unknown-name")
    bar.key("Escape")
    dialog.closed()
    symbol_is(bar, "QKH7")


def ambiguous(bar):
    """Two symbols of one name: the arrows of the search line choose, Enter takes."""
    dialog = SymbolDialog(bar)
    enter_name(bar, "vana")
    dialog.opened()
    dialog.chosen_is("VANA")
    assert dialog.list()["count"] == 2
    bar.picture("ambiguous-name")
    bar.key("Down")
    dialog.chosen_is("VANa")
    bar.key("Return")
    dialog.closed()
    symbol_is(bar, "VANa")
    bar.log_has("Paper: symbol VANa, feed OrderDeck Quotes")


def by_the_small_button(bar):
    """The dialog opens on the present symbol; typing narrows, a column sorts, the mouse picks."""
    dialog = SymbolDialog(bar)
    dialog.press_small_button()
    dialog.opened()
    dialog.chosen_is("VANa")
    bar.picture("on-the-present-symbol")
    dialog.search("taifex 買權", 40)
    bar.picture("narrowed")
    dialog.search("long bond", 8)
    dialog.click_column(0)
    bar.wait("names in order", lambda: dialog.names() == sorted(dialog.names()))
    dialog.chosen_is("QKZ6")
    bar.picture("sorted")
    bar.click(dialog.row("QKM8")["rect"], 0.1)
    dialog.chosen_is("QKM8")
    bar.press_button(OK)
    dialog.closed()
    symbol_is(bar, "QKM8")
