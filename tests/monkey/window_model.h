// The bar on a screen: one strip of tabs and one panel, which shows of the current tab what it was last told.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/monkey/bar_model.h"
#include "tests/monkey/quantity_model.h"
#include "tests/monkey/quotes_model.h"

namespace monkey {

// Widths in pixels of the dialog items as they were laid out; what moves aside moves by them.
using item_widths = std::map<int, int>;

// The windows of a field.
int item_of(bit field);
// 0 for a field without a spin.
int spin_of(bit field);
// What the controls let a user type and pick.
const std::vector<LONG>& typed_quantities();
const std::vector<double>& picked_dates();
// The user's ways to make a quantity or a place in a list go up and down.
const std::vector<int>& steps_up_and_down();
enum class quantity_way { wheel, wheel_beside, arrow_key, spin };
const std::vector<quantity_way>& quantity_ways();
const std::vector<bit>& number_fields();
const std::vector<bit>& list_fields();
// What he scrolls the ladder by; 0 closes it.
const std::vector<int>& ladder_steps();
// The items that make room for a field which goes or comes.
const std::vector<int>& items_beyond(bit field);

// How he presses Buy and Sell, or how another program does.
enum class press_way { mouse, click, command, space };
press_way way_of(const action& done);
// Where he types before he presses.
bit typed_field(const action& done);
// What he types there.
const CString& typed_text(bit field, int which);

class window_model final : public bar_model {
public:
    explicit window_model(std::shared_ptr<const item_widths> widths);

    view seen() const override;

private:
    struct mirror {
        bool enabled = false;
        bool hidden = false;
        std::string text;
        // What is read in the box, where the text above is all of a list.
        CString read;
        // Of a list, the keys and the one that is selected; -1 for none.
        std::vector<LONG> keys;
        LONG selected = -1;
        // Of the accounts' list, the names.
        std::vector<CString> names;
        // Of a price, what its spin says.
        std::string range;
    };

    void user(row_model& row, const action& done) override;
    void show_tab(const action& done) override;
    LONG current_id() const override { return m_current; }
    void update(const row_model& row, unsigned mask) override;
    void focus(const row_model& row, bit field) override;
    void added(const row_model& row, bool silent) override;
    void removed(const row_model& row) override;
    void removed_all() override;
    void drive_to(LONG id) override;
    void created() override;
    void torn_down() override;
    void filled() override { show(); }
    void remember(memory_model& memory) override;
    void take_up(const memory_model& memory) override;
    void begin(const action& done) override {
        m_at_rest = done.what == act::rest;
        m_quotes.pass_time(ticks_of_an_action);
    }
    void bar_action(const action& done) override;
    bool reaches_tabs() const override { return false; }
    void raised_inside(const raised& failure) override;

    void show();
    void lay_out_first();
    void update_current(unsigned mask, bool keep_quantity);
    void update_panel(row_model& row, bit field, bool keep_quantity);
    void update_symbol(row_model& row, bool keep_quantity);
    void update_list(const row_model& row, bit field);
    void update_quotes(const row_model& row);
    void update_date(row_model& row);
    void midnight();
    void select_tab(LONG id, bool keep_quantity);
    LONG tab_at(int which) const { return m_strip.at(static_cast<std::size_t>(which) % m_strip.size()).id; }
    std::string keys_go_along() const;
    void insert(const row_model& row, int image);
    bool usable(bit field) const;
    // Runs what a handler guards: an error ends it and is told.
    void guarded(const std::function<void()>& handler);
    // What the user sees in a field, but for its lists.
    std::string text_of(bit field) const;

    void select(row_model& row, bit field, int which);
    void type_price(row_model& row, bit field, const CString& text);
    void type_quantity(const CString& keys);
    void step_quantity(int which);
    void strike_odd_key(row_model& row, int which);
    // What is on the screen now.
    seen_row screen(const row_model& row) const;
    // What somebody saw who looked as the press began, and the press; a stopped one shows the row anew.
    void press(row_model& row, bool buys, const seen_row& seen);
    void type_and_press(row_model& row, const action& done);
    // Types and stays in the field; then goes.
    void type_in(row_model& row, bit field, int which);
    void leave_field(row_model& row, bit field);
    void put_text(bit field, const CString& text);
    void walk_list(row_model& row, int which);
    void ladder(row_model& row, const action& done);
    void pick_date(row_model& row, double date);
    void spin(row_model& row, bit field, int steps);
    void leave_symbol();
    void type_symbol(const CString& text, bool enter);
    void lookup_typed(CString& typed, bool asks, bool quiet);
    int moved_by(int item) const;

    struct tab {
        LONG id;
        CString name;
        int image;
    };

    std::shared_ptr<const item_widths> m_widths;
    std::vector<tab> m_strip;
    LONG m_current = 0;
    LONG m_last_category = -1;
    quantity_model m_quantity;
    quotes_model m_quotes;
    // The tab and the symbol that the panel was told of last.
    // Leaves the field that still has the focus, when it goes to another.
    std::function<void(bit)> m_leaves;
    LONG m_shown_tab = 0;
    CString m_shown_symbol;
    // The picker of the date: what it shows, and the first day that it lets be picked.
    double m_date = 0.0;
    double m_earliest = 0.0;
    std::map<bit, mirror> m_panel;
    bool m_at_rest = false;
    // The panel has the place that the strip leaves it.
    bool m_room_taken = false;
};

}  // namespace monkey
