#pragma once

namespace BugSlayerUtil {

// Whether the user wants to see that the diagnostics library did not start: the default value of
// HKEY_CURRENT_USER\Software\Orvane\BugSlayer can be read. What it holds does not matter.
bool init_failure_is_shown() noexcept;

// Shows that in a message box and waits for the user.
void show_init_failure() noexcept;

}  // namespace BugSlayerUtil
