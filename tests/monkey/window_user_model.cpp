// What the user does on the panel.
#include <algorithm>

#include "tests/monkey/price_model.h"
#include "tests/monkey/window_model.h"

namespace monkey {

namespace {

bit pressed_bit(const action& done) {
    return presses_buy(done) ? buy_bit : sell_bit;
}

}  // namespace

void window_model::guarded(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const raised& failure) {
        add_error(failure.error);
    }
}

void window_model::user(row_model& row, const action& done) {
    switch (done.what) {
        case act::select_type:
            return select(row, type_bit, done.which);
        case act::select_time:
            return select(row, time_bit, done.which);
        case act::select_account:
            return select(row, account_bit, done.which);
        case act::type_quantity:
            return type_quantity(std::to_wstring(pick(typed_quantities(), done.which)));
        case act::odd_quantity:
            return type_quantity(pick(odd_quantities(), done.which));
        case act::step_quantity:
            return step_quantity(done.which);
        case act::type_first_price:
            return type_price(row, first_price_bit, pick(price_texts(), done.which));
        case act::type_second_price:
            return type_price(row, second_price_bit, pick(price_texts(), done.which));
        case act::spin_first_price:
            return spin(row, first_price_bit, pick(spin_steps(), done.which));
        case act::spin_second_price:
            return spin(row, second_price_bit, pick(spin_steps(), done.which));
        case act::type_symbol:
            return type_symbol(pick(symbol_texts(), done.which), true);
        case act::leave_symbol:
            return type_symbol(pick(symbol_texts(), done.which), false);
        case act::symbol_dialog:
            guarded([&] { row.lookup_with_dialog(); });
            return leave_symbol();
        case act::buy:
        case act::sell:
        case act::press_space:
            if (usable(pressed_bit(done)) ||
                (done.what != act::press_space && way_of(done) == press_way::command)) {
                press(row, pressed_bit(done) == buy_bit, screen(row));
            }
            return;
        case act::type_and_press:
            return type_and_press(row, done);
        case act::odd_key:
            return strike_odd_key(row, done.which);
        case act::arrow_in_list:
            return walk_list(row, done.which);
        case act::pick_ask:
        case act::pick_bid:
        case act::open_ladder:
        case act::scroll_ladder:
        case act::pick_row:
            return ladder(row, done);
        case act::pick_date:
            return pick_date(row, pick(picked_dates(), done.which));
        case act::profile_menu:
            return profile_menu(row, done.which);
        case act::escape_symbol:
            // What was typed is taken back, a name that was not found included.
            return put_text(symbol_bit, row.symbol_name());
        default:
            return;
    }
}

void window_model::select(row_model& row, bit field, int which) {
    mirror& its = m_panel[field];
    if (!its.enabled || its.keys.empty()) {
        return;
    }
    // The box shows what the user picked, be it taken or not.
    const auto place = static_cast<std::size_t>(which) % its.keys.size();
    its.selected = its.keys[place];
    if (field == type_bit) {
        its.read = type_text(its.selected);
        row.select_type(its.selected);
    } else if (field == time_bit) {
        its.read = time_text(its.selected);
        row.select_time(its.selected);
    } else {
        its.read = its.names.at(place);
        row.select_account(its.selected);
    }
}

void window_model::press(row_model& row, bool buys, const seen_row& seen) {
    const LONG id = row.id;
    bool stopped = false;
    guarded([&] { stopped = row.press(buys ? 1 : 2, seen); });
    if (stopped && m_current == id) {
        for (const bit field : all_bits()) {
            guarded([&] { update_panel(*find(id), field, true); });
        }
    }
}

void window_model::type_in(row_model& row, bit field, int which) {
    const CString& text = typed_text(field, which);
    if (field == quantity_bit) {
        m_quantity.enter();
        m_quantity.type(text);
    } else if (field == symbol_bit) {
        put_text(field, text);
    } else {
        row.put_price(field, text);
        put_text(field, text);
    }
}

void window_model::leave_field(row_model& row, bit field) {
    if (field == quantity_bit) {
        m_quantity.leave();
    } else if (field == symbol_bit) {
        CString typed = m_panel[symbol_bit].read;
        guarded([&] { lookup_typed(typed, false, true); });
        put_text(symbol_bit, typed);
    } else if (!row.empty(field)) {
        update_panel(row, field, false);
    }
}

// The mouse takes the focus out of the field when the press has begun, the space bar before; a command leaves
// it there.
void window_model::type_and_press(row_model& row, const action& done) {
    const bit field = typed_field(done);
    const bit button = done.yes ? buy_bit : sell_bit;
    const press_way way = way_of(done);
    const bool types = usable(field);
    if (types) {
        type_in(row, field, done.which);
    }
    bool left = !types;
    const auto leave = [&] {
        if (!left) {
            left = true;
            leave_field(row, field);
        }
    };
    if (way == press_way::space && usable(button)) {
        leave();
    }
    if (usable(button) || way == press_way::command) {
        const seen_row seen = screen(row);
        if (way != press_way::command) {
            leave();
        }
        // A message about a price takes the focus there, and so out of the field.
        m_leaves = [&](bit to) {
            if (to != field) {
                leave();
            }
        };
        if (row_model* const pressed = find(m_current)) {
            press(*pressed, done.yes, seen);
        }
        m_leaves = {};
    }
    if (find(m_current) == &row) {
        leave();
    }
}

// Neither Esc nor Enter does anything in a number; the field is only entered and left.
void window_model::strike_odd_key(row_model& row, int which) {
    const bit field = pick(number_fields(), which);
    if (!usable(field)) {
        return;
    }
    if (field == quantity_bit) {
        m_quantity.enter();
        m_quantity.leave();
    } else if (!row.empty(field)) {
        update_panel(row, field, false);
    }
}

void window_model::walk_list(row_model& row, int which) {
    const bit field = pick(list_fields(), which);
    const mirror& its = m_panel[field];
    const auto place = std::find(its.keys.begin(), its.keys.end(), its.selected);
    if (!its.enabled || place == its.keys.end()) {
        return;
    }
    // At either end of the list the same item is told once more.
    const auto wanted = place - its.keys.begin() + pick(steps_up_and_down(), which / 3);
    const auto last = static_cast<std::ptrdiff_t>(its.keys.size()) - 1;
    select(row, field, static_cast<int>(std::clamp<std::ptrdiff_t>(wanted, 0, last)));
}

void window_model::ladder(row_model& row, const action& done) {
    switch (done.what) {
        case act::open_ladder:
            if (usable(quotes_bit)) {
                m_quotes.toggle_ladder();
            }
            return;
        case act::scroll_ladder:
            if (m_quotes.ladder_is_open()) {
                const int step = pick(ladder_steps(), done.which);
                step == 0 ? m_quotes.hide_ladder() : m_quotes.scroll(step);
            }
            return;
        case act::pick_row:
            // For most of the picks he has to open it first.
            if (!m_quotes.ladder_is_open() && usable(quotes_bit)) {
                m_quotes.toggle_ladder();
            }
            if (m_quotes.ladder_is_open()) {
                if (const auto price = m_quotes.pick(done.which % 7)) {
                    row.pick_quote(*price);
                }
            }
            return;
        default:
            if (usable(quotes_bit)) {
                row.pick_quote(m_quotes.press());
            }
            return;
    }
}

void window_model::pick_date(row_model& row, double date) {
    if (usable(date_bit) && date >= m_earliest) {
        row.put_date(date);
        m_date = date;
    }
}

void window_model::type_quantity(const CString& keys) {
    if (usable(quantity_bit)) {
        m_quantity.enter();
        m_quantity.type(keys);
        m_quantity.leave();
    }
}

// The wheel works without the focus as well.
void window_model::step_quantity(int which) {
    if (!usable(quantity_bit)) {
        return;
    }
    const bool inside = pick(quantity_ways(), which / 2) != quantity_way::wheel_beside;
    if (inside) {
        m_quantity.enter();
    }
    m_quantity.step(pick(steps_up_and_down(), which));
    if (inside) {
        m_quantity.leave();
    }
}

void window_model::type_price(row_model& row, bit field, const CString& text) {
    if (!usable(field)) {
        return;
    }
    row.put_price(field, text);
    put_text(field, text);
    if (!row.empty(field)) {
        update_panel(row, field, false);
    }
}

void window_model::spin(row_model& row, bit field, int steps) {
    if (usable(field)) {
        row.spin_price(field, steps);
        update_panel(row, field, false);
    }
}

// The edit shows the symbol's own name again, whatever came of the lookup. Another tab may be in front by
// then.
void window_model::lookup_typed(CString& typed, bool asks, bool quiet) {
    row_model* const row = find(m_current);
    if (row == nullptr) {
        out().assertions.emplace_back("_ctrl");
        return;
    }
    if (typed == row->symbol_name()) {
        return;
    }
    const auto show = [&] {
        const row_model* const shown = find(m_current);
        typed = shown != nullptr ? shown->symbol_name() : typed;
    };
    try {
        row->lookup(typed, asks, quiet);
    } catch (const raised&) {
        show();
        throw;
    }
    show();
}

// The edit has the focus after its button was pressed.
void window_model::leave_symbol() {
    const row_model* const row = find(m_current);
    CString shown = row != nullptr ? row->symbol_name() : CString();
    lookup_typed(shown, false, true);
}

void window_model::type_symbol(const CString& text, bool enter) {
    CString typed = text;
    if (enter) {
        guarded([&] { lookup_typed(typed, true, false); });
    }
    guarded([&] { lookup_typed(typed, false, true); });
    put_text(symbol_bit, typed);
}

}  // namespace monkey
