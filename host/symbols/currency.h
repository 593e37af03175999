// How the rows of the symbol tables name their currency: by the international three-digit number.
#pragma once

#include <string_view>

namespace host {

// 840 for "USD"; 0 for one that is not known.
int currency_key(std::string_view currency);

// The currency's code in symbol records, by its key; 0 for an unknown key.
int currency_code_of_key(int key);

}  // namespace host
