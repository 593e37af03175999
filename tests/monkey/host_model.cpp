#include "tests/monkey/host_model.h"

#include <algorithm>

namespace monkey {

host_model::host_model() : dialog(dialog_answers().front()) {
    for (const profile_names& names : monkey::profiles()) {
        profiles.push_back({});
        profiles.back().name = names.name;
    }
}

bool host_model::is_listed(int profile) const {
    return std::find(listed.begin(), listed.end(), profile) != listed.end();
}

}  // namespace monkey
