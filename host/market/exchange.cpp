#include "market/exchange.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "market/validation.h"

namespace host {
namespace {

bool is_immediate(const order& one) {
    return one.request.time_in_force == time_in_force::ioc || one.request.time_in_force == time_in_force::fok;
}

bool needs_all_at_once(const order& one) {
    return one.request.time_in_force == time_in_force::fok || one.request.time_in_force == time_in_force::aon;
}

bool is_at_market(const order& one) {
    return !category::has_limit(one.request.category);
}

bool reaches(const order& one, double price) {
    return is_at_market(one) || (one.request.action == action::buy ? one.request.limit_price >= price
                                                                   : one.request.limit_price <= price);
}

bool goes_first(const order* left, const order* right) {
    if (is_at_market(*left) != is_at_market(*right)) {
        return is_at_market(*left);
    }
    const double a = left->request.limit_price;
    const double b = right->request.limit_price;
    if (!is_at_market(*left) && a != b) {
        return left->request.action == action::buy ? a > b : a < b;
    }
    return left->id < right->id;
}

}  // namespace

exchange::exchange(std::function<double()> now, std::function<void(const order&)> on_change)
    : m_now(std::move(now)), m_on_change(std::move(on_change)) {}

int exchange::today() const {
    return static_cast<int>(std::floor(m_now()));
}

const order& exchange::place(const order_request& request, const std::vector<std::string>& accounts,
                             const std::string& broker_reason) {
    order one;
    one.id = static_cast<int>(m_orders.size()) + 1;
    one.time = m_now();
    one.request = request;
    one.reason = broker_reason.empty() ? refusal(request, accounts, today()) : broker_reason;
    one.status = !one.reason.empty()                    ? order_status::rejected
                 : category::has_stop(request.category) ? order_status::waiting
                                                        : order_status::working;
    m_orders.push_back(one);
    m_on_change(one);
    if (one.is_live()) {
        match(request.instrument_id);
    }
    return m_orders[static_cast<std::size_t>(one.id) - 1];
}

bool exchange::cancel(int id) {
    const auto found = std::ranges::find(m_orders, id, &order::id);
    if (found == m_orders.end() || !found->is_live()) {
        return false;
    }
    end(*found, order_status::cancelled, "Cancelled by the user");
    return true;
}

void exchange::rename_profile(const std::string& from, const std::string& to) {
    for (order& one : m_orders) {
        if (one.request.profile == from) {
            one.request.profile = to;
            m_on_change(one);
        }
    }
}

void exchange::on_quote(int instrument_id, const quote& value) {
    m_quotes[instrument_id] = value;
    match(instrument_id);
}

void exchange::end_of_day() {
    for (order& one : m_orders) {
        if (!one.is_live()) {
            continue;
        }
        const int code = one.request.time_in_force;
        const bool outlived = code == time_in_force::gtc   ? false
                              : code == time_in_force::gtd ? std::floor(one.request.gtd_date) < today()
                                                           : std::floor(one.time) < today();
        if (outlived) {
            end(one, order_status::expired, "Its time in force ended");
        }
    }
}

std::vector<order> exchange::live_orders(const std::string& profile) const {
    std::vector<order> found;
    std::ranges::copy_if(m_orders, std::back_inserter(found),
                         [&](const order& one) { return one.is_live() && one.request.profile == profile; });
    return found;
}

void exchange::match(int instrument_id) {
    const auto found = m_quotes.find(instrument_id);
    if (found == m_quotes.end()) {
        return;
    }
    touch_stops(instrument_id, found->second);
    match_side(instrument_id, action::buy, found->second);
    match_side(instrument_id, action::sell, found->second);
}

void exchange::touch_stops(int instrument_id, const quote& value) {
    for (order& one : m_orders) {
        if (one.status != order_status::waiting || one.request.instrument_id != instrument_id) {
            continue;
        }
        const bool touched = one.request.action == action::buy ? value.ask >= one.request.stop_price
                                                               : value.bid <= one.request.stop_price;
        if (touched) {
            one.status = order_status::working;
            m_on_change(one);
        }
    }
}

void exchange::match_side(int instrument_id, int side, quote& value) {
    std::vector<order*> resting;
    for (order& one : m_orders) {
        if (one.is_live() && one.status != order_status::waiting && one.request.action == side &&
            one.request.instrument_id == instrument_id) {
            resting.push_back(&one);
        }
    }
    std::ranges::sort(resting, goes_first);
    const double price = side == action::buy ? value.ask : value.bid;
    int& available = side == action::buy ? value.ask_size : value.bid_size;
    for (order* one : resting) {
        trade(*one, price, available);
    }
}

void exchange::trade(order& one, double price, int& available) {
    const bool enough = available >= one.remaining() || (!needs_all_at_once(one) && available > 0);
    if (reaches(one, price) && enough) {
        const int quantity = std::min(available, one.remaining());
        available -= quantity;
        fill(one, price, quantity);
    }
    if (one.is_live() && is_immediate(one)) {
        end(one, order_status::cancelled,
            one.filled > 0 ? "The rest could not be filled at once" : "Could not be filled at once");
    }
}

void exchange::fill(order& one, double price, int quantity) {
    const double value = one.average_price * one.filled + price * quantity;
    one.filled += quantity;
    one.average_price = value / one.filled;
    one.status = one.remaining() == 0 ? order_status::filled : order_status::partly_filled;
    m_on_change(one);
}

void exchange::end(order& one, order_status status, std::string reason) {
    one.status = status;
    one.reason = std::move(reason);
    m_on_change(one);
}

}  // namespace host
