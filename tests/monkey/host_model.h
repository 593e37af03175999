// The host as the model sees it: what it would answer now.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <vector>

#include "tests/monkey/expectation.h"
#include "tests/monkey/world.h"

namespace monkey {

struct profile_model {
    CString name;
    LONG state = 256;
    std::vector<CString> accounts = account_lists().front();
    times_by_category times = time_lists().front();
    bool have_settings = true;
};

// What is kept of a profile from one bar to the next.
struct memory_record {
    CString name;
    bool connected = false;
    LONG symbol_id = 0;
    CString symbol_name;
};

struct memory_model {
    std::optional<CString> current_tab;
    // In their order, by the name without its case: two names that differ in nothing else are one.
    std::map<CString, memory_record> records;

    memory_record& record_of(const CString& name);
};

struct host_model {
    host_model();

    std::vector<profile_model> profiles;
    // The collection, in its order, by place in the world's list.
    std::vector<int> listed;
    std::set<broken> faults;
    lookup_answer dialog;
    bool plugin_is_supported = false;
    // What the user answers to a question.
    bool yes = false;
    // Which of the questions to disconnect he refuses, 0 for none.
    int refused = 0;
    // Bars of all processes that use the trading centre.
    LONG master_counter = 1;
    memory_model memory;
    // Today with its time, as an OLE date.
    double now = 47618.25;

    bool fails(broken what) const { return faults.count(what) != 0; }
    bool is_listed(int profile) const;
};

}  // namespace monkey
