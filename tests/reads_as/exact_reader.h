// What a text reads as, worked out a second time: with whole numbers of any length instead of doubles, and
// with nothing of the component's in it. Made to be compared with.
#pragma once

#include <boost/multiprecision/cpp_int.hpp>
#include <cstdint>
#include <optional>

#include "platform/number_locale.h"

namespace exact {

using number = boost::multiprecision::cpp_rational;

// A shown price; nothing where a person could not say which number it is, or where one of its parts is larger
// than any double.
std::optional<number> price(const CString& text, const platform::number_conventions& user);

// A shown quantity: its digits, or thousands and millions by their letters.
std::optional<std::int64_t> quantity(const CString& text, const platform::number_conventions& user);

// The value of a finite double, to the last bit.
number value_of(double value);

// Whether a double lies within so many units in its last place.
bool is_near(const number& exactly, double value, int units = 4);

// Digits grouped as the user groups them.
CString grouped(const CString& digits, const platform::number_conventions& user);

}  // namespace exact
