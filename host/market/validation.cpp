#include "market/validation.h"

#include <algorithm>
#include <cmath>

#include "market/instruments.h"
#include "market/price_text.h"

namespace host {
namespace {

std::string price_refusal(const char* which, double price, const instrument& one) {
    if (!std::isfinite(price) || price <= 0.0) {
        return std::string(which) + " must be above zero";
    }
    if (!on_grid(price, one.tick())) {
        return std::string(which) + " is not a multiple of the tick";
    }
    return {};
}

std::string prices_refusal(const order_request& request, const instrument& one) {
    std::string reason;
    if (category::has_stop(request.category)) {
        reason = price_refusal("Stop price", request.stop_price, one);
    }
    if (reason.empty() && category::has_limit(request.category)) {
        reason = price_refusal("Limit price", request.limit_price, one);
    }
    return reason;
}

}  // namespace

const std::vector<int>& offered_times_in_force(int value) {
    using namespace time_in_force;
    static const std::vector<int> market{day, ioc, fok};
    static const std::vector<int> limit{day, gtc, gtd, ioc, fok, aon};
    static const std::vector<int> stops{day, gtc, gtd};
    static const std::vector<int> none;
    switch (value) {
        case category::market:
            return market;
        case category::limit:
            return limit;
        case category::stop:
        case category::stop_limit:
            return stops;
        default:
            return none;
    }
}

std::string refusal(const order_request& request, const std::vector<std::string>& accounts, int today) {
    const instrument* one = find_instrument(request.instrument_id);
    if (one == nullptr) {
        return "No such instrument";
    }
    if (std::ranges::find(accounts, request.account) == accounts.end()) {
        return "Unknown account";
    }
    if (request.action != action::buy && request.action != action::sell) {
        return "Neither a buy nor a sell";
    }
    const std::vector<int>& offered = offered_times_in_force(request.category);
    if (offered.empty()) {
        return "Unknown order type";
    }
    if (request.quantity <= 0 || request.quantity > max_quantity) {
        return "Quantity must be from 1 to " + std::to_string(max_quantity);
    }
    if (std::ranges::find(offered, request.time_in_force) == offered.end()) {
        return "Time in force is not offered for this order type";
    }
    if (request.time_in_force == time_in_force::gtd && !(std::floor(request.gtd_date) >= today)) {
        return "Good-till date lies in the past";
    }
    return prices_refusal(request, *one);
}

}  // namespace host
