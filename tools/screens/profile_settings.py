"""Settings of a profile: refused while it is connected, then changed, and used at the next connection."""

from screen_bar import ACCOUNT, CONNECTED, DISCONNECTED, write_profiles

ACCOUNTS, DELAY, REJECTED = 1113, 1114, 1116


def play(stage):
    write_profiles(stage.settings, ("One", 0, 0))
    bar = stage.open()
    bar.select_tab("One")
    bar.wait_for_connection("One", CONNECTED)
    bar.click(bar.tab("One")["rect"], button=3)
    bar.click(bar.menu_item("設定經紀商 One")["rect"])
    assert bar.message() == "One 已連線，目前無法調整設定。\n請先中斷連線。", bar.message()
    bar.picture("connected")
    bar.answer()
    bar.key("ctrl+shift+t")
    bar.wait_for_connection("One", DISCONNECTED)
    bar.click(bar.tab("One")["rect"], button=3)
    bar.click(bar.menu_item("設定經紀商 One")["rect"])
    bar.dialog("Profile settings")
    assert not bar.menus_usable()
    bar.enter(ACCOUNTS)
    bar.key("ctrl+Home", "ctrl+shift+End")
    bar.type("North\nNorth")
    bar.click(bar.button_named("OK")["rect"])
    assert bar.message() == 'Account "North" is there twice.', bar.message()
    bar.picture("refused")
    bar.answer()
    bar.enter(ACCOUNTS)
    bar.key("ctrl+Home", "ctrl+shift+End")
    bar.type("North\nSouth")
    bar.type_over(DELAY, "300")
    bar.type_over(REJECTED, "100")
    bar.picture("settings")
    bar.click(bar.button_named("OK")["rect"])
    bar.wait_without_dialog("Profile settings")

    bar.key("ctrl+shift+t")
    bar.wait_for_connection("One", CONNECTED)
    bar.wait("the new accounts",
             lambda: bar.find(id=ACCOUNT, **{"class": "ComboBox"})[0]["items"] == ["North", "South"])
    bar.choose_instrument("KO")
    bar.choose(ACCOUNT, "South")
    assert bar.place("buy")["account"] == "South"
    bar.wait("the rejection", lambda: "Rejected by the broker" in bar.newest_order())
    bar.picture("rejected")
    bar.leave()
