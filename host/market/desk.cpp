#include "market/desk.h"

#include "market/price_text.h"

namespace host {

desk::desk(const options& settings, std::function<double()> now)
    : m_now(std::move(now)),
      m_feed(settings.seed, settings.frozen_quotes),
      m_exchange(m_now, [this](const order& one) { on_order(one); }),
      m_log(settings.order_log),
      m_known({instruments().begin(), instruments().end()}),
      m_broker(settings.seed) {
    for (const instrument& one : instruments()) {
        m_exchange.on_quote(one.id, m_feed.get(one.id));
    }
}

const instrument* desk::find(const symbol_key& key) {
    const instrument* found = m_known.find(key);
    if (found == nullptr) {
        return nullptr;
    }
    const instrument& traded = adopt_instrument(*found);
    m_feed.add(traded);
    m_exchange.on_quote(traded.id, m_feed.get(traded.id));
    return &traded;
}

const order& desk::place(const order_request& request, const std::vector<std::string>& accounts,
                         unsigned reject_percent) {
    m_log.write(m_now(), request);
    const bool rejects = reject_percent > 0 && m_broker() % 100 < reject_percent;
    const order& placed = m_exchange.place(request, accounts, rejects ? "Rejected by the broker" : "");
    std::string line = "Order " + std::to_string(placed.id) + ": " + describe(request) + ", ";
    line += status_text(placed.status);
    if (!placed.reason.empty()) {
        line += " (" + placed.reason + ")";
    }
    on_event(line);
    return placed;
}

void desk::refuse(const order_request& request, const std::string& why) {
    m_log.write(m_now(), request);
    on_event("Refused: " + describe(request) + ". " + why);
}

void desk::tick() {
    m_exchange.end_of_day();
    m_feed.tick();
    for (const instrument& one : instruments()) {
        m_exchange.on_quote(one.id, m_feed.get(one.id));
    }
}

std::string describe(const order_request& request) {
    const instrument* one = find_instrument(request.instrument_id);
    std::string text(action_text(request.action));
    text +=
        " " + std::to_string(request.quantity) + " " + (one == nullptr ? std::string("?") : one->name) + " ";
    text += category_text(request.category);
    const int scale = one == nullptr ? 2 : one->scale;
    if (category::has_stop(request.category)) {
        text += " " + price_text(request.stop_price, scale);
    }
    if (category::has_limit(request.category)) {
        text += " " + price_text(request.limit_price, scale);
    }
    text += " ";
    text += time_in_force_text(request.time_in_force);
    return text;
}

}  // namespace host
