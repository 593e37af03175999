// Which data feed serves the symbols of which broker, where the order bar looks for it.
#pragma once

#include <string>

namespace host {

// Empty for none.
std::string feed_of(const std::string& plugin);

// False when it can't be kept. A bar that runs goes on with what it read at its start.
bool set_feed(const std::string& plugin, const std::string& feed);

// Gives each broker that has no feed the one of this application.
void associate_data_feed();

}  // namespace host
