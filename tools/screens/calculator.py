"""The calculator turns an amount of money into whole lots: by the key and by its button, and by neither."""

from screen_bar import QUANTITY, write_profiles

MONEY, PRICE, LOT, RESULT, DETAIL = 1141, 1142, 1143, 1145, 1146


def says(bar, item, text):
    bar.wait(f"{text!r} in {item}", lambda: bar.find(id=item, **{"class": "Static"}, text=text))


def closed(bar):
    bar.wait("the calculator closed", lambda: not bar.find(id=RESULT, **{"class": "Static"}))


def shows(bar, text):
    bar.wait(f"quantity {text}", lambda: bar.text_of(QUANTITY, "Edit") == text)


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.choose_instrument("MSFT")
    shows(bar, "100")
    bar.enter(QUANTITY)
    bar.key("F4")
    bar.wait("the focus in the amount", lambda: bar.find(id=MONEY, **{"class": "Edit"}, focus=True))
    says(bar, DETAIL, "Enter an amount, a price and a lot size.")
    assert bar.text_of(LOT, "Edit") == "100"
    bar.picture("empty")
    bar.type("100,000")
    bar.key("Tab")
    bar.type("428.16")
    says(bar, RESULT, "200")
    says(bar, DETAIL, "2 lots of 100 for 85,632.00, 14,368.00 left over.")
    bar.picture("result")
    bar.key("Return")
    closed(bar)
    shows(bar, "200")
    assert bar.place("buy")["quantity"] == 200

    edit = bar.control(QUANTITY, "Edit")["rect"]
    bar.click([edit[2] - 34, edit[1], edit[2] - 18, edit[3]])
    bar.wait("the calculator open", lambda: bar.find(id=MONEY, **{"class": "Edit"}, focus=True))
    bar.type_over(MONEY, "50")
    bar.type_over(PRICE, "10")
    says(bar, DETAIL, "Not enough for one lot of 100.")
    bar.picture("too-little")
    bar.key("Escape")
    closed(bar)
    shows(bar, "200")
    bar.leave()
