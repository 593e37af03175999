// The order log: one JSON object per line, written when an order arrives and before anything judges it.
#pragma once

#include <fstream>
#include <string>

#include "market/order.h"

namespace host {

// The line of an order: time, profile, account, symbol, and the seven arguments of the order as they
// came, and behind them what its user saw when the bar told. time is a local OLE date and is written as an
// ISO date and time. The text is UTF-8 with no line end.
std::string order_log_line(double time, const order_request& request);
// The line of an order's end at the bar: the number of what was seen, and the result that the bar got.
std::string order_result_line(long long number, long result);

class order_log {
public:
    // An empty path keeps no log. Throws std::runtime_error when the file can't be opened for writing.
    explicit order_log(const std::string& path);

    // The line is in the file when this returns.
    void write(double time, const order_request& request);
    void write_result(long long number, long result);

private:
    std::ofstream m_file;
};

}  // namespace host
