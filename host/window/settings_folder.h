// Where this application keeps what it remembers.
#pragma once

#include <filesystem>

#include "options.h"

namespace host {

// The folder of the options, or else one in the user's application data. It need not be there yet.
std::filesystem::path settings_folder(const options& settings);

}  // namespace host
