#include "market/order_log.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "market/instruments.h"
#include "market/time_text.h"

namespace host {
namespace {

nlohmann::ordered_json seen_object(const order_sight& seen) {
    nlohmann::ordered_json object;
    object["number"] = seen.number;
    object["utc_milliseconds"] = seen.milliseconds;
    object["source"] = seen.source == press_source::mouse ? "mouse"
                       : seen.source == press_source::key ? "key"
                                                          : "program";
    const auto put = [&object](const char* name, const std::optional<std::string>& text) {
        if (text) {
            object[name] = *text;
        }
    };
    put("symbol", seen.symbol);
    put("order_type", seen.order_type);
    put("quantity", seen.quantity);
    put("stop_price", seen.stop_price);
    put("limit_price", seen.limit_price);
    put("account", seen.account);
    put("time_in_force", seen.time_in_force);
    put("date", seen.date);
    put("button", seen.button);
    object["bid"] = seen.bid;
    object["ask"] = seen.ask;
    object["quote_age"] = seen.quote_age;
    return object;
}

}  // namespace

std::string order_log_line(double time, const order_request& request) {
    const instrument* one = find_instrument(request.instrument_id);
    nlohmann::ordered_json line;
    line["time"] = iso_time_text(time);
    line["profile"] = request.profile;
    line["account"] = request.account;
    line["symbol"] = one == nullptr ? "" : one->name;
    line["action"] = request.action;
    line["category"] = request.category;
    line["quantity"] = request.quantity;
    line["stop_price"] = request.stop_price;
    line["limit_price"] = request.limit_price;
    line["time_in_force"] = request.time_in_force;
    line["gtd_date"] = request.gtd_date;
    if (request.seen) {
        line["seen"] = seen_object(*request.seen);
    }
    return line.dump();
}

std::string order_result_line(long long number, long result) {
    nlohmann::ordered_json line;
    line["after"] = number;
    line["result"] = result;
    return line.dump();
}

order_log::order_log(const std::string& path) {
    if (path.empty()) {
        return;
    }
    m_file.open(std::filesystem::path(std::u8string(path.begin(), path.end())),
                std::ios::out | std::ios::trunc | std::ios::binary);
    if (!m_file) {
        throw std::runtime_error("The order log can't be written: " + path);
    }
}

void order_log::write_result(long long number, long result) {
    if (m_file.is_open()) {
        m_file << order_result_line(number, result) << '\n' << std::flush;
    }
}

void order_log::write(double time, const order_request& request) {
    if (m_file.is_open()) {
        m_file << order_log_line(time, request) << '\n' << std::flush;
    }
}

}  // namespace host
