#pragma once

#include "platform/crash.h"

namespace BugSlayerUtil {

// The sources of an exception record.
enum exception_source { unhandled_exception = 1, invalid_parameter = 2 };

// Writes an exception record and gives what its processing gave, 0x80004005 when there is no library or
// no record. It is not offered to the filter. Any thread, in the middle of a crash too.
HRESULT report_exception(exception_source source, const platform::exception_block& block) noexcept;

}  // namespace BugSlayerUtil
