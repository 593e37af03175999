// Local times as OLE dates (days since 1899-12-30, the time of day as the fraction) and their text.
#pragma once

#include <string>

namespace host {

// "2026-12-18"; empty for 0.0, which stands for no date.
std::string date_text(double date);

// "09:05:07"
std::string clock_text(double date);

// "2026-12-18T09:05:07"
std::string iso_time_text(double date);

}  // namespace host
