// What the user does on the panel.
#include "tests/monkey/price_model.h"
#include "tests/monkey/window_model.h"

namespace monkey {

template <class Action>
void window_model::guarded(Action&& handler) {
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
            return type_quantity(row, pick(typed_quantities(), done.which));
        case act::type_first_price:
            return type_price(row, first_price_bit, pick(price_texts(), done.which));
        case act::type_second_price:
            return type_price(row, second_price_bit, pick(price_texts(), done.which));
        case act::spin_first_price:
            return spin(row, first_price_bit, pick(spin_steps(), done.which));
        case act::spin_second_price:
            return spin(row, second_price_bit, pick(spin_steps(), done.which));
        case act::type_symbol:
            return type_symbol(row, pick(symbol_texts(), done.which), true);
        case act::leave_symbol:
            return type_symbol(row, pick(symbol_texts(), done.which), false);
        case act::symbol_dialog:
            return guarded([&] { row.lookup_with_dialog(); });
        case act::buy:
        case act::sell:
            if (usable(done.what == act::buy ? buy_bit : sell_bit)) {
                guarded([&] { row.place_order(done.what == act::buy ? 1 : 2); });
            }
            return;
        case act::pick_ask:
        case act::pick_bid:
            return press_quotes(row);
        case act::pick_date:
            if (usable(date_bit)) {
                row.put_date(pick(picked_dates(), done.which));
                m_panel[date_bit].text = row.value(date_bit);
            }
            return;
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
    its.selected = pick(its.keys, which);
    if (field == type_bit) {
        row.select_type(its.selected);
    } else if (field == time_bit) {
        row.select_time(its.selected);
    } else {
        row.select_account(its.selected);
    }
}

void window_model::type_quantity(row_model& row, LONG value) {
    if (!usable(quantity_bit)) {
        return;
    }
    // Each digit is taken as it is typed; the last one tells.
    edit_quantity(value);
    row.put_quantity({std::to_wstring(value), value});
}

void window_model::type_price(row_model& row, bit field, const CString& text) {
    if (!usable(field)) {
        return;
    }
    row.put_price(field, text);
    m_panel[field].text = test::narrow(text);
    if (!row.empty(field)) {
        update_panel(row, field, false);
    }
}

// The button offers the middle until the user chooses a side on its ladder.
void window_model::press_quotes(row_model& row) {
    if (usable(quotes_bit)) {
        row.pick_quote(on_grid((m_ask + m_bid) * 0.5, m_code, m_min_move));
    }
}

void window_model::spin(row_model& row, bit field, int steps) {
    if (usable(field)) {
        row.spin_price(field, steps);
        update_panel(row, field, false);
    }
}

// The edit shows the symbol's own name again unless the lookup failed.
void window_model::lookup_typed(row_model& row, CString& typed, bool asks, bool quiet) {
    if (typed == row.symbol_name()) {
        return;
    }
    row.lookup(typed, asks, quiet);
    typed = row.symbol_name();
}

void window_model::type_symbol(row_model& row, const CString& text, bool enter) {
    CString typed = text;
    if (enter) {
        guarded([&] { lookup_typed(row, typed, true, false); });
    }
    guarded([&] { lookup_typed(row, typed, false, true); });
    m_panel[symbol_bit].text = test::narrow(typed);
}

}  // namespace monkey
