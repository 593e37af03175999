#include "tests/monkey/bar_model.h"

#include <algorithm>
#include <iterator>

namespace monkey {

void bar_model::start() {
    m_host.listed = {0, 1};
    create();
    fill();
    m_out = {};
}

outcome bar_model::perform(const action& done) {
    m_out = {};
    m_gone.clear();
    m_notes.clear();
    m_host.yes = done.yes;
    m_host.refused = done.what == act::restart ? done.which % 6 : done.yes ? 0 : 1;
    m_host.plugin_is_supported = done.yes;
    begin(done);
    try {
        dispatch(done);
    } catch (const raised& failure) {
        add_error(failure.error);
    }
    m_out.calls.insert(m_out.calls.end(), m_notes.begin(), m_notes.end());
    return m_out;
}

void bar_model::add_error(const std::string& error) {
    m_out.error += (m_out.error.empty() ? "" : " ") + error;
}

row_model* bar_model::find(LONG id) const {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [&](const auto& row) { return row->id == id; });
    return found != m_rows.end() ? found->get() : nullptr;
}

row_model* bar_model::row_of(int profile) const {
    const auto found = m_tags.find(profile);
    return found != m_tags.end() ? find(found->second) : nullptr;
}

view bar_model::status() const {
    const row_model* const row = current();
    if (row == nullptr) {
        return {"status: 無經紀商"};
    }
    return {"status: " + test::narrow(plugin_name) + (row->state() == 768 ? ":已連線" : ":已斷線"),
            "active: " + test::narrow(pick(profiles(), row->profile).outer_id)};
}

void bar_model::dispatch(const action& done) {
    if (done.what < act::switch_tab) {
        m_host.dialog = pick(dialog_answers(), done.which);
        if (row_model* const row = find(current_id())) {
            user(*row, done);
        }
    } else if (done.what == act::switch_tab) {
        if (!m_rows.empty()) {
            show_tab(done);
        }
    } else if (done.what < act::host_menu) {
        bar_action(done);
    } else if (done.what >= act::drive_symbol && done.what <= act::drive_active) {
        drive(done);
    } else if (done.what >= act::add_profile && done.what <= act::delete_all) {
        collection_event(done);
    } else {
        host_event(done);
    }
}

void bar_model::host_event(const action& done) {
    const int profile = place_of_profile(done.who);
    // A row hears its profile for as long as it lives, also when the root has forgotten it.
    row_model* const row = row_of(profile);
    row_model* const listening = row != nullptr && row->listens ? row : nullptr;
    switch (done.what) {
        case act::quote:
            if (listening != nullptr) {
                const auto [bid, ask] = pick(quotes(), done.which);
                if (!listening->on_quote(bid, ask)) {
                    throw raised{"0x00000001"};
                }
            }
            return;
        case act::state:
            m_host.profiles.at(static_cast<std::size_t>(profile)).state = pick(states(), done.which);
            if (listening != nullptr) {
                listening->on_state(pick(states(), done.which));
            }
            return;
        case act::midnight:
            return bar_action(done);
        case act::host_menu:
            return host_menu(done.which);
        case act::interrupt:
            m_interrupt = interruption(done);
            return;
        case act::restart:
            return restart(done);
        default:
            return silent_event(done);
    }
}

// Nobody is told of these.
void bar_model::silent_event(const action& done) {
    profile_model& its = m_host.profiles.at(static_cast<std::size_t>(place_of_profile(done.who)));
    switch (done.what) {
        case act::silent_state:
            its.state = pick(states(), done.which);
            return;
        case act::silent_settings:
            its.have_settings = done.yes;
            return;
        case act::change_accounts:
            its.accounts = pick(account_lists(), done.which);
            return;
        case act::change_times:
            its.times = pick(time_lists(), done.which);
            return;
        case act::break_call:
            m_host.faults.insert(static_cast<broken>(done.which % broken_count));
            return;
        case act::mend_calls:
            m_host.faults.clear();
            return;
        case act::pass_time:
            m_host.now += 0.25 * (done.which % 9);
            return;
        default:
            return;
    }
}

// The host's collection changes whether the root hears of it or not.
void bar_model::collection_event(const action& done) {
    const int profile = place_of_profile(done.who);
    const bool heard = m_subscribed && !m_reloading;
    switch (done.what) {
        case act::add_profile:
            if (!m_host.is_listed(profile)) {
                m_host.listed.push_back(profile);
            }
            if (heard && done.yes) {
                m_out.assertions.emplace_back("_prof");
            }
            return heard ? add(profile, false) : void();
        case act::remove_profile:
            std::erase_if(m_host.listed, [&](int each) { return each == profile; });
            return heard ? remove(profile) : void();
        case act::rename_profile:
            m_host.profiles.at(static_cast<std::size_t>(profile)).name = pick(later_names(), done.which);
            if (row_model* const row = heard ? row_of(profile) : nullptr) {
                row->refresh();
            }
            return;
        case act::reload_start:
            m_reloading = m_reloading || m_subscribed;
            return;
        case act::reload_complete:
            return m_subscribed ? reload() : void();
        case act::delete_all:
            m_host.listed.clear();
            return heard ? remove_all() : void();
        default:
            return;
    }
}

void bar_model::add(int profile, bool silent) {
    if (m_tags.count(profile) != 0) {
        return;
    }
    m_rows.push_back(std::make_unique<row_model>(m_host, m_out, profile, m_next_id++));
    row_model& row = *m_rows.back();
    row.bar = {[this](const row_model& from, unsigned mask) { update(from, mask); },
               [this](const row_model& from, bit field) { focus(from, field); }, [this] { asked(); },
               [this] { m_notes.emplace_back("order not sent"); }};
    if (m_host.fails(broken::advise)) {
        m_out.assertions.emplace_back("S_OK == hr");
        row.listens = false;
    }
    added(row, silent);
    m_tags[profile] = row.id;
    row.refresh();
}

void bar_model::remove(int profile) {
    const row_model* const row = row_of(profile);
    if (row == nullptr) {
        return;
    }
    removed(*row);
    const auto place =
        std::find_if(m_rows.begin(), m_rows.end(), [&](const auto& each) { return each.get() == row; });
    m_gone.push_back(std::move(*place));
    m_rows.erase(place);
    m_tags.erase(profile);
}

void bar_model::remove_all() {
    m_tags.clear();
    removed_all();
    std::move(m_rows.begin(), m_rows.end(), std::back_inserter(m_gone));
    m_rows.clear();
}

void bar_model::reload() {
    remove_all();
    if (m_host.fails(broken::items)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004003"};
    }
    for (const int profile : m_host.listed) {
        add(profile, false);
    }
    m_reloading = false;
}

void bar_model::drive(const action& done) {
    if (done.what != act::drive_symbol_id) {
        fill();
    }
    row_model* const row = row_of(place_of_profile(done.who));
    if (row == nullptr || (done.what == act::drive_symbol_id && !reaches_tabs())) {
        return;
    }
    switch (done.what) {
        case act::drive_symbol:
            row->put_symbol(pick(instruments(), done.which));
            return;
        case act::drive_symbol_id:
            if (done.which % 2 == 0) {
                // One below the known ids, and one far above.
                row->lookup_by_id(done.which % 3 == 0 ? 0 : 10 + done.which % 14);
            } else {
                row->lookup_by_name(pick(symbol_texts(), done.which));
            }
            return;
        case act::drive_account:
            row->put_account(pick(driven_accounts(), done.which));
            return;
        default:
            drive_to(row->id);
            return;
    }
}

}  // namespace monkey
