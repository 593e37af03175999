// One thing that the user or the host does.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace monkey {

enum class act {
    // The user, on the current tab.
    select_type,
    select_time,
    select_account,
    type_quantity,
    type_first_price,
    type_second_price,
    spin_first_price,
    spin_second_price,
    pick_ask,
    pick_bid,
    buy,
    sell,
    type_symbol,
    leave_symbol,
    symbol_dialog,
    pick_date,
    odd_quantity,
    step_quantity,
    escape_symbol,
    odd_key,
    arrow_in_list,
    press_space,
    // Types and presses at once, the focus still in the field.
    type_and_press,
    // A press that is given up: the mouse is released elsewhere.
    abandon_press,
    open_ladder,
    scroll_ladder,
    pick_row,
    profile_menu,
    switch_tab,
    // The user, on the bar.
    strip_menu,
    set_up,
    size_bar,
    // The host.
    host_menu,
    midnight,
    quote,
    state,
    silent_state,
    silent_settings,
    change_accounts,
    change_times,
    add_profile,
    remove_profile,
    rename_profile,
    move_profile,
    reload_start,
    reload_complete,
    delete_all,
    break_call,
    mend_calls,
    drive_symbol,
    drive_symbol_id,
    drive_account,
    drive_active,
    pass_time,
    // What the host does while the next question is open.
    interrupt,
    // What an unruly host does inside one of the bar's next calls to it.
    meddle,
    // The bar is closed and made anew.
    restart,
    // The monkey does nothing until the screen is at rest.
    rest
};
inline constexpr int act_count = static_cast<int>(act::rest) + 1;

struct action {
    act what = act::rest;
    // A profile or a tab; any number.
    int who = 0;
    // A place in one of the world's lists; any number.
    int which = 0;
    // The user says yes to a question.
    bool yes = false;

    bool operator==(const action&) const = default;
};

// What passes from one action to the next, in milliseconds.
inline constexpr int ticks_of_an_action = 120;

// Of a press, which of the two.
bool presses_buy(const action& done);

using sequence = std::vector<action>;

// What the host does while a question is open, as the action to come tells.
action interruption(const action& told);

// The same inside a call, and which call it is.
action meddling(const action& told);
const char* meddled_call(const action& told);
// The operations in which a host meddles.
const std::vector<const char*>& meddled_calls();

action random_action(std::mt19937& random);
// As a line of C++, `{act::buy, 0, 3, false}`, which may be pasted into a test.
std::string text_of(const action& told);

}  // namespace monkey
