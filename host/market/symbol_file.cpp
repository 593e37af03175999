#include "market/symbol_file.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "market/price_text.h"

namespace host {
namespace {

enum column {
    id,
    feed,
    name,
    root,
    description,
    exchange,
    time_zone,
    category,
    currency,
    scale,
    min_move,
    point_value,
    price,
    expiry,
    strike,
    side,
    column_count
};

constexpr std::string_view header =
    "id|feed|name|root|description|exchange|time_zone|category|currency|scale|min_move|point_value|price|"
    "expiry|"
    "strike|side";

using cells = std::array<std::string_view, column_count>;

[[noreturn]] void fault(const std::string& what) {
    throw std::invalid_argument(what);
}

cells split(std::string_view line) {
    cells all;
    std::size_t count = 0;
    for (;;) {
        const std::size_t bar = line.find('|');
        if (count < all.size()) {
            all[count] = line.substr(0, bar);
        }
        ++count;
        if (bar == std::string_view::npos) {
            break;
        }
        line.remove_prefix(bar + 1);
    }
    if (count != all.size()) {
        fault(std::to_string(count) + " columns instead of " + std::to_string(all.size()));
    }
    return all;
}

template <class Number>
Number number(const char* what, std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) {
        fault(std::string(what) + " is not a number");
    }
    return value;
}

double positive(const char* what, std::string_view text) {
    const auto value = number<double>(what, text);
    if (!std::isfinite(value) || value <= 0.0) {
        fault(std::string(what) + " is not above zero");
    }
    return value;
}

int positive_whole(const char* what, std::string_view text) {
    const int value = number<int>(what, text);
    if (value <= 0) {
        fault(std::string(what) + " is not above zero");
    }
    return value;
}

std::string filled(const char* what, std::string_view text) {
    if (text.empty()) {
        fault(std::string(what) + " is empty");
    }
    return std::string(text);
}

instrument_kind kind_of(std::string_view text) {
    using enum instrument_kind;
    for (const instrument_kind kind : {future, stock, option, instrument_kind::currency, basket}) {
        if (kind_text(kind) == text) {
            return kind;
        }
    }
    fault("unknown category \"" + std::string(text) + "\"");
}

int scale_of(std::string_view text) {
    if (text.size() == 1 && text[0] >= '0' && text[0] <= '9') {
        return text[0] - '0';
    }
    if (text.size() == 1 && text[0] >= 'a' && text[0] <= 'z') {
        return text[0];
    }
    fault("unknown price scale \"" + std::string(text) + "\"");
}

// An OLE date: days since 1899-12-30.
double date_of(std::string_view text) {
    using namespace std::chrono;
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        fault("expiry is not a date");
    }
    const year_month_day day(year(number<int>("expiry", text.substr(0, 4))),
                             month(number<unsigned>("expiry", text.substr(5, 2))),
                             std::chrono::day(number<unsigned>("expiry", text.substr(8, 2))));
    if (!day.ok()) {
        fault("expiry is not a date");
    }
    return static_cast<double>((sys_days(day) - sys_days(1899y / December / 30)).count());
}

void read_option(const cells& all, instrument& one) {
    one.strike = positive("strike", all[strike]);
    if (all[side] != "C" && all[side] != "P") {
        fault("side of an option is neither C nor P");
    }
    one.put = all[side] == "P";
}

instrument read_line(std::string_view line) {
    const cells all = split(line);
    instrument one;
    one.id = positive_whole("id", all[id]);
    one.feed = all[feed];
    one.name = filled("name", all[name]);
    one.root = all[root];
    one.description = all[description];
    one.exchange = filled("exchange", all[exchange]);
    one.time_zone = all[time_zone];
    one.kind = kind_of(all[category]);
    one.currency = all[currency];
    if (currency_code(one.currency) == 0) {
        fault("unknown currency \"" + one.currency + "\"");
    }
    one.scale = scale_of(all[scale]);
    one.min_move = positive_whole("min_move", all[min_move]);
    one.point_value = positive("point_value", all[point_value]);
    one.first_price = positive("price", all[price]);
    if (!on_grid(one.first_price, one.tick())) {
        fault("price is not a multiple of the tick");
    }
    one.expiry = all[expiry].empty() ? 0.0 : date_of(all[expiry]);
    if (one.kind == instrument_kind::option) {
        read_option(all, one);
    } else if (!all[strike].empty() || !all[side].empty()) {
        fault("strike and side belong to options only");
    }
    return one;
}

// The next line without its end, of either kind; false at the end of the file.
bool next_line(std::istream& in, std::string& line) {
    if (!std::getline(in, line)) {
        return false;
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return true;
}

bool is_silent(const std::string& line) {
    return line.empty() || line.front() == '#';
}

}  // namespace

symbol_file read_symbols(std::istream& in) {
    symbol_file file;
    std::unordered_set<int> ids;
    bool begun = false;
    std::string line;
    for (int number = 1; next_line(in, line); ++number) {
        if (is_silent(line)) {
            continue;
        }
        const std::string where = "line " + std::to_string(number) + ": ";
        if (!begun) {
            if (line != header) {
                file.faults.push_back(where + "the columns are not those of a symbol file");
                return file;
            }
            begun = true;
            continue;
        }
        try {
            instrument one = read_line(line);
            if (!ids.insert(one.id).second) {
                fault("id " + std::to_string(one.id) + " occurs a second time");
            }
            file.instruments.push_back(std::move(one));
        } catch (const std::invalid_argument& error) {
            file.faults.push_back(where + error.what());
        }
    }
    if (!begun) {
        file.faults.emplace_back("the file is empty");
    }
    return file;
}

symbol_file read_symbol_file(const std::string& path) {
    std::ifstream in(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary);
    if (!in) {
        return {{}, {path + " can't be opened"}};
    }
    return read_symbols(in);
}

}  // namespace host
