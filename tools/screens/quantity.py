"""The starting quantity follows the kind of instrument, and a tab keeps what was typed."""

from screen_bar import QUANTITY, write_profiles


def quantity_becomes(bar, text):
    bar.wait(f"quantity {text}", lambda: bar.text_of(QUANTITY, "Edit") == text)


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0), ("Two", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.choose_instrument("MSFT")
    quantity_becomes(bar, "100")
    bar.picture("stock")
    bar.choose_instrument("ESZ6")
    quantity_becomes(bar, "1")
    bar.type_over(QUANTITY, "7")
    bar.choose_instrument("NQZ6")
    quantity_becomes(bar, "7")
    assert bar.place("buy")["quantity"] == 7
    bar.select_tab("Two")
    bar.choose_instrument("ESZ6")
    bar.select_tab("One")
    quantity_becomes(bar, "7")
    bar.picture("kept")
    bar.choose_instrument("KO")
    quantity_becomes(bar, "100")
    assert bar.place("buy")["quantity"] == 100
    bar.leave()
