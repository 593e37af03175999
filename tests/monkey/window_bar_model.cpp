// What becomes of the bar as a whole: its beginning and end, what it remembers, and what the user does with
// it beside the row.
#include <algorithm>
#include <cmath>

#include "tests/monkey/window_model.h"

namespace monkey {

namespace {

// Only the first bar of a process takes its room by itself; the others have it from their host.
bool nobody_was_first = true;

}  // namespace

void window_model::created() {
    m_room_taken = false;
}

void window_model::lay_out_first() {
    if (nobody_was_first && !m_strip.empty()) {
        nobody_was_first = false;
        m_room_taken = true;
    }
}

// The next bar has windows of its own.
void window_model::torn_down() {
    m_strip.clear();
    m_panel.clear();
    m_current = 0;
    m_last_category = -1;
    m_quantity.reset();
    m_quotes = {};
    m_shown_tab = 0;
    m_shown_symbol.clear();
    m_date = m_earliest = 0.0;
}

void window_model::remember(memory_model& memory) {
    const row_model* const row = find(m_current);
    memory.current_tab = row != nullptr ? std::optional(row->name) : std::nullopt;
}

void window_model::take_up(const memory_model& memory) {
    if (m_strip.empty()) {
        return;
    }
    const CString name = memory.current_tab.value_or(L"Interactive Brokers");
    const auto found =
        std::find_if(m_strip.begin(), m_strip.end(), [&](const tab& each) { return each.name == name; });
    select_tab(found != m_strip.end() ? found->id : m_strip.front().id, false);
}

void window_model::raised_inside(const raised& failure) {
    // What is no failure goes to the host alone.
    if (failure.error != "0x00000001") {
        add_error(failure.error);
    }
}

void window_model::bar_action(const action& done) {
    switch (done.what) {
        case act::strip_menu:
            if (!m_strip.empty()) {
                select_tab(tab_at(done.who), false);
                profile_menu(*find(m_current), done.which);
            }
            return;
        case act::set_up:
            if (m_strip.empty()) {
                try {
                    edit_profiles();
                } catch (const raised&) {
                    out().assertions.emplace_back("*");
                    throw;
                }
            }
            return;
        case act::size_bar:
            // Without tabs the strip says nothing of the room that it will need.
            m_room_taken = !m_strip.empty();
            return;
        case act::midnight:
            return midnight();
        default:
            return;
    }
}

// A date of the past becomes today, for the row too, and no day before that can be picked any more.
void window_model::midnight() {
    const double today = std::floor(host().now);
    if (std::floor(m_date) < today) {
        m_date = m_earliest = today;
        if (row_model* const row = find(m_current)) {
            row->put_date(today);
        }
    }
}

}  // namespace monkey
