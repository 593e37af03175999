// The text of a value that is out of range.
#pragma once

#include <locale>
#include <sstream>
#include <stdexcept>

namespace ovDateTime::details {

template <class Value, class Bound>
[[noreturn]] void raise_range_error(const char* function, const char* argument, Bound low, Bound high,
                                    Value value) {
    std::ostringstream text;
    // Digits stay plain, whatever locale the host set.
    text.imbue(std::locale::classic());
    text << function << ": value of '" << argument << "' is out of range [" << low << ".." << high << "]; "
         << argument << " = " << value;
    throw std::range_error(text.str());
}

// Raises unless low <= value <= high. A value that compares with nothing is out of range.
template <class Value, class Bound>
void check_range(const char* function, const char* argument, Bound low, Bound high, Value value) {
    if (!(value >= low && value <= high)) {
        raise_range_error(function, argument, low, high, value);
    }
}

}  // namespace ovDateTime::details
