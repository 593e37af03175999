// An order of this application's paper exchange.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "market/order_sight.h"

namespace host {

namespace action {
inline constexpr int buy = 1;
inline constexpr int sell = 2;
}  // namespace action

namespace category {
inline constexpr int market = 1;
inline constexpr int stop = 2;
inline constexpr int limit = 3;
inline constexpr int stop_limit = 4;

constexpr bool has_stop(int value) {
    return value == stop || value == stop_limit;
}
constexpr bool has_limit(int value) {
    return value == limit || value == stop_limit;
}
}  // namespace category

namespace time_in_force {
inline constexpr int day = 1;
inline constexpr int gtc = 2;
inline constexpr int gtd = 3;
inline constexpr int ioc = 4;
inline constexpr int fok = 5;
inline constexpr int aon = 6;
}  // namespace time_in_force

// What was asked for, in the numbers of the order-entry interface. A price that the category does not
// use is ignored.
struct order_request {
    std::string profile;
    std::string account;
    // 0 when no instrument was set.
    int instrument_id = 0;
    int action = 0;
    int category = 0;
    int quantity = 0;
    double stop_price = 0.0;
    double limit_price = 0.0;
    int time_in_force = 0;
    // OLE date; counts for good-till-date orders only.
    double gtd_date = 0.0;
    // What its user saw, when the bar told.
    std::optional<order_sight> seen;
};

enum class order_status {
    // A stop that was not touched yet.
    waiting,
    working,
    partly_filled,
    filled,
    cancelled,
    expired,
    rejected
};

struct order {
    int id = 0;
    // Local time as an OLE date.
    double time = 0.0;
    order_request request;
    order_status status = order_status::working;
    int filled = 0;
    double average_price = 0.0;
    // Why it was rejected, cancelled or ended, for people.
    std::string reason;

    int remaining() const { return request.quantity - filled; }
    bool is_live() const {
        return status == order_status::waiting || status == order_status::working ||
               status == order_status::partly_filled;
    }
};

std::string_view status_text(order_status status);
std::string_view action_text(int action);
std::string_view category_text(int category);
std::string_view time_in_force_text(int time_in_force);

}  // namespace host
