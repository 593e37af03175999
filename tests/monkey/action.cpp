#include "tests/monkey/action.h"

#include <array>

namespace monkey {

namespace {

struct habit {
    const char* name;
    // How often, beside the others.
    int weight;
};

constexpr std::array<habit, act_count> habits = {{
    {"select_type", 30},
    {"select_time", 14},
    {"select_account", 10},
    {"type_quantity", 12},
    {"type_first_price", 18},
    {"type_second_price", 18},
    {"spin_first_price", 12},
    {"spin_second_price", 12},
    {"pick_ask", 40},
    {"pick_bid", 20},
    {"buy", 40},
    {"sell", 32},
    {"type_symbol", 24},
    {"leave_symbol", 8},
    {"symbol_dialog", 8},
    {"pick_date", 8},
    {"odd_quantity", 8},
    {"step_quantity", 20},
    {"escape_symbol", 5},
    {"odd_key", 5},
    {"arrow_in_list", 12},
    {"press_space", 8},
    {"type_and_press", 40},
    {"abandon_press", 8},
    {"open_ladder", 16},
    {"scroll_ladder", 16},
    {"pick_row", 20},
    {"profile_menu", 8},
    {"switch_tab", 16},
    {"strip_menu", 4},
    {"set_up", 2},
    {"size_bar", 2},
    {"host_menu", 5},
    {"midnight", 8},
    {"quote", 90},
    {"state", 40},
    {"silent_state", 3},
    {"silent_settings", 3},
    {"change_accounts", 3},
    {"change_times", 4},
    {"add_profile", 5},
    {"remove_profile", 3},
    {"rename_profile", 5},
    {"move_profile", 1},
    {"reload_start", 1},
    {"reload_complete", 2},
    {"delete_all", 1},
    {"break_call", 3},
    {"mend_calls", 3},
    {"drive_symbol", 16},
    {"drive_symbol_id", 4},
    {"drive_account", 5},
    {"drive_active", 8},
    {"pass_time", 6},
    {"interrupt", 8},
    {"meddle", 20},
    {"restart", 4},
    {"rest", 6},
}};

constexpr std::array<act, 8> interruptions = {act::state,           act::quote,       act::rename_profile,
                                              act::remove_profile,  act::add_profile, act::drive_active,
                                              act::reload_complete, act::delete_all};

constexpr std::array<act, 19> meddlings = {act::state,
                                           act::quote,
                                           act::rename_profile,
                                           act::remove_profile,
                                           act::drive_active,
                                           act::drive_symbol,
                                           act::drive_account,
                                           act::change_accounts,
                                           act::select_type,
                                           act::select_time,
                                           act::type_quantity,
                                           act::type_first_price,
                                           act::type_second_price,
                                           act::select_account,
                                           act::pick_ask,
                                           act::pick_date,
                                           act::type_and_press,
                                           act::buy,
                                           act::sell};

}  // namespace

bool presses_buy(const action& done) {
    return done.what == act::buy || (done.what != act::sell && done.yes);
}

action meddling(const action& told) {
    const auto count = static_cast<int>(meddlings.size());
    return {meddlings.at(static_cast<std::size_t>(told.which % count)), told.who, told.which / count,
            told.yes};
}

const std::vector<const char*>& meddled_calls() {
    static const std::vector<const char*> all = {"ManualTrading.SetAccount",     "ManualTrading.SetSymbol",
                                                 "ManualTrading.GetAccounts",    "ManualTrading.BeforeOrder",
                                                 "ManualTrading.PlaceOrder",     "ManualTrading.AfterOrder",
                                                 "ManualTrading.GetTimeInForces"};
    return all;
}

const char* meddled_call(const action& told) {
    return meddled_calls().at(static_cast<std::size_t>(told.who) % meddled_calls().size());
}

action interruption(const action& told) {
    const auto count = static_cast<int>(interruptions.size());
    return {interruptions.at(static_cast<std::size_t>(told.which % count)), told.who, told.which / count,
            told.yes};
}

action random_action(std::mt19937& random) {
    std::array<int, act_count> weights{};
    for (std::size_t i = 0; i < weights.size(); ++i) {
        weights[i] = habits[i].weight;
    }
    // Drawn by hand: what the library's distributions draw is left to the library, and a seed has to mean
    // the same sequence on every system.
    int total = 0;
    for (const int weight : weights) {
        total += weight;
    }
    const auto draw = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    int left = draw(total);
    int what = 0;
    while (left >= weights[static_cast<std::size_t>(what)]) {
        left -= weights[static_cast<std::size_t>(what++)];
    }
    const int who = draw(60);
    const int which = draw(10080);
    return {static_cast<act>(what), who, which, draw(2) == 1};
}

std::string text_of(const action& told) {
    return std::string("{act::") + habits[static_cast<std::size_t>(told.what)].name + ", " +
           std::to_string(told.who) + ", " + std::to_string(told.which) + ", " +
           (told.yes ? "true" : "false") + "}";
}

}  // namespace monkey
