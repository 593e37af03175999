"""The order bar and its host in a script's words, over the screen's own."""

import collections
import datetime
import json
import os
import shutil
import subprocess

from screen_driver import Screen

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))

# Dialog items of the order row, and windows of the host.
SYMBOL, TYPE, QUANTITY, STOP, LIMIT, ASK_BID = 203, 206, 209, 214, 217, 231
STOP_SPIN, LIMIT_SPIN = 213, 216
ACCOUNT, TIME_IN_FORCE, DATE = 220, 222, 228
SET_UP = 229
BUTTONS = {"buy": 225, "sell": 227}
INSTRUMENTS, BLOTTER, LOG, STATUS = 1001, 1002, 1003, 1004
MESSAGE_TITLE = "OrderDeck Host"

OrderType = collections.namedtuple("OrderType", "code text fields")
TYPES = {
    "market": OrderType(1, "市價單", ()),
    "stop": OrderType(2, "停止單", (STOP,)),
    "limit": OrderType(3, "限價單", (LIMIT,)),
    "stop limit": OrderType(4, "停止限價單", (STOP, LIMIT)),
}

DISCONNECTED, CONNECTED, CONNECTING = 0, 1, 2

# Where the bar keeps what it remembers, and which feed serves which broker.
REMEMBERED = r"HKCU\SOFTWARE\OrderDeck\OrderDeck Host"


MINUTES_OF_A_DAY = 24 * 60


def zone_in_which_it_is(minute, now):
    """A time zone in which so many minutes of the day have passed at that moment, and the day there."""
    ahead = minute - (now.hour * 60 + now.minute)
    if ahead > MINUTES_OF_A_DAY // 2:
        ahead -= MINUTES_OF_A_DAY
    hours, minutes = divmod(abs(ahead), 60)
    # The name of a zone tells how far the clock in Greenwich is ahead of it.
    zone = f"NEAR{'-' if ahead > 0 else '+'}{hours:02}:{minutes:02}"
    return zone, (now + datetime.timedelta(minutes=ahead)).date()


def forget_earlier_sessions():
    """What is remembered of earlier runs would be one more input."""
    subprocess.run([os.path.join(ROOT, "tools", "wine-run"), "reg", "delete", REMEMBERED, "/f"],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)


def write_profiles(folder, *profiles):
    """The host's list of profiles, before it starts: name, delay in milliseconds, rejected of a hundred."""
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    listed = [
        {"id": f"orderdeck-paper-{number}", "name": name, "plugin": "OrderDeck Paper",
         "accounts": [f"DEMO-{number}01", f"DEMO-{number}02"], "delay_ms": delay, "reject_percent": rejected}
        for number, (name, delay, rejected) in enumerate(profiles, 1)
    ]
    with open(os.path.join(folder, "profiles.json"), "w", encoding="utf-8") as file:
        json.dump({"last_number": len(listed), "profiles": listed}, file)


class Bar(Screen):
    """A running host with the bar in it."""

    def __init__(self, folder, *options, environment=None):
        # Unless a scene has its own clock no midnight comes into it.
        zone, self.today = zone_in_which_it_is(MINUTES_OF_A_DAY // 2, datetime.datetime.now(datetime.timezone.utc))
        super().__init__(ROOT, folder, *options, environment=environment or {"TZ": zone})

    # Tabs

    def tabs(self):
        """The tabs that can be seen, left to right."""
        strips = self.find(**{"class": "SysTabControl32"})
        return strips[0]["items"] if strips else []

    def tab(self, name):
        return next((one for one in self.tabs() if one["text"] == name), None)

    def tab_image(self, name):
        """The mark on a tab, or None without the tab."""
        found = self.tab(name)
        return found["image"] if found else None

    def current_tab(self):
        strips = self.find(**{"class": "SysTabControl32"})
        selected = strips[0]["selected"] if strips else -1
        return strips[0]["items"][selected]["text"] if selected >= 0 else None

    def select_tab(self, name):
        found = self.wait(f"tab {name!r}", lambda: self.tab(name))
        if self.current_tab() != name:
            self.click(found["rect"])
        self.wait(f"tab {name!r} selected", lambda: self.current_tab() == name)

    def wait_for_connection(self, name, state=CONNECTED):
        self.wait(f"{name!r} in state {state}", lambda: self.tab_image(name) == state)

    # The order row

    def choose_instrument(self, name):
        """Sets an instrument of the host's list on the current tab."""
        self.click(self.row(INSTRUMENTS, 0, name)["rect"], 0.1)
        self.wait(f"symbol {name} on the tab", lambda: self.text_of(SYMBOL, "Edit") == name)

    def left_of(self, item, kind):
        """Where a control rests."""
        return self.control(item, kind)["rect"][0]

    def shown_prices(self):
        return tuple(item for item in (STOP, LIMIT) if self.find(id=item, **{"class": "Edit"}))

    def spin(self, item, up):
        """Presses one arrow of a spin."""
        self.click(self.control(item, "msctls_updown32")["rect"], 0.5, 0.25 if up else 0.75)

    def place(self, side):
        """Presses Buy or Sell and gives the order that arrives."""
        before = len(self.orders())
        self.press_button(BUTTONS[side])
        self.wait("the order in the log", lambda: len(self.orders()) > before)
        return self.orders()[before]

    def newest_order(self):
        """The texts of the first line of the orders; none before the first order."""
        rows = self.find(id=BLOTTER)[0]["rows"]
        return rows[0]["texts"] if rows else []

    # Menus and dialogs

    def menu(self):
        """The items of the one popup menu that is open."""
        return next((one["items"] for one in self.find(**{"class": "#32768"})), [])

    def menu_item(self, start):
        return self.wait(f"a menu item {start!r}", lambda: next(
            (one for one in self.menu() if one["text"].startswith(start)), None))

    def menus_usable(self):
        """Whether the menus of the frame can be opened."""
        frames = self.find(**{"class": "ATL_QVMDIMainFrame"})
        return bool(frames) and all(one["enabled"] for one in frames[0]["menus"] if one["text"] != "&Window")

    def dialog(self, title):
        """Waits for a dialog and for the focus in it."""
        def look():
            windows = {one["handle"]: one for one in self.windows()}
            holder = next((one for one in windows.values() if one["focus"]), None)
            while holder and holder["parent"]:
                holder = windows.get(holder["parent"])
            return holder and holder["class"] == "#32770" and holder["text"] == title
        self.wait(f"dialog {title!r}", look)

    def wait_without_dialog(self, title):
        self.wait(f"dialog {title!r} gone",
                  lambda: not self.find(**{"class": "#32770"}, text=title, parent=0))

    def message(self):
        """The text of the message box that is open."""
        def look():
            for box in self.find(**{"class": "#32770"}, text=MESSAGE_TITLE, parent=0):
                texts = [one["text"] for one in self.find(**{"class": "Static"}, parent=box["handle"])]
                if any(texts):
                    return max(texts, key=len)
            return None
        return self.wait("a message box", look)

    def answer(self, key="Return"):
        """Answers the message box by a key."""
        self.key(key)
        self.wait("no message box", lambda: not self.find(**{"class": "#32770"}, text=MESSAGE_TITLE, parent=0))

    def button_named(self, text):
        return self.wait(f"button {text!r}", lambda: self.find(**{"class": "Button"}, text=text, enabled=True))[0]

    def balloon(self):
        return self.wait("a balloon", lambda: self.find(**{"class": "tooltips_class32"}))[0]["text"]

    def log_text(self):
        return self.text_of(LOG, "Edit") or ""

    def log_has(self, text):
        self.wait(f"{text!r} in the log", lambda: text in self.log_text())

    def come_back(self):
        """Clicks into the log until the focus is there: the display may still show another's window."""
        def focused():
            self.click(self.find(id=LOG, **{"class": "Edit"})[0]["rect"])
            return self.find(id=LOG, focus=True)
        # The focus of before is told too.
        self.wait_for_news()
        self.wait("the focus in the log", focused)

    def leave(self):
        """Closes the window and waits for the end; nothing may be asked."""
        # Wine's list boxes keep Alt+F4 for themselves.
        self.click(self.find(id=LOG, **{"class": "Edit"})[0]["rect"])
        self.wait("the focus in the log", lambda: self.find(id=LOG, focus=True))
        self.key("alt+F4")
        code = self.ended()
        if code != 0:
            raise AssertionError(f"the host ended with {code}")
