#include "market/time_text.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace host {
namespace {

constexpr double seconds_per_day = 86400.0;

// Whole seconds since the first day, rounded, so that a day and its clock always agree.
long long whole_seconds(double date) {
    return std::llround(date * seconds_per_day);
}

}  // namespace

std::string date_text(double date) {
    if (date == 0.0) {
        return {};
    }
    using namespace std::chrono;
    const sys_days first = year{1899} / December / 30;
    const auto days_since =
        static_cast<int>(std::floor(static_cast<double>(whole_seconds(date)) / seconds_per_day));
    const year_month_day day{first + days{days_since}};
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(day.year()),
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
    return text.data();
}

std::string clock_text(double date) {
    const long long seconds =
        whole_seconds(date - std::floor(date)) % static_cast<long long>(seconds_per_day);
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%02lld:%02lld:%02lld", seconds / 3600, seconds / 60 % 60,
                  seconds % 60);
    return text.data();
}

std::string iso_time_text(double date) {
    return date_text(date) + "T" + clock_text(date);
}

}  // namespace host
