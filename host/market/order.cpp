#include "market/order.h"

namespace host {

std::string_view status_text(order_status status) {
    switch (status) {
        case order_status::waiting:
            return "Waiting";
        case order_status::working:
            return "Working";
        case order_status::partly_filled:
            return "Partly filled";
        case order_status::filled:
            return "Filled";
        case order_status::cancelled:
            return "Cancelled";
        case order_status::expired:
            return "Expired";
        case order_status::rejected:
            return "Rejected";
    }
    return "";
}

std::string_view action_text(int value) {
    return value == action::buy ? "Buy" : value == action::sell ? "Sell" : "?";
}

std::string_view category_text(int value) {
    switch (value) {
        case category::market:
            return "Market";
        case category::stop:
            return "Stop";
        case category::limit:
            return "Limit";
        case category::stop_limit:
            return "Stop limit";
        default:
            return "?";
    }
}

std::string_view time_in_force_text(int value) {
    switch (value) {
        case time_in_force::day:
            return "DAY";
        case time_in_force::gtc:
            return "GTC";
        case time_in_force::gtd:
            return "GTD";
        case time_in_force::ioc:
            return "IOC";
        case time_in_force::fok:
            return "FOK";
        case time_in_force::aon:
            return "AON";
        default:
            return "?";
    }
}

}  // namespace host
