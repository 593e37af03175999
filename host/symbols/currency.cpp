#include "symbols/currency.h"

#include <algorithm>
#include <array>

#include "market/instruments.h"

namespace host {
namespace {

struct currency_number {
    std::string_view name;
    int key;
};

constexpr std::array<currency_number, 13> numbers{{{"USD", 840},
                                                   {"TWD", 901},
                                                   {"EUR", 978},
                                                   {"GBP", 826},
                                                   {"JPY", 392},
                                                   {"CHF", 756},
                                                   {"CAD", 124},
                                                   {"AUD", 36},
                                                   {"NZD", 554},
                                                   {"SEK", 752},
                                                   {"NOK", 578},
                                                   {"HKD", 344},
                                                   {"SGD", 702}}};

}  // namespace

int currency_key(std::string_view currency) {
    const auto* found = std::ranges::find(numbers, currency, &currency_number::name);
    return found == numbers.end() ? 0 : found->key;
}

int currency_code_of_key(int key) {
    const auto* found = std::ranges::find(numbers, key, &currency_number::key);
    return found == numbers.end() ? 0 : currency_code(found->name);
}

}  // namespace host
