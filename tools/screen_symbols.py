"""The symbol dialog in a script's words."""

from screen_bar import SYMBOL

# Items of the dialog and of its page.
OK, SEARCH, LIST = 1, 301, 303
TITLE = "搜尋 - OrderDeck Quotes"


class SymbolDialog:
    """Of the bar's one symbol edit."""

    def __init__(self, bar):
        self._bar = bar

    def press_small_button(self):
        """It stands inside the symbol's edit, at its right end."""
        edit = self._bar.control(SYMBOL, "Edit")
        left, top, right, bottom = edit["rect"]
        self._bar.click([right - 14, top, right - 2, bottom])

    def is_open(self):
        return bool(self._bar.find(text=TITLE, **{"class": "#32770"}))

    def opened(self):
        self._bar.dialog(TITLE)
        self._bar.wait("the focus in the search line",
                       lambda: self._bar.find(id=SEARCH, focus=True, **{"class": "Edit"}))

    def closed(self):
        self._bar.wait_without_dialog(TITLE)

    def list(self):
        return self._bar.find(id=LIST, **{"class": "SysListView32"})[0]

    def names(self):
        return [one["texts"][0] for one in self.list()["rows"]]

    def row(self, name):
        return next(one for one in self.list()["rows"] if one["texts"][0] == name)

    def chosen_is(self, name):
        def look():
            if not self.is_open():
                return False
            found = self.list()
            line = found["selected"] - found["first"]
            return found["selected"] >= 0 and 0 <= line < len(found["rows"]) \
                and found["rows"][line]["texts"][0] == name
        self._bar.wait(f"{name!r} chosen in the dialog", look)

    def search(self, text, count):
        """Types over what stands in the search line; so many symbols fit."""
        self._bar.key("ctrl+a")
        self._bar.type(text)
        self._bar.wait(f"{count} symbols for {text!r}", lambda: self.list()["count"] == count
                       and self._bar.text_of(SEARCH, "Edit") == text)

    def click_column(self, index):
        headers = [one for one in self._bar.find(**{"class": "SysHeader32"})
                   if one["parent"] == self.list()["handle"]]
        left, top, _, bottom = headers[0]["rect"]
        assert index == 0, "the first column stands at the left end"
        self._bar.click([left, top, left + 80, bottom])
