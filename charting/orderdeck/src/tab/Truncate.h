#pragma once

#include <cmath>
#include <limits>

#include "platform/com.h"

namespace OV_OrderDeck {

// A double without its fraction as a 32-bit integer. What lies beyond becomes the nearest end of the
// range, not-a-number becomes 0: the plain conversion leaves both open.
inline LONG truncate(double value) {
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= static_cast<double>(std::numeric_limits<LONG>::max())) {
        return std::numeric_limits<LONG>::max();
    }
    if (value <= static_cast<double>(std::numeric_limits<LONG>::min())) {
        return std::numeric_limits<LONG>::min();
    }
    return static_cast<LONG>(value);
}

}  // namespace OV_OrderDeck
