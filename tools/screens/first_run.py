"""Nothing is set up: only the set-up button stands in the bar. A profile is added and connected."""

from screen_bar import ACCOUNT, CONNECTED, CONNECTING, DISCONNECTED, SET_UP, STATUS, STOP, SYMBOL, write_profiles

PROFILES, BROKER, NAME, ADD = 1101, 1102, 1103, 1104


def play(stage):
    write_profiles(stage.settings)
    bar = stage.open()
    button = bar.control(SET_UP, "Button")
    assert button["text"] == "設定經紀商", button
    assert bar.tabs() == [] and not bar.find(id=SYMBOL, **{"class": "Edit"})
    assert bar.menus_usable()
    bar.picture("nothing-set-up")

    bar.click(button["rect"])
    bar.dialog("Trading profiles")
    assert not bar.menus_usable(), "the host's menus are locked while the editor is open"
    bar.choose(BROKER, "OrderDeck Paper Remote")
    bar.type_over(NAME, "First")
    bar.press_button(ADD)
    row = bar.row(PROFILES, 0, "First")
    assert row["texts"] == ["First", "OrderDeck Paper Remote", "Disconnected"], row
    bar.picture("added")
    bar.click(bar.button_named("Close")["rect"])
    bar.wait_without_dialog("Trading profiles")
    bar.wait("usable menus", bar.menus_usable)
    bar.wait("the new tab", lambda: bar.tab("First"))
    assert bar.current_tab() == "First" and bar.tab_image("First") == DISCONNECTED
    assert not bar.find(id=SET_UP, **{"class": "Button"})
    bar.picture("one-profile")

    bar.click(bar.tab("First")["rect"], button=3)
    lines = [bar.menu_item(start)["text"] for start in ("連線 First", "設定經紀商 First", "商品轉換...")]
    assert lines == ["連線 First", "設定經紀商 First", "商品轉換...\tCtrl + Shift + M"], lines
    bar.picture("right-click")
    bar.click(bar.menu_item("連線 First")["rect"])
    bar.wait_for_connection("First", CONNECTING)
    bar.picture("connecting")
    bar.wait_for_connection("First", CONNECTED)
    bar.wait("the accounts", lambda: bar.find(id=ACCOUNT, **{"class": "ComboBox"})[0]["items"])
    accounts = bar.find(id=ACCOUNT, **{"class": "ComboBox"})[0]["items"]
    assert accounts == ["DEMO-101", "DEMO-102", "模擬帳戶-1"], accounts
    bar.wait("the status line",
             lambda: bar.text_of(STATUS, "msctls_statusbar32") == "OrderDeck Paper Remote:已連線")
    assert not bar.find(id=STOP, **{"class": "Edit"})
    bar.picture("connected")
    bar.leave()
