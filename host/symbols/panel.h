// The symbol page's window: a search line, the feed, and the list of what fits.
//
// The list always shows one row as chosen, so that a typed text and Enter are enough: the best match after
// each key, or the present choice before anything is typed.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>

#include "market/symbol_filter.h"

namespace host {

// What the panel begins with.
struct symbol_panel_start {
    // Empty for all feeds.
    std::string feed;
    std::string text;
    // The id of the present choice, 0 for none.
    int present = 0;
};

class symbol_panel {
public:
    // store has to outlive the panel. on_change hears when another row is chosen. Throws std::runtime_error.
    symbol_panel(HWND parent, const RECT& place, const symbol_store& store,
                 const symbol_filter::takes& may_show, const symbol_panel_start& start,
                 std::function<void()> on_change);
    ~symbol_panel();
    symbol_panel(const symbol_panel&) = delete;
    symbol_panel& operator=(const symbol_panel&) = delete;

    HWND handle() const { return m_window; }
    void move(const RECT& place);
    // Null when no row is there.
    const instrument* chosen() const;

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static LRESULT CALLBACK on_edit_message(HWND edit, UINT message, WPARAM wparam, LPARAM lparam,
                                            UINT_PTR id, DWORD_PTR panel);
    bool handle_message(UINT message, WPARAM wparam, LPARAM lparam);
    void set_up(const symbol_panel_start& start);
    void fill_feeds(const std::string& feed);
    void make_columns();
    void arrange();
    void search();
    void sort_by(int column);
    void show_sorting() const;
    void show_count() const;
    // Makes the row of an instrument the chosen one, or the first row.
    void choose(const instrument* wanted);
    LRESULT on_list_notice(NMHDR& notice);
    void give_cell(NMLVDISPINFOW& notice) const;
    LRESULT find_row(const NMLVFINDITEMW& notice) const;
    LRESULT draw(NMLVCUSTOMDRAW& notice) const;
    bool moves_list(WPARAM key) const;
    HWND item(int id) const { return GetDlgItem(m_window, id); }
    std::string feed() const;

    const symbol_store& m_store;
    symbol_filter m_filter;
    std::function<void()> m_on_change;
    HWND m_window = nullptr;
    symbol_filter::rows m_rows;
    // -1 for the order of the search.
    int m_sorted_by = -1;
    bool m_descending = false;
};

}  // namespace host
