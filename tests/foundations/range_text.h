// The text of the range error that something raises.
#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

template <class Action>
std::string range_text(Action&& action) {
    try {
        action();
    } catch (const std::range_error& error) {
        return error.what();
    }
    return "nothing was raised";
}
