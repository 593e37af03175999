#include "tests/monkey/host_model.h"

#include <algorithm>

namespace monkey {

host_model::host_model() : dialog(dialog_answers().front()) {
    for (const profile_names& names : monkey::profiles()) {
        profiles.push_back({});
        profiles.back().name = names.name;
    }
}

memory_record& memory_model::record_of(const CString& name) {
    CString key = name;
    std::transform(key.begin(), key.end(), key.begin(),
                   [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; });
    // The first spelling stays.
    return records.try_emplace(key, memory_record{name, false, 0, {}}).first->second;
}

bool host_model::is_listed(int profile) const {
    return std::find(listed.begin(), listed.end(), profile) != listed.end();
}

}  // namespace monkey
