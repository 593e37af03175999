// What the paper exchange refuses, and why.
#pragma once

#include <string>
#include <vector>

#include "market/order.h"

namespace host {

// The largest quantity of one order.
inline constexpr int max_quantity = 1000000;

// The times in force that are offered for an order category, in the order to show; none for an unknown
// category.
const std::vector<int>& offered_times_in_force(int category);

// Why the order can't be taken, or an empty text. today is the day number of the local date.
std::string refusal(const order_request& request, const std::vector<std::string>& accounts, int today);

}  // namespace host
