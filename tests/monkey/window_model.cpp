#include "tests/monkey/window_model.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/monkey/price_model.h"

namespace monkey {

namespace {

constexpr LONG stock_category = 2;
// Before there is a symbol.
constexpr LONG no_category = -1;

std::string yes_no(bool value, const char* yes, const char* no) {
    return value ? yes : no;
}

bool is_price(bit field) {
    return field == first_price_bit || field == second_price_bit;
}

bool is_list(bit field) {
    return field == type_bit || field == account_bit || field == time_bit;
}

std::string spin_text(const row_model& row) {
    if (row.tick() < std::numeric_limits<double>::epsilon()) {
        return {};
    }
    const double steps = std::ceil(250000.0 / row.tick());
    const double most = std::numeric_limits<LONG>::max();
    return " 1 to " + std::to_string(static_cast<LONG>(std::min(steps, most)));
}

}  // namespace

int item_of(bit field) {
    static const std::map<bit, int> items = {
        {symbol_bit, 203},       {type_bit, 206},    {quantity_bit, 209}, {first_price_bit, 214},
        {second_price_bit, 217}, {account_bit, 220}, {time_bit, 222},     {date_bit, 228},
        {quotes_bit, 231},       {buy_bit, 225},     {sell_bit, 227}};
    return items.at(field);
}

int spin_of(bit field) {
    return field == first_price_bit ? 213 : field == second_price_bit ? 216 : 0;
}

const std::vector<LONG>& typed_quantities() {
    static const std::vector<LONG> all = {1,   10,     100,     1500,       123456,   7,
                                          250, 100000, 1200000, 1000000000, 999999950};
    return all;
}

const std::vector<double>& picked_dates() {
    static const std::vector<double> all = {48000.25, 48000.5, 47999.0,  65380.75,
                                            47618.25, 47620.0, 47622.75, 47630.5};
    return all;
}

press_way way_of(const action& done) {
    return static_cast<press_way>(done.who % 4);
}

bit typed_field(const action& done) {
    static const std::vector<bit> fields = {quantity_bit, first_price_bit, second_price_bit, second_price_bit,
                                            symbol_bit};
    return pick(fields, done.which);
}

const CString& typed_text(bit field, int which) {
    const int place = which / 5;
    return field == symbol_bit     ? pick(symbol_texts(), place)
           : field == quantity_bit ? pick(odd_quantities(), place)
                                   : pick(price_texts(), place);
}

const std::vector<int>& steps_up_and_down() {
    static const std::vector<int> all = {1, -1};
    return all;
}

const std::vector<quantity_way>& quantity_ways() {
    static const std::vector<quantity_way> all = {quantity_way::wheel, quantity_way::wheel_beside,
                                                  quantity_way::arrow_key, quantity_way::spin};
    return all;
}

const std::vector<bit>& number_fields() {
    static const std::vector<bit> all = {quantity_bit, first_price_bit, second_price_bit};
    return all;
}

const std::vector<bit>& list_fields() {
    static const std::vector<bit> all = {type_bit, account_bit, time_bit};
    return all;
}

const std::vector<int>& ladder_steps() {
    static const std::vector<int> all = {1, -1, 10, -10, 1, -1, 0, 1, -1};
    return all;
}

window_model::window_model(std::shared_ptr<const item_widths> widths)
    : m_widths(std::move(widths)), m_quantity([this](const quantity_text& text) {
          row_model* const row = find(m_current);
          guarded([&] {
              if (row != nullptr) {
                  row->put_quantity(text);
              }
          });
      }) {}

const std::vector<int>& items_beyond(bit field) {
    static const std::vector<int> first = {217, 216, 231, 220, 222, 228, 227, 225};
    static const std::vector<int> second = {231, 220, 222, 228, 227, 225};
    static const std::vector<int> date = {227, 225};
    return field == first_price_bit ? first : field == second_price_bit ? second : date;
}

int window_model::moved_by(int item) const {
    int by = 0;
    for (const auto& [field, gap] :
         {std::pair(first_price_bit, 5), std::pair(second_price_bit, 5), std::pair(date_bit, 7)}) {
        const std::vector<int>& moved = items_beyond(field);
        if (m_panel.at(field).hidden && std::find(moved.begin(), moved.end(), item) != moved.end()) {
            by -= m_widths->at(item_of(field)) + gap + (is_price(field) ? m_widths->at(spin_of(field)) : 0);
        }
    }
    return by;
}

view window_model::seen() const {
    view lines = status();
    std::string strip = "strip:";
    for (const tab& each : m_strip) {
        strip += yes_no(each.id == m_current, " *", " ") + test::narrow(each.name) + "(" +
                 std::to_string(each.image) + ")";
    }
    lines.push_back(strip);
    lines.push_back(m_strip.empty() ? "shown: button" : "shown: strip panel");
    lines.push_back(m_quotes.ladder_is_open() ? "ladder: open" : "ladder: closed");
    if (m_strip.empty()) {
        return lines;
    }
    lines.emplace_back(m_room_taken ? "room: taken" : "room: not taken");
    for (const bit field : all_bits()) {
        const mirror& its = m_panel.at(field);
        std::string line = std::to_string(item_of(field)) + ": ";
        line += text_of(field) + (is_list(field) ? " selected " + std::to_string(its.selected) : its.range) +
                yes_no(usable(field), ", enabled", ", disabled");
        if (m_at_rest) {
            line += yes_no(its.hidden, ", hidden", ", shown");
            line += " moved " + std::to_string(moved_by(item_of(field)));
        }
        lines.push_back(line);
    }
    if (m_at_rest) {
        lines.push_back(keys_go_along());
    }
    return lines;
}

std::string window_model::text_of(bit field) const {
    switch (field) {
        case quantity_bit:
            return test::narrow(m_quantity.text());
        case quotes_bit:
            return test::narrow(m_quotes.caption());
        case date_bit:
            return test::number_text(m_date);
        default:
            return m_panel.at(field).text;
    }
}

// From one field to the next, past what can't be used.
std::string window_model::keys_go_along() const {
    std::string line = "keys:";
    for (const bit field : {symbol_bit, type_bit, quantity_bit, first_price_bit, second_price_bit, quotes_bit,
                            account_bit, time_bit, date_bit, buy_bit, sell_bit}) {
        if (usable(field) && !m_panel.at(field).hidden) {
            line += " " + std::to_string(item_of(field));
        }
    }
    return line;
}

bool window_model::usable(bit field) const {
    return field == quotes_bit ? m_quotes.usable() : m_panel.at(field).enabled;
}

void window_model::insert(const row_model& row, int image) {
    const auto place =
        std::find_if(m_strip.begin(), m_strip.end(), [&](const tab& each) { return row.name <= each.name; });
    m_strip.insert(place, {row.id, row.name, image});
    if (m_strip.size() == 1) {
        m_current = row.id;
    }
}

void window_model::added(const row_model& row, bool silent) {
    row_model& its = *find(row.id);
    its.query_state();
    insert(row, its.state() == 768 ? 1 : 0);
    if (!silent) {
        show();
    }
}

void window_model::removed(const row_model& row) {
    std::erase_if(m_strip, [&](const tab& each) { return each.id == row.id; });
    if (m_current == row.id) {
        m_current = m_strip.empty() ? 0 : m_strip.front().id;
    }
    show();
}

void window_model::removed_all() {
    m_strip.clear();
    m_current = 0;
    show();
}

void window_model::show() {
    lay_out_first();
    if (m_strip.empty()) {
        m_quotes.hide_ladder();
    }
    update_current(0x3FF80, false);
}

void window_model::select_tab(LONG id, bool keep_quantity) {
    if (id != m_current) {
        m_current = id;
        update_current(0x3FF82, keep_quantity);
    }
}

void window_model::drive_to(LONG id) {
    select_tab(id, false);
}

void window_model::show_tab(const action& done) {
    select_tab(tab_at(done.who), true);
}

void window_model::update_current(unsigned mask, bool keep_quantity) {
    row_model* const row = find(m_current);
    if (row == nullptr) {
        return;
    }
    for (const bit field : all_bits()) {
        if ((mask & field) != 0) {
            update_panel(*row, field, keep_quantity);
        }
    }
}

// A tab that went while it asked the user something has nothing to show any more.
void window_model::update(const row_model& row, unsigned mask) {
    if (!holds(row)) {
        return;
    }
    if ((mask & 4) != 0) {
        static const std::map<LONG, int> images = {{256, 0}, {512, 2}, {768, 1}};
        const auto known = images.find(row.state());
        for (tab& each : m_strip) {
            if (each.id == row.id && known != images.end()) {
                each.image = known->second;
            }
        }
    }
    if (row.id == m_current) {
        update_current(mask, false);
    }
}

void window_model::update_panel(row_model& row, bit field, bool keep_quantity) {
    mirror& its = m_panel[field];
    its.enabled = row.enabled(field);
    its.hidden = row.hidden(field);
    if (field == symbol_bit) {
        update_symbol(row, keep_quantity);
        put_text(field, row.symbol_name());
    } else if (field == quantity_bit) {
        if (m_quantity.value() != row.quantity()) {
            m_quantity.put_value(row.quantity());
        }
    } else if (is_list(field)) {
        update_list(row, field);
    } else if (is_price(field)) {
        if (row.tick() < std::numeric_limits<double>::epsilon()) {
            out().assertions.emplace_back("0");
        }
        put_text(field, row.sight().items.at(field).text);
        its.range = spin_text(row);
    } else if (field == quotes_bit) {
        update_quotes(row);
    } else if (field == date_bit) {
        update_date(row);
    } else {
        put_text(field, row.sight().items.at(field).text);
    }
}

void window_model::put_text(bit field, const CString& text) {
    m_panel[field].text = test::narrow(text);
    m_panel[field].read = text;
}

seen_row window_model::screen(const row_model& row) const {
    seen_row seen;
    seen.profile = row.profile;
    seen.day = static_cast<LONG>(std::floor(m_date));
    for (const auto& [field, its] : m_panel) {
        seen.items[field] = {its.read, !its.hidden, usable(field)};
    }
    seen.items[quantity_bit].text = m_quantity.text();
    return seen;
}

void window_model::update_quotes(const row_model& row) {
    m_quotes.put_usable(row.enabled(quotes_bit));
    m_quotes.put_quotes(row.empty(quotes_bit) ? std::nullopt
                                              : std::optional(std::pair(row.bid(), row.ask())));
}

// A day that has passed becomes today. The picker does not go where it may not be set: then its date is the
// field's.
void window_model::update_date(row_model& row) {
    const double today = std::floor(host().now);
    if (row.date() < today) {
        row.put_date(today);
    }
    if (row.date() >= m_earliest) {
        m_date = row.date();
    } else {
        row.put_date(m_date);
    }
}

void window_model::update_list(const row_model& row, bit field) {
    mirror& its = m_panel[field];
    const std::string all = row.value(field);
    const std::size_t mark = all.rfind("selected ");
    its.text = all.substr(0, mark);
    its.keys = row.keys(field);
    const LONG key = std::stoi(all.substr(mark + 9));
    its.selected = std::find(its.keys.begin(), its.keys.end(), key) != its.keys.end() ? key : -1;
    its.read = its.selected != -1 ? row.sight().items.at(field).text : CString();
    its.names = field == account_bit ? row.accounts() : std::vector<CString>();
}

void window_model::update_symbol(row_model& row, bool keep_quantity) {
    if (row.id != m_shown_tab || row.symbol_name() != m_shown_symbol) {
        m_quotes.hide_ladder();
    }
    m_shown_tab = row.id;
    m_shown_symbol = row.symbol_name();
    if (!row.symbol()) {
        return;
    }
    const LONG category = row.symbol()->category;
    m_quantity.put_category(category);
    if (!keep_quantity && category != m_last_category) {
        m_quantity.put_value(category == stock_category ? 100 : 1);
    }
    m_last_category = category;
    m_quotes.put_format(row.symbol()->price_scale_code,
                        std::max(static_cast<LONG>(row.symbol()->min_movement), LONG{1}));
}

void window_model::focus(const row_model& row, bit field) {
    if (holds(row) && row.id == m_current) {
        if (m_leaves) {
            m_leaves(field);
        }
        out().calls.push_back("focus " + std::to_string(item_of(field)));
    }
}

}  // namespace monkey
