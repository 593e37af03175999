// A list of rows in columns.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <string_view>
#include <vector>

#include "window/dialog_look.h"

namespace host {

struct list_column {
    std::string_view title;
    // At 96 dots per inch.
    int width;
    bool right = false;
};

// Wraps a list view; the window belongs to its parent.
class list_view {
public:
    list_view(HWND parent, int id, const std::vector<list_column>& columns);

    HWND handle() const { return m_window; }

    // Inserts a row with a number of the caller's before the row at the index.
    void insert(int index, int number);

    // Writes the texts that differ from what stands there. UTF-8.
    void set_row(int index, const std::vector<std::string>& texts);

    // The row's number, or 0 when the index is out of range.
    int number(int index) const;
    // The row of a number, or -1.
    int row_of(int number) const;
    // The number of the selected row, or 0.
    int selected() const;

    // Gives the last column the width that the others leave, but not less than it was made with.
    void fit();

private:
    HWND m_window;
    // In pixels: of the last column as it was made, and of all others.
    int m_last_width = 0;
    int m_other_widths = 0;
    // What stands in the rows, to write only what changes. By the row's number.
    std::vector<std::pair<int, std::vector<std::string>>> m_texts;
};

}  // namespace host
