// What the monkey's host has to offer. Actions name these things by their place in the lists, so a sequence
// of actions is a few numbers. The model and the fake host read the same lists: they are the world, not the
// component's behaviour.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/fake_lookup.h"

namespace monkey {

// Any number picks an entry of a list that is not empty.
template <class List>
auto& pick(List& list, int which) {
    return list.at(static_cast<std::size_t>(which < 0 ? 0 : which) % list.size());
}

inline constexpr int profile_count = 5;

// The profile whose number an action gave. Most of what happens concerns the first two.
constexpr int place_of_profile(int who) {
    return who % 2 == 0 ? who / 2 % 2 : who / 2 % profile_count;
}

// The first name and the outer id of a profile; two of them have one name.
struct profile_names {
    CString name;
    CString outer_id;
};
const std::vector<profile_names>& profiles();
// Names that a profile may be given later.
const std::vector<CString>& later_names();
inline const CString plugin_name = L"CQG-FIX";
inline const CString own_feed = L"CQG";

// Bid, then ask.
const std::vector<std::pair<double, double>>& quotes();
// With the states that no enumeration has. A row is good for little before it is connected.
const std::vector<LONG>& states();
const std::vector<std::vector<CString>>& account_lists();
const std::vector<CString>& driven_accounts();
// Codes per category, 1 to 4.
using times_by_category = std::vector<std::vector<LONG>>;
const std::vector<times_by_category>& time_lists();

const std::vector<test::symbol>& instruments();

// How the lookup answers to a text: a record and a result.
struct lookup_answer {
    OD_LookupResult result = eODLR_NotFound;
    test::symbol record;
};
const std::vector<CString>& symbol_texts();
lookup_answer answer_to(const CString& text);
// What the user does in the dialog of a lookup.
const std::vector<lookup_answer>& dialog_answers();

const std::vector<CString>& price_texts();
// A quantity as typed and the number that it is, nothing with the error for a text that is none.
struct quantity_text {
    CString text;
    std::optional<LONG> value;
    HRESULT error = S_OK;
};
const std::vector<quantity_text>& quantity_texts();
// OLE dates; only whole quarters of a day, which survive being made ticks.
const std::vector<double>& dates();
const std::vector<int>& spin_steps();

// Names that an earlier bar may have remembered: of profiles, and of none.
const std::vector<CString>& remembered_names();

// A symbol that an earlier bar may have remembered; 0 for none.
LONG planted_id(int which);

// Every other profile of the host asks for receipts.
constexpr bool wants_receipts(int profile) {
    return profile % 2 == 0;
}

// Operations of the host that can be made to fail, by the names of the fake host.
enum class broken {
    accounts,
    times,
    order,
    set_account,
    set_symbol,
    trading,
    state,
    connect,
    lookup,
    lookup_start,
    lookup_class,
    advise,
    items,
    prepare,
    center_class,
    collection,
    subscribe,
    counter,
    disconnect,
    confirmer_class,
    confirmer_start,
    confirm,
    have_settings,
    show_settings,
    mapping_class,
    mapping,
    editor_class,
    editor_start,
    editor,
    lookup_by_id,
    lookup_plugin,
    lock,
    receipt,
    // The host says no to what it is shown; no call fails.
    agreement
};
inline constexpr int broken_count = static_cast<int>(broken::agreement) + 1;
const char* operation_of(broken what);

}  // namespace monkey
