#include "market/order_sight.h"

namespace host {

std::string sight_text(const order_sight& seen) {
    std::string text;
    for (const auto* shown : {&seen.symbol, &seen.order_type, &seen.quantity, &seen.stop_price,
                              &seen.limit_price, &seen.account, &seen.time_in_force, &seen.date}) {
        if (*shown) {
            text += (text.empty() ? "" : " | ") + **shown;
        }
    }
    return text;
}

}  // namespace host
