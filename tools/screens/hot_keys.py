"""Keys run the host's commands wherever the focus is, and stand behind the lines of its menus."""

from screen_bar import CONNECTED, DISCONNECTED, INSTRUMENTS, QUANTITY, SYMBOL, write_profiles

FEED = 1131


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.wait_for_connection("One", CONNECTED)

    bar.key("ctrl+shift+m")
    bar.dialog("Symbol mapping")
    assert bar.menus_usable(), "the host's own dialog locks nothing"
    assert bar.find(id=FEED, **{"class": "ComboBox"})[0]["text"] == "OrderDeck Quotes"
    bar.picture("symbol-mapping")
    bar.key("ctrl+a")
    bar.type("Other Feed")
    bar.wait("the feed typed", lambda: bar.find(id=FEED, **{"class": "ComboBox"})[0]["text"] == "Other Feed")
    bar.key("Return")
    bar.wait_without_dialog("Symbol mapping")
    bar.log_has("Symbols of OrderDeck Paper come from Other Feed at the bar's next start")
    # The bar takes no symbol of a feed that is not its profile's.
    bar.click(bar.row(INSTRUMENTS, 0, "ESZ6")["rect"], 0.1)
    bar.key("ctrl+shift+m")
    bar.dialog("Symbol mapping")
    assert bar.find(id=FEED, **{"class": "ComboBox"})[0]["text"] == "Other Feed"
    assert bar.text_of(SYMBOL, "Edit") == ""
    bar.key("Escape")
    bar.wait_without_dialog("Symbol mapping")

    bar.enter(SYMBOL)
    bar.key("ctrl+shift+t")
    bar.wait_for_connection("One", DISCONNECTED)
    bar.key("ctrl+shift+t")
    bar.wait_for_connection("One", CONNECTED)

    bar.key("alt+t")
    keys = {text: bar.menu_item(text)["text"].partition("\t")[2]
            for text in ("斷線 One", "設定經紀商...", "Profile &settings of One", "Symbol &mapping of One")}
    assert list(keys.values()) == [f"Ctrl + Shift + {letter}" for letter in "TPSM"], keys
    assert not bar.menu_item("Profile &settings of One")["enabled"], "settings want a disconnected profile"
    bar.picture("menu")
    bar.key("Escape", "Escape")
    bar.wait("no menu", lambda: not bar.menu())

    quantity = bar.find(id=QUANTITY)[0]["rect"]
    bar.click([quantity[0], quantity[3] + 4, quantity[2], quantity[3] + 8], button=3)
    assert bar.menu_item("商品轉換...")["text"] == "商品轉換...\tCtrl + Shift + M"
    bar.picture("panel-menu")
    # By keys: the menu reaches out of the window, and without a window manager keys go where the mouse is.
    bar.key("Up", "Return")
    bar.dialog("Symbol mapping")
    assert not bar.menus_usable(), "opened by the bar it locks the host's menus"
    bar.key("Escape")
    bar.wait_without_dialog("Symbol mapping")
    bar.wait("usable menus", bar.menus_usable)
    bar.leave()
