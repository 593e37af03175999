"""Drives the reference host on a display by real mouse and keyboard input.

What is on the screen is read from the description that the host writes of its own windows ten times a
second; nothing is sent to it but input. Every wait is for a condition and fails with what was seen.
"""

import json
import os
import subprocess
import time

# In seconds, to end a hang: no machine is so slow.
TIMEOUT = 300.0
# Two presses at one place that are further apart are no double click.
DOUBLE_CLICK = 0.6


class ScreenError(Exception):
    """The screen did not come to the state that the script waited for."""


class Screen:
    """One running host."""

    def __init__(self, root, folder, *options, environment=None):
        self.folder = folder
        self.order_log = os.path.join(folder, "orders.jsonl")
        self._description = os.path.join(folder, "windows.json")
        self._pictures = 0
        self._pressed = None
        self._pressed_at = 0.0
        for path in (self.order_log, self._description):
            if os.path.exists(path):
                os.remove(path)
        command = [os.path.join(root, "tools", "run-host"), "--describe", self._description]
        command += ["--order-log", self.order_log, *options]
        self._process = subprocess.Popen(command, cwd=root, env={**os.environ, **(environment or {})})

    # Reading

    def _newest(self):
        try:
            with open(self._description, encoding="utf-8") as file:
                return json.load(file)
        except FileNotFoundError:
            return {"count": 0, "windows": []}

    def windows(self):
        """The visible windows of the newest description; none before the first."""
        return [one for one in self._newest()["windows"] if one["visible"]]

    def find(self, **wanted):
        """The visible windows whose properties are as wanted."""
        return [one for one in self.windows() if all(one.get(key) == value for key, value in wanted.items())]

    def log_lines(self):
        """The complete lines of the order log."""
        try:
            with open(self.order_log, encoding="utf-8") as file:
                return [json.loads(line) for line in file if line.endswith("\n")]
        except FileNotFoundError:
            return []

    def orders(self):
        """The orders of the log, without the results that the bar got for them."""
        return [line for line in self.log_lines() if "after" not in line]

    def wait(self, what, condition):
        """The first true answer of the condition. Raises ScreenError when none comes."""
        end = time.monotonic() + TIMEOUT
        while time.monotonic() < end:
            found = condition()
            if found:
                return found
            if self._process.poll() is not None:
                raise ScreenError(f"the host ended with {self._process.returncode} while waiting for {what}")
            time.sleep(0.03)
        self.picture("failed")
        raise ScreenError(f"waited in vain for {what}; the screen had:\n{self._summary()}")

    def wait_for_news(self):
        """Waits for a description that was begun after now."""
        count = self._newest()["count"]
        self.wait("a new description", lambda: self._newest()["count"] > count + 1)

    def _summary(self):
        return "\n".join(
            f"  {one['class']} {one['id']} {one['rect']} enabled={one['enabled']} {one['text'][:60]!r}"
            for one in self.windows()
        )

    def control(self, item, kind):
        """An enabled control by dialog item and window class, at the same place in two descriptions."""
        last = {"count": 0, "rect": None}

        def resting():
            newest = self._newest()
            found = [one for one in newest["windows"]
                     if one["visible"] and one["enabled"] and one["id"] == item and one["class"] == kind]
            if len(found) != 1 or newest["count"] == last["count"]:
                return None
            still = found[0]["rect"] == last["rect"]
            last.update(count=newest["count"], rect=found[0]["rect"])
            return found[0] if still else None

        return self.wait(f"{kind} {item}", resting)

    def text_of(self, item, kind):
        found = self.find(id=item, **{"class": kind})
        return found[0]["text"] if found else None

    # Acting

    def _xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], check=True)

    def move(self, rect):
        """Moves the mouse into the middle."""
        self._xdotool("mousemove", (rect[0] + rect[2]) // 2, (rect[1] + rect[3]) // 2)

    def click(self, rect, part=0.5, height=0.5, button=1):
        """Clicks at a part of the width and of the height; button 3 is the right one."""
        x = int(rect[0] + (rect[2] - rect[0]) * part)
        y = int(rect[1] + (rect[3] - rect[1]) * height)
        self._xdotool("mousemove", x, y, "click", button)

    def in_one_go(self, *steps):
        """Presses keys, told by name, and clicks into rectangles, with no time between them."""
        arguments = []
        for step in steps:
            if isinstance(step, str):
                arguments += ["key", step]
            else:
                arguments += ["mousemove", (step[0] + step[2]) // 2, (step[1] + step[3]) // 2, "click", 1]
        self._xdotool(*arguments)

    def key(self, *names):
        self._xdotool("key", *names)

    def type(self, text):
        """Types into whatever has the focus."""
        # A letter that the keyboard doesn't have is put onto a key for a moment, which must not be over too soon.
        self._xdotool("type", "--delay", "30" if text.isascii() else "1500", text)

    def enter(self, item):
        """Puts the focus into an edit control and selects its text."""
        edit = self.control(item, "Edit")
        self.click(edit["rect"], 0.25)
        self.wait(f"the focus in edit {item}", lambda: self.find(id=item, **{"class": "Edit"}, focus=True))
        self.key("Home", "shift+End")

    def type_over(self, item, text, shown=None):
        """Replaces the text of an edit control, as a person would, and waits until it shows."""
        self.enter(item)
        self.type(text)
        wanted = text if shown is None else shown
        self.wait(f"{wanted!r} in edit {item}", lambda: self.text_of(item, "Edit") == wanted)

    def choose(self, item, text):
        """Opens a drop-down list by mouse and clicks the item that starts with the text."""
        combo = self.control(item, "ComboBox")
        index = next((n for n, one in enumerate(combo["items"]) if one.startswith(text)), None)
        if index is None:
            raise ScreenError(f"list {item} has no {text!r} but {combo['items']}")
        if combo["selected"] == index:
            return
        left, top, right, bottom = self._opened_list(combo, item)["rect"]
        height = (bottom - top - 2) / len(combo["items"])
        middle = top + 1 + height * (index + 0.5)
        self.click([left, middle - 1, right, middle + 1], 0.3)
        # Without a window manager keys go where the mouse is, and the list reaches out of the window.
        self.move(combo["rect"])
        self.wait(
            f"{text!r} chosen in list {item}",
            lambda: self.find(id=item, **{"class": "ComboBox"}, selected=index, dropped=False),
        )

    def _opened_list(self, combo, item):
        """Clicks until the list is open: a window that has only just come may miss a click."""
        clicked = None

        def opened():
            nonlocal clicked
            count = self._newest()["count"]
            dropped = self.find(id=item, **{"class": "ComboBox"}, dropped=True)
            if clicked is None or (not dropped and count > clicked + 20):
                self.click(combo["rect"])
                clicked = count
            return self._open_list(item)

        return self.wait(f"the open list of {item}", opened)

    def _open_list(self, item):
        dropped = self.find(id=item, **{"class": "ComboBox"}, dropped=True)
        lists = self.find(**{"class": "ComboLBox"})
        return lists[0] if dropped and len(lists) == 1 else None

    def row(self, item, column, text):
        """The row of a list view that has the text in the column."""

        def look():
            for one in self.find(id=item, **{"class": "SysListView32"}):
                for row in one["rows"]:
                    if row["texts"][column] == text:
                        return row
            return None

        return self.wait(f"row {text!r}", look)

    def press_button(self, item):
        """As a press of its own, not as the second click of a double click."""
        place = self.control(item, "Button")["rect"]
        if place == self._pressed:
            time.sleep(max(0.0, self._pressed_at + DOUBLE_CLICK - time.monotonic()))
        self.click(place)
        self._pressed, self._pressed_at = place, time.monotonic()

    def picture(self, name):
        """Takes a picture of the whole screen; the names are numbered."""
        self._pictures += 1
        path = os.path.join(self.folder, f"{self._pictures:02d}-{name}.png")
        subprocess.run(["import", "-window", "root", path], check=True)

    def ended(self):
        """Waits for the host's end and gives its exit code."""
        try:
            return self._process.wait(TIMEOUT)
        except subprocess.TimeoutExpired:
            raise ScreenError("the host does not end") from None

    def stop(self):
        """Ends a host that is still there."""
        if self._process.poll() is None:
            self._process.terminate()
            self._process.wait(TIMEOUT)
