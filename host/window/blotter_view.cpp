#include "window/blotter_view.h"

#include "market/instruments.h"
#include "market/price_text.h"
#include "market/time_text.h"

namespace host {
namespace {

std::string price_cell(bool used, double price, const instrument* one) {
    return used && one != nullptr ? price_text(price, one->scale) : std::string();
}

std::vector<std::string> cells(const order& one) {
    const order_request& asked = one.request;
    const instrument* traded = find_instrument(asked.instrument_id);
    std::string filled = std::to_string(one.filled);
    if (one.filled > 0 && traded != nullptr) {
        filled += " @ " + price_text(one.average_price, traded->scale);
    }
    return {clock_text(one.time),
            asked.profile,
            asked.account,
            traded == nullptr ? std::string() : traded->name,
            std::string(action_text(asked.action)),
            std::string(category_text(asked.category)),
            std::to_string(asked.quantity),
            price_cell(category::has_stop(asked.category), asked.stop_price, traded),
            price_cell(category::has_limit(asked.category), asked.limit_price, traded),
            std::string(time_in_force_text(asked.time_in_force)),
            asked.time_in_force == time_in_force::gtd ? date_text(asked.gtd_date) : std::string(),
            std::string(status_text(one.status)),
            filled,
            one.reason,
            asked.seen ? sight_text(*asked.seen) : std::string()};
}

}  // namespace

blotter_view::blotter_view(HWND parent, int id)
    : m_list(parent, id,
             {{"Time", 52},
              {"Profile", 62},
              {"Account", 70},
              {"Symbol", 62},
              {"Side", 36},
              {"Type", 56},
              {"Qty", 40, true},
              {"Stop", 58, true},
              {"Limit", 58, true},
              {"TIF", 38},
              {"Date", 62},
              {"Status", 62},
              {"Filled", 80},
              {"Reason", 80},
              {"As seen", 96}}) {}

void blotter_view::update(const order& one) {
    int index = m_list.row_of(one.id);
    if (index < 0) {
        index = 0;
        m_list.insert(index, one.id);
    }
    m_list.set_row(index, cells(one));
    // A scroll bar may have come.
    m_list.fit();
}

}  // namespace host
