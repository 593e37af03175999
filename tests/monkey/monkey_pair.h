#pragma once

#include "tests/monkey/monkey_run.h"

namespace monkey {

// What this program lets the monkey loose on, and for how long when nobody says.
pair_maker the_pair();
// A bar in a host that does anything inside the bar's own calls. There is no model of it.
pair_maker the_unruly_host();
extern const int usual_seconds;

}  // namespace monkey
