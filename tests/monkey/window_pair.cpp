#include "tests/monkey/monkey_pair.h"
#include "tests/monkey/window_model.h"
#include "tests/monkey/window_subject.h"

namespace monkey {

const int usual_seconds = 120;

pair_maker the_pair() {
    // The same for every bar of a process.
    const auto widths = std::make_shared<item_widths>();
    return {[widths] { return std::make_unique<window_subject>(*widths); },
            [widths] { return std::make_unique<window_model>(widths); }};
}

pair_maker the_unruly_host() {
    const auto widths = std::make_shared<item_widths>();
    return {[widths] { return std::make_unique<window_subject>(*widths, true); }, {}};
}

}  // namespace monkey
