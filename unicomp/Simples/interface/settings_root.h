// Where the settings of this program's user lie.
#pragma once

#include "platform/text.h"

namespace Unicomp {

// "SOFTWARE\<company>\<product>" below HKEY_CURRENT_USER, with the company and product of the process's main
// executable; empty when either is missing. Read anew at each call. Any thread; throws std::bad_alloc.
CString settings_root();

}  // namespace Unicomp
