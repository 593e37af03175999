#include "options.h"

#include <charconv>
#include <stdexcept>
#include <string_view>

namespace host {
namespace {

template <class Number>
Number number(std::string_view name, std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) {
        throw std::invalid_argument(std::string(name) + " wants a number, not \"" + std::string(text) + "\"");
    }
    return value;
}

void read_size(options& result, std::string_view text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) {
        throw std::invalid_argument("--size wants WIDTHxHEIGHT, not \"" + std::string(text) + "\"");
    }
    result.width = number<int>("--size", text.substr(0, cross));
    result.height = number<int>("--size", text.substr(cross + 1));
    if (result.width < 640 || result.height < 400) {
        throw std::invalid_argument("--size wants at least 640x400");
    }
}

}  // namespace

options parse_options(const std::vector<std::string>& arguments) {
    options result;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const std::string& name = *argument;
        if (name == "--frozen-quotes") {
            result.frozen_quotes = true;
            continue;
        }
        std::string* text = name == "--order-log"  ? &result.order_log
                            : name == "--describe" ? &result.describe
                            : name == "--dll"      ? &result.dll
                            : name == "--settings" ? &result.settings
                                                   : nullptr;
        if (text == nullptr && name != "--seed" && name != "--size") {
            throw std::invalid_argument("Unknown option \"" + name + "\"");
        }
        if (++argument == arguments.end()) {
            throw std::invalid_argument(name + " wants a value");
        }
        if (text != nullptr) {
            *text = *argument;
        } else if (name == "--seed") {
            result.seed = number<unsigned>(name, *argument);
        } else {
            read_size(result, *argument);
        }
    }
    return result;
}

}  // namespace host
