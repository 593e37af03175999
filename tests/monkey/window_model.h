// The bar on a screen: one strip of tabs and one panel, which shows of the current tab what it was last told.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/monkey/bar_model.h"

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
// A quantity as it is shown while it isn't edited.
CString shown_quantity(LONG value);
// The items that make room for a field which goes or comes.
const std::vector<int>& items_beyond(bit field);

class window_model final : public bar_model {
public:
    explicit window_model(std::shared_ptr<const item_widths> widths) : m_widths(std::move(widths)) {}

    view seen() const override;

private:
    struct mirror {
        bool enabled = false;
        bool hidden = false;
        std::string text;
        // Of a list, the keys and the one that is selected; -1 for none.
        std::vector<LONG> keys;
        LONG selected = -1;
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
    void filled() override { show(); }
    void begin(const action& done) override { m_at_rest = done.what == act::rest; }
    bool restores() const override { return false; }

    void show();
    void update_current(unsigned mask, bool keep_quantity);
    void update_panel(row_model& row, bit field, bool keep_quantity);
    void update_symbol(row_model& row, bool keep_quantity);
    void update_list(const row_model& row, bit field);
    void edit_quantity(LONG value);
    void update_quotes(const row_model& row);
    void press_quotes(row_model& row);
    void insert(const row_model& row, int image);
    bool usable(bit field) const { return m_panel.at(field).enabled; }
    // Runs what a handler guards: an error ends it and is told.
    template <class Action>
    void guarded(Action&& handler);

    void select(row_model& row, bit field, int which);
    void type_price(row_model& row, bit field, const CString& text);
    void type_quantity(row_model& row, LONG value);
    void spin(row_model& row, bit field, int steps);
    void type_symbol(row_model& row, const CString& text, bool enter);
    void lookup_typed(row_model& row, CString& typed, bool asks, bool quiet);
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
    // The quantity's editor starts at its lowest value, and shows nothing until it is given another.
    LONG m_editor = 1;
    bool m_editor_blank = true;
    // What the quotes' button knows.
    double m_ask = 0.0;
    double m_bid = 0.0;
    LONG m_code = -1;
    LONG m_min_move = 1;
    std::map<bit, mirror> m_panel;
    bool m_at_rest = false;
};

}  // namespace monkey
