// What a paper profile and its order entry share.
#pragma once

#include <functional>
#include <string>

#include "centre/profile_store.h"

namespace host {

struct session : profile_record {
    bool connected = false;
    // The account last set; the next orders are for it.
    std::string account;
    // The instrument last set, 0 for none.
    int instrument_id = 0;
    // A symbol was set: its quote is wanted.
    std::function<void()> on_symbol = [] {};
};

}  // namespace host
