#pragma once

#include "tests/monkey/monkey_run.h"

namespace monkey {

// What this program lets the monkey loose on, and for how long when nobody says.
pair_maker the_pair();
extern const int usual_seconds;

}  // namespace monkey
