#pragma once

#include <map>
#include <memory>
#include <string>

#include "tests/monkey/host_side.h"
#include "tests/monkey/subject.h"
#include "tests/monkey/window_model.h"

namespace monkey {

// The root with the real bar and its panel, in a window of its own on the screen. The user's doings are
// messages to the controls.
class window_subject final : public subject {
public:
    // Fills in the widths.
    explicit window_subject(item_widths& widths, bool unruly = false);
    ~window_subject() override;

    outcome perform(const action& done) override;
    view seen(const view& expected) override;

private:
    HWND item(int id) const { return GetDlgItem(m_panel, id); }
    HWND strip() const { return GetDlgItem(m_bar, 201); }
    bool usable(int id) const { return IsWindowEnabled(item(id)) != FALSE; }
    // Lays out a new bar and finds its windows.
    void adopt_bar();
    // The first window of a class of this thread, as far as it can be seen.
    HWND ladder() const;

    void user(const action& done);
    void select(int id, int which);
    void type(int id, const CString& text);
    void spin(int id, int steps);
    // What is on the screen, as windows tell it to anybody.
    seen_row eyes() const;
    CString text_of(bit field) const;
    void press(bit button, press_way way);
    void press_space(bit button);
    void type_and_press(const action& done);
    // The mouse goes down on the button and up beside it.
    void abandon_press(bit button);
    // Until the fields stand that belong to what is chosen.
    void settle();
    // In the window that has the focus.
    static void strike(WPARAM key);
    void click_quotes(bool on_the_arrow);
    void press_quotes();
    void pick_date(double date);
    void click_tab(int which);
    void step_quantity(int which);
    void strike_in(int id, WPARAM key);
    void walk_list(int which);
    void open_ladder();
    void scroll_ladder(int which);
    void pick_row(int row);
    void wait_for_menu(int which);
    void profile_menu(int which);
    void strip_menu(const action& done);
    void bar_action(const action& done);
    void leave();

    view look();
    std::string strip_line() const;
    std::string shown_line() const;
    std::string item_line(bit field) const;
    std::string room_line() const;
    std::string keys_line() const;
    std::string items_of(HWND combo) const;
    std::string range_of(bit field) const;

    host_side m_host;
    HWND m_frame;
    item_widths& m_widths;
    HWND m_bar = nullptr;
    HWND m_panel = nullptr;
    // Where the items stood before anything moved.
    std::map<int, LONG> m_places;
    bool m_at_rest = false;
    bool m_unruly = false;
};

}  // namespace monkey
