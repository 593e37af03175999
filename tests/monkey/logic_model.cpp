#include "tests/monkey/logic_model.h"

#include <cmath>
#include <limits>

namespace monkey {

namespace {

std::string spin_range(const row_model& row) {
    const double steps = std::ceil(250000.0 / row.tick());
    const double most = std::numeric_limits<LONG>::max();
    return " spin 1 to " + std::to_string(static_cast<LONG>(std::min(steps, most)));
}

std::string line_of(const row_model& row, bit field) {
    std::string line = name_of(field);
    line += ": " + row.value(field);
    if ((field == first_price_bit || field == second_price_bit) &&
        row.tick() >= std::numeric_limits<double>::epsilon()) {
        line += spin_range(row);
    }
    line += row.enabled(field) ? ", enabled" : ", disabled";
    line += row.hidden(field) ? ", hidden" : ", shown";
    return line + (row.empty(field) ? ", empty" : "");
}

}  // namespace

LONG odd_type(int which) {
    return which % 9 == 8 ? (which % 2 == 0 ? 0 : 7) : 1 + which % 4;
}

LONG odd_key(const std::vector<LONG>& keys, int which) {
    const auto place = static_cast<std::size_t>(which) % (keys.size() + 1);
    return place < keys.size() ? keys[place] : 77;
}

double hit_price(double quote) {
    return quote == std::numeric_limits<double>::max() ? 123.456 : quote;
}

view logic_model::seen() const {
    view lines = status();
    for (const auto& row : all()) {
        const std::string head = std::to_string(row->id) + " ";
        lines.push_back(head + test::narrow(row->name));
        for (const bit field : all_bits()) {
            lines.push_back(head + line_of(*row, field));
        }
        lines.push_back(head + "account of the driver: " + test::narrow(row->account()));
    }
    return lines;
}

void logic_model::user(row_model& row, const action& done) {
    switch (done.what) {
        case act::type_quantity:
            row.put_quantity(pick(quantity_texts(), done.which));
            return;
        case act::type_first_price:
            row.put_price(first_price_bit, pick(price_texts(), done.which));
            return;
        case act::type_second_price:
            row.put_price(second_price_bit, pick(price_texts(), done.which));
            return;
        case act::spin_first_price:
            row.spin_price(first_price_bit, pick(spin_steps(), done.which));
            return;
        case act::spin_second_price:
            row.spin_price(second_price_bit, pick(spin_steps(), done.which));
            return;
        case act::type_symbol:
            row.lookup(pick(symbol_texts(), done.which), true, false);
            return;
        case act::leave_symbol:
            row.lookup(pick(symbol_texts(), done.which), false, true);
            return;
        case act::symbol_dialog:
            row.lookup_with_dialog();
            return;
        case act::profile_menu:
            profile_menu(row, done.which);
            return;
        case act::pick_date:
            row.put_date(pick(dates(), done.which));
            return;
        case act::select_type:
        case act::select_time:
        case act::select_account:
            select(row, done);
            return;
        default:
            button(row, done);
            return;
    }
}

void logic_model::select(row_model& row, const action& done) {
    if (done.what == act::select_type) {
        row.select_type(odd_type(done.which));
    } else if (done.what == act::select_time) {
        row.select_time(odd_key(row.keys(time_bit), done.which));
    } else {
        row.select_account(odd_key(row.keys(account_bit), done.which));
    }
}

void logic_model::button(row_model& row, const action& done) {
    if (done.what == act::type_and_press) {
        row.put_price(second_price_bit, pick(price_texts(), done.which));
    }
    if (done.what == act::buy || done.what == act::sell || done.what == act::type_and_press) {
        seen_row seen = row.sight();
        alter(seen, done.which);
        row.press(presses_buy(done) ? 1 : 2, seen);
    } else if (done.what == act::pick_ask || done.what == act::pick_bid) {
        row.pick_quote(hit_price(done.what == act::pick_ask ? row.ask() : row.bid()));
    }
}

void logic_model::show_tab(const action& done) {
    m_current = all().at(static_cast<std::size_t>(done.who) % all().size())->id;
}

void logic_model::update(const row_model& row, unsigned mask) {
    if (holds(row)) {
        bar_call("Update(" + std::to_string(row.id) + ", " + std::to_string(mask) + ")");
    }
}

void logic_model::focus(const row_model& row, bit field) {
    if (holds(row)) {
        bar_call("SetFocus(" + std::to_string(row.id) + ", " + std::to_string(field) + ")");
    }
}

void logic_model::added(const row_model& row, bool silent) {
    bar_call("AddTab(" + test::quoted(row.name) + (silent ? ", silent)" : ", shown)"));
    if (m_current == 0) {
        m_current = row.id;
    }
}

void logic_model::removed(const row_model& row) {
    bar_call("RemoveTab(" + std::to_string(row.id) + ")");
    if (m_current != row.id) {
        return;
    }
    m_current = 0;
    for (const auto& each : all()) {
        if (each->id != row.id) {
            m_current = each->id;
            return;
        }
    }
}

void logic_model::removed_all() {
    bar_call("RemoveAllTabs()");
    bar_call("Show(true)");
    m_current = 0;
}

void logic_model::created() {
    bar_call("Show(true)");
}

void logic_model::torn_down() {
    bar_call("Teardown()");
    m_current = 0;
}

void logic_model::filled() {
    bar_call("Show(true)");
}

// This bar keeps nothing, and is only asked to.
void logic_model::remember(memory_model&) {
    bar_call("Serialize(key)");
}

void logic_model::take_up(const memory_model&) {
    bar_call("Deserialize(key)");
}

void logic_model::drive_to(LONG id) {
    bar_call("SelectTab(" + std::to_string(id) + ")");
    m_current = id;
}

}  // namespace monkey
