#include "market/order_log.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "market/instruments.h"
#include "market/time_text.h"

namespace host {

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

void order_log::write(double time, const order_request& request) {
    if (m_file.is_open()) {
        m_file << order_log_line(time, request) << '\n' << std::flush;
    }
}

}  // namespace host
