#include "tests/monkey/logic_model.h"
#include "tests/monkey/logic_subject.h"
#include "tests/monkey/monkey_pair.h"

namespace monkey {

const int usual_seconds = 30;

pair_maker the_pair() {
    return {[] { return std::make_unique<logic_subject>(); }, [] { return std::make_unique<logic_model>(); }};
}

pair_maker the_unruly_host() {
    return {[] { return std::make_unique<logic_subject>(true); }, {}};
}

}  // namespace monkey
