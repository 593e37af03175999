#include "tests/monkey/row_model.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "tests/monkey/price_model.h"
#include "tests/monkey/quantity_model.h"

namespace monkey {

namespace {

constexpr double no_price = std::numeric_limits<double>::max();
constexpr double highest_price = 250000.0;
constexpr LONG no_quantity = 0x7FFFFFFF;
constexpr double no_date = 2.0;

}  // namespace

row_model::row_model(host_model& host, outcome& out, int number_of_profile, LONG new_id)
    : profile(number_of_profile),
      id(new_id),
      name(host.profiles.at(static_cast<std::size_t>(number_of_profile)).name),
      m_host(host),
      m_out(out),
      m_first{no_price, {}},
      m_second{no_price, {}},
      m_date(host.now),
      m_ask(no_price),
      m_bid(no_price) {}

void row_model::query_state() {
    if (m_host.fails(broken::state)) {
        m_out.assertions.emplace_back("*");
        m_state = 256;
    } else {
        m_state = m_host.profiles.at(static_cast<std::size_t>(profile)).state;
    }
}

void row_model::refresh() {
    query_state();
    update_accounts();
    update_times();
    update(0x3FF87);
}

bool row_model::on_quote(double bid, double ask) {
    const bool good = std::isnormal(bid) && std::isnormal(ask) && bid <= ask;
    if (good) {
        m_ask = ask;
        m_bid = bid;
        m_quoted = true;
    } else {
        reset_quotes();
    }
    update(quotes_bit);
    return good;
}

void row_model::on_state(LONG new_state) {
    m_state = new_state;
    update_accounts();
    update_times();
    if (new_state == 256) {
        reset_quotes();
        update(0x3FF86);
    } else if (new_state == 512) {
        update(4);
    } else if (new_state == 768) {
        if (m_symbol) {
            clear_prices();
        }
        update(0x3FF86);
    } else {
        update(0);
    }
}

void row_model::reset_quotes() {
    m_ask = m_bid = no_price;
    m_quoted = false;
}

void row_model::set_price(price& field, double value) {
    field.value = value;
    field.text = price_to_text(value, code());
}

void row_model::set_clamped(price& field, double value) {
    set_price(field, value < tick() ? tick() : std::min(value, highest_price));
}

void row_model::clear_prices() {
    m_first = m_second = {no_price, {}};
}

double row_model::tick() const {
    return m_symbol ? step_of(code()) * m_symbol->min_movement : step_of(0);
}

void row_model::select_type(LONG key) {
    if (key == m_type) {
        return;
    }
    if (key >= 1 && key <= 4) {
        m_type = key;
    } else {
        m_out.assertions.emplace_back("_it != m_items.end()");
    }
    clear_prices();
    update_times();
    update(0x32C00);
}

void row_model::select_time(LONG key) {
    if (m_times.count(key) != 0) {
        m_time = key;
    } else {
        m_out.assertions.emplace_back("_it != m_items.end()");
    }
    if (m_time != -1) {
        update(date_bit);
    }
}

void row_model::select_account(LONG key) {
    if (key >= 0 && static_cast<std::size_t>(key) < m_accounts.size()) {
        m_account = key;
    } else {
        m_out.assertions.emplace_back("_it != m_items.end()");
    }
}

void row_model::put_quantity(const quantity_text& text) {
    if (!text.value) {
        throw raised{text.error == DISP_E_OVERFLOW ? "0x8002000a" : "0x80020005"};
    }
    m_quantity = *text.value;
    update(buy_bit | sell_bit);
}

void row_model::put_price(bit field, const CString& text) {
    price_of(field) = {text_to_price(text).value_or(no_price), text};
}

void row_model::spin_price(bit field, int steps) {
    price& spun = price_of(field);
    if (steps == 0) {
        return;
    }
    if (empty(field)) {
        set_price(spun, steps < 1 ? highest_price : tick());
        return;
    }
    if (tick() < std::numeric_limits<double>::epsilon()) {
        return;
    }
    double whole = 0.0;
    const double rest = std::modf(spun.value / tick(), &whole);
    set_clamped(spun, (steps + whole + (rest > 0.5 ? 1 : 0)) * tick());
}

void row_model::pick_quote(double picked) {
    set_clamped(m_first, picked);
    set_clamped(m_second, picked);
    update(first_price_bit | second_price_bit);
}

void row_model::put_date(double ole_date) {
    m_date = ole_date;
}

CString row_model::account() const {
    return m_account == -1 ? CString() : m_accounts.at(static_cast<std::size_t>(m_account));
}

std::vector<LONG> row_model::keys(bit field) const {
    if (field == type_bit) {
        return {1, 2, 3, 4};
    }
    std::vector<LONG> all;
    if (field == account_bit) {
        all.resize(m_accounts.size());
        std::iota(all.begin(), all.end(), 0);
        return all;
    }
    all.reserve(m_times.size());
    for (const auto& [key, text] : m_times) {
        all.push_back(key);
    }
    return all;
}

bool row_model::enabled(bit field) const {
    switch (field) {
        case symbol_bit:
            return true;
        case first_price_bit:
        case second_price_bit:
        case date_bit:
            return usable() && !hidden(field);
        case quotes_bit:
            return m_quoted && usable() && !empty(field);
        default:
            return usable();
    }
}

bool row_model::hidden(bit field) const {
    switch (field) {
        case first_price_bit:
            return m_type != 2 && m_type != 4;
        case second_price_bit:
            return m_type != 3 && m_type != 4;
        case date_bit:
            return m_time != 3;
        default:
            return false;
    }
}

bool row_model::empty(bit field) const {
    const auto unusable = [&](double value) {
        return value == no_price || value > highest_price || value < tick();
    };
    switch (field) {
        case symbol_bit:
            return !m_symbol;
        case quantity_bit:
            return m_quantity == no_quantity;
        case first_price_bit:
        case second_price_bit:
            return unusable(price_of(field).value);
        case account_bit:
            return m_account == -1;
        case time_bit:
            return m_time == -1;
        case date_bit:
            // Day 0 is a date at midnight only, day 1 is none.
            return m_date == no_date || (m_date < 2.0 && m_date != 0.0);
        case quotes_bit:
            return m_ask == no_price || m_bid == no_price;
        default:
            return false;
    }
}

seen_row row_model::sight() const {
    seen_row seen;
    seen.profile = profile;
    seen.day = static_cast<LONG>(m_date);
    for (const bit field : all_bits()) {
        seen.items[field] = {{}, !hidden(field), enabled(field)};
    }
    const auto time = m_times.find(m_time);
    seen.items[symbol_bit].text = symbol_name();
    seen.items[type_bit].text = type_text(m_type);
    seen.items[quantity_bit].text = shown_quantity(m_quantity);
    seen.items[first_price_bit].text = m_first.text;
    seen.items[second_price_bit].text = m_second.text;
    seen.items[account_bit].text = account();
    seen.items[time_bit].text = time != m_times.end() ? time->second : CString();
    seen.items[buy_bit].text = caption_of(1, m_type, m_quantity);
    seen.items[sell_bit].text = caption_of(2, m_type, m_quantity);
    return seen;
}

std::string row_model::value(bit field) const {
    using test::narrow;
    std::string items;
    switch (field) {
        case symbol_bit:
            return narrow(symbol_name());
        case type_bit:
            return "1=市價單 2=停止單 3=限價單 4=停止限價單 selected " + std::to_string(m_type);
        case quantity_bit:
            return std::to_string(m_quantity);
        case first_price_bit:
        case second_price_bit:
            return narrow(price_of(field).text) + " from " + test::number_text(tick()) + " to 250000";
        case account_bit:
            for (std::size_t i = 0; i < m_accounts.size(); ++i) {
                items += std::to_string(i) + "=" + narrow(m_accounts[i]) + " ";
            }
            return items + "selected " + std::to_string(m_account);
        case time_bit:
            for (const auto& [key, text] : m_times) {
                items += std::to_string(key) + "=" + narrow(text) + " ";
            }
            return items + "selected " + std::to_string(m_time);
        case date_bit:
            return test::number_text(m_date);
        case quotes_bit:
            return test::number_text(m_bid) + " " + test::number_text(m_ask);
        case buy_bit:
            return narrow(caption_of(1, m_type, m_quantity));
        default:
            return narrow(caption_of(2, m_type, m_quantity));
    }
}

}  // namespace monkey
