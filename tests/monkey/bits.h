#pragma once

#include <vector>

namespace monkey {

// Bits of the fields, as masks of updates have them.
enum bit : unsigned {
    symbol_bit = 0x80,
    type_bit = 0x100,
    quantity_bit = 0x200,
    first_price_bit = 0x400,
    second_price_bit = 0x800,
    account_bit = 0x1000,
    time_bit = 0x2000,
    date_bit = 0x4000,
    quotes_bit = 0x8000,
    buy_bit = 0x10000,
    sell_bit = 0x20000
};
const std::vector<bit>& all_bits();
const char* name_of(bit field);

}  // namespace monkey
