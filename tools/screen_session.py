"""A session with the order bar as its user has it: one order of each type, by mouse and keyboard.

    screen_session.py [FOLDER]

Leaves a picture of every step and the order log in the folder (out/session by default), prints what was
asked for beside what arrived at the trading centre, and fails when they differ.
"""

import datetime
import math
import os
import shutil
import sys

from screen_bar import (ACCOUNT, BLOTTER, BUTTONS, INSTRUMENTS, LIMIT, QUANTITY, ROOT, STOP, SYMBOL, TIME_IN_FORCE, TYPE, TYPES,
                        Bar, forget_earlier_sessions)
from screen_driver import ScreenError

ACTIONS = {"buy": 1, "sell": 2}
TIMES = {"DAY": 1, "GTC": 2, "GTD": 3, "IOC": 4, "FOK": 5, "AON": 6}

# Prices stand as typed and as the number that has to arrive.
ORDERS = [
    {"symbol": "2330", "by": "mouse", "side": "buy", "type": "market", "quantity": 300, "time": "IOC"},
    {"symbol": "ESZ6", "by": "keyboard", "side": "sell", "type": "stop", "quantity": 2, "time": "GTC",
     "stop": ("6000 1/4", 6000.25)},
    {"symbol": "ZBZ6", "by": "mouse", "side": "buy", "type": "limit", "quantity": 3, "time": "AON",
     "limit": ("117 5/32", 117.15625), "account": "DEMO-102"},
    {"symbol": "EURUSD", "by": "mouse", "side": "buy", "type": "stop limit", "quantity": 4, "time": "GTD",
     "stop": ("1.09001", 1.09001), "limit": ("1.09105", 1.09105), "account": "模擬帳戶-1"},
]


def ole_day(day):
    return (day - datetime.date(1899, 12, 30)).days


def expected(order, today):
    """The seven arguments; the date as its day, since its time of day is the moment the tab was made."""
    return {
        "action": ACTIONS[order["side"]],
        "category": TYPES[order["type"]].code,
        "quantity": order["quantity"],
        "stop_price": order.get("stop", ("", 0.0))[1],
        "limit_price": order.get("limit", ("", 0.0))[1],
        "time_in_force": TIMES[order["time"]],
        "gtd_date": ole_day(today),
    }


def set_symbol(screen, order):
    if order["by"] == "mouse":
        screen.click(screen.row(INSTRUMENTS, 0, order["symbol"])["rect"], 0.1)
    else:
        screen.type_over(SYMBOL, order["symbol"].lower())
        screen.key("Return")
    screen.wait(f"symbol {order['symbol']} on the tab",
                lambda: screen.text_of(SYMBOL, "Edit") == order["symbol"])


def fill_in(screen, order):
    set_symbol(screen, order)
    screen.choose(TYPE, TYPES[order["type"]].text)
    screen.choose(TIME_IN_FORCE, order["time"])
    if "account" in order:
        screen.choose(ACCOUNT, order["account"])
    screen.type_over(QUANTITY, str(order["quantity"]))
    if "stop" in order:
        screen.type_over(STOP, order["stop"][0])
    if "limit" in order:
        screen.type_over(LIMIT, order["limit"][0])


def connect_by_menu(screen, name):
    """The profile menu is the bar's own list of commands, in the host's menu bar."""
    screen.key("alt+t")

    def line():
        for menu in screen.find(**{"class": "#32768"}):
            for item in menu["items"]:
                if item["text"].endswith(" " + name) and item["enabled"]:
                    return item
        return None

    item = screen.wait(f"a menu line for {name!r}", line)
    screen.picture("profile-menu")
    screen.click(item["rect"])
    screen.wait(f"{name!r} connecting", lambda: screen.tab_image(name) == 2)
    screen.picture("connecting")
    screen.wait(f"{name!r} connected", lambda: screen.tab_image(name) == 1)


def cancel_newest(screen):
    rows = screen.find(id=BLOTTER)[0]["rows"]
    screen.click(rows[0]["rect"], 0.1)
    screen.wait("the newest order selected", lambda: screen.find(id=BLOTTER, selected=0, focus=True))
    screen.key("Delete")
    screen.wait("it is cancelled", lambda: "Cancelled" in screen.find(id=BLOTTER)[0]["rows"][0]["texts"])
    screen.picture("cancelled")


def play(screen):
    screen.select_tab("Paper")
    # Without a window manager keys go where the mouse is.
    screen.move(screen.tab("Paper")["rect"])
    screen.picture("start")
    connect_by_menu(screen, "Paper Remote")
    for number, order in enumerate(ORDERS, 1):
        name = order["type"].replace(" ", "-")
        fill_in(screen, order)
        screen.picture(f"{name}-filled-in")
        screen.press_button(BUTTONS[order["side"]])
        screen.wait(f"order {number} in the log", lambda: len(screen.orders()) >= number)
        screen.wait(f"order {number} in the blotter",
                    lambda: [one for one in screen.find(id=BLOTTER) if len(one["rows"]) >= number])
        screen.picture(f"{name}-sent")
    cancel_newest(screen)
    close(screen)


def close(screen):
    """Leaves by the window's close key; the host asks since orders are still live."""
    screen.key("alt+F4")
    yes = screen.wait("the question about live orders",
                      lambda: [one for one in screen.find(**{"class": "Button"}) if one["text"] == "&Disconnect"])
    screen.picture("closing")
    screen.click(yes[0]["rect"])
    code = screen.ended()
    if code != 0:
        raise ScreenError(f"the host ended with {code}")


def compare(arrived, today):
    """Prints the table; true when all that was asked for arrived, and nothing else."""
    print(f"{'order':<12} {'argument':<15} {'asked':>12} {'arrived':>18}")
    same = len(arrived) == len(ORDERS)
    for order, line in zip(ORDERS, arrived):
        for name, asked in expected(order, today).items():
            got = line[name]
            equal = (math.floor(got) if name == "gtd_date" else got) == asked
            same = same and equal
            print(f"{order['type']:<12} {name:<15} {asked!r:>12} {got!r:>18}{'' if equal else '  DIFFERS'}")
        for name in ("symbol", "account"):
            if order.get(name, line[name]) != line[name]:
                same = False
                print(f"{order['type']:<12} {name:<15} {order[name]!r:>12} {line[name]!r:>18}  DIFFERS")
    if len(arrived) != len(ORDERS):
        print(f"{len(ORDERS)} orders were pressed, {len(arrived)} arrived")
    return same


def main():
    folder = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, "out", "session"))
    os.makedirs(folder, exist_ok=True)
    for name in os.listdir(folder):
        if name.endswith(".png"):
            os.remove(os.path.join(folder, name))
    forget_earlier_sessions()
    settings = os.path.join(folder, "settings")
    shutil.rmtree(settings, ignore_errors=True)
    screen = Bar(folder, "--frozen-quotes", "--seed", "7", "--settings", settings)
    try:
        play(screen)
    except ScreenError as error:
        print(f"session: {error}", file=sys.stderr)
        return 1
    finally:
        screen.stop()
    if not compare(screen.orders(), screen.today):
        return 1
    print(f"session: {len(ORDERS)} orders, all as asked; pictures in {folder}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
