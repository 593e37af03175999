#pragma once

#include <map>
#include <memory>

#include "tests/monkey/host_side.h"
#include "tests/monkey/subject.h"
#include "tests/monkey/window_model.h"

namespace monkey {

// The root with the real bar and its panel, in a window of its own on the screen. The user's doings are
// messages to the controls.
class window_subject final : public subject {
public:
    // Fills in the widths.
    explicit window_subject(item_widths& widths);
    ~window_subject() override;

    outcome perform(const action& done) override;
    view seen(const view& expected) override;

private:
    HWND item(int id) const { return GetDlgItem(m_panel, id); }
    HWND strip() const { return GetDlgItem(m_bar, 201); }
    bool usable(int id) const { return IsWindowEnabled(item(id)) != FALSE; }
    void measure(item_widths& widths);

    void user(const action& done);
    void select(int id, int which);
    void type(int id, const CString& text);
    void spin(int id, int steps);
    void press(int id);
    void press_quotes();
    void pick_date(double date);
    void click_tab(int which);
    void leave();

    view look();
    std::string strip_line() const;
    std::string shown_line() const;
    std::string item_line(bit field) const;
    std::string items_of(HWND combo) const;
    std::string range_of(bit field) const;

    host_side m_host;
    HWND m_frame;
    HWND m_bar = nullptr;
    HWND m_panel = nullptr;
    // Where the items stood before anything moved.
    std::map<int, LONG> m_places;
    bool m_at_rest = false;
};

}  // namespace monkey
