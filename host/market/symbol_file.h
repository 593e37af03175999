// The symbol file: UTF-8 text, one instrument per line.
//
//   id|feed|name|root|description|exchange|time_zone|category|currency|scale|min_move|point_value|price|expiry|strike|side
//
// That line comes first; empty lines and lines that begin with # are passed over. A scale is a digit from 0
// to 9 for so many decimals, or a letter from a to z. The category is Future, Stock, Option, Currency or
// Basket. The expiry is a date as 2026-12-18 or empty, the side of an option C or P. An empty feed stands for
// an instrument that nothing serves.
#pragma once

#include <istream>
#include <string>
#include <vector>

#include "market/instruments.h"

namespace host {

struct symbol_file {
    std::vector<instrument> instruments;
    // "line 7: price is not a number", for people; the lines they name are left out, all others are there.
    std::vector<std::string> faults;
};

// Reads to the end. A wrong first line is a fault too, and nothing is read behind it.
symbol_file read_symbols(std::istream& in);

// path is UTF-8. A file that can't be opened is one fault.
symbol_file read_symbol_file(const std::string& path);

}  // namespace host
