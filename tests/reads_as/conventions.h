// The number conventions under which texts are read in these tests.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tests/support/number_locale_scope.h"

namespace reads_as_tests {

struct user {
    const char* name;
    platform::number_conventions conventions;
};

inline std::ostream& operator<<(std::ostream& out, const user& told) {
    return out << told.name;
}

// Those of six countries, or nearly: the last has an accountant's brackets and one group only.
inline const std::vector<user>& six_users() {
    static const std::vector<user> all = {
        {"english", english()}, {"german", german()},
        {"french", french()},   {"swiss", conventions_of(L".", L"\u2019", L"3;0")},
        {"indian", hindi()},    {"accountant", conventions_of(L".", L",", L"3", 0)},
    };
    return all;
}

inline platform::number_conventions no_leading_zero() {
    platform::number_conventions result = english();
    result.leading_zero = 0;
    return result;
}

// What a user may have set besides.
inline const std::vector<user>& other_users() {
    static const std::vector<user> all = {
        {"no_break_space", conventions_of(L",", L"\u00A0", L"3;0", 4)},
        {"apostrophe", conventions_of(L".", L"'", L"3;0", 2)},
        {"not_grouped", conventions_of(L",", L".", L"", 4)},
        {"fours", conventions_of(L".", L",", L"4;0", 3)},
        {"blank_groups", conventions_of(L",", L" ", L"3;0")},
        {"long_marks", conventions_of(L"<>", L"::", L"3;0")},
        {"no_leading_zero", no_leading_zero()},
    };
    return all;
}

// In which not everything can be shown: one mark for both separators, and a negative form that there is not.
inline const std::vector<user>& broken_users() {
    static const std::vector<user> all = {
        {"one_mark", conventions_of(L",", L",", L"3;0")},
        {"no_negative_form", conventions_of(L".", L",", L"3;0", 5)},
    };
    return all;
}

inline std::vector<user> working_users() {
    std::vector<user> all = six_users();
    all.insert(all.end(), other_users().begin(), other_users().end());
    return all;
}

inline std::vector<user> all_users() {
    std::vector<user> all = working_users();
    all.insert(all.end(), broken_users().begin(), broken_users().end());
    return all;
}

}  // namespace reads_as_tests
