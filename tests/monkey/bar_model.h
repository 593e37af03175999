// The whole bar as a user and a host understand it: the tabs that follow the host's profiles, and the events
// of the host. What the user does on the tab that he sees depends on how he does it; see the derived models.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/monkey/action.h"
#include "tests/monkey/row_model.h"

namespace monkey {

class bar_model {
public:
    bar_model() = default;
    virtual ~bar_model() = default;
    bar_model(const bar_model&) = delete;
    bar_model& operator=(const bar_model&) = delete;

    // The bar in a host that has the first two profiles; nothing of it is expected.
    void start();
    // What the action has to bring about.
    outcome perform(const action& done);
    // What has to be seen now.
    virtual view seen() const = 0;

    const host_model& host() const { return m_host; }
    // The tab on which the user acts, null for none.
    const row_model* current() const { return find(current_id()); }

protected:
    using rows = std::vector<std::unique_ptr<row_model>>;

    virtual void user(row_model& row, const action& done) = 0;
    virtual void show_tab(const action& done) = 0;
    virtual LONG current_id() const = 0;
    // What the root and the rows tell the bar.
    virtual void update(const row_model& row, unsigned mask) = 0;
    virtual void focus(const row_model& row, bit field) = 0;
    virtual void added(const row_model& row, bool silent) = 0;
    // The row is still there.
    virtual void removed(const row_model& row) = 0;
    virtual void removed_all() = 0;
    virtual void drive_to(LONG id) = 0;
    // The root is new, and so is its bar, which shows no tab yet.
    virtual void created() {}
    virtual void torn_down() {}
    // The first profiles are there and nothing is shown yet.
    virtual void filled() {}
    // The bar keeps which tab is the current one, and later takes it up again.
    virtual void remember(memory_model& memory) = 0;
    virtual void take_up(const memory_model& memory) = 0;
    virtual void begin(const action&) {}
    // Something that is done with the bar and not with a tab.
    virtual void bar_action(const action&) {}
    // Whether the tabs can be had without the root.
    virtual bool reaches_tabs() const { return true; }
    // What an event raised that came while a question was open.
    virtual void raised_inside(const raised&) {}

    row_model* find(LONG id) const;
    const rows& all() const { return m_rows; }
    // A row that was removed tells the bar nothing more.
    bool holds(const row_model& row) const {
        return std::any_of(m_rows.begin(), m_rows.end(),
                           [&](const auto& each) { return each.get() == &row; });
    }
    outcome& out() { return m_out; }
    host_model& the_host() { return m_host; }
    view status() const;
    // Shows the commands of a tab's profile and lets the user choose one, or none.
    void profile_menu(row_model& row, int which);
    // The command that opens the host's editor of profiles.
    void edit_profiles();
    void add_error(const std::string& error);

private:
    void dispatch(const action& done);
    void host_event(const action& done);
    void silent_event(const action& done);
    void collection_event(const action& done);
    void drive(const action& done);
    // The root's first need of the trading centre.
    void fill();
    void host_menu(int which);
    void asked();
    void restart(const action& done);
    bool close();
    bool need_disconnect();
    void write(const std::vector<memory_record>& records);
    void destroy();
    void create();
    void restore();
    void restore_row(row_model& row, const memory_record& record);
    void plant(const action& done);
    void add(int profile, bool silent);
    void remove(int profile);
    void remove_all();
    void reload();
    // The row of a profile that the root knows, null for none.
    row_model* row_of(int profile) const;

    host_model m_host;
    outcome m_out;
    // In the order of their ids.
    rows m_rows;
    // The ids of the rows that the root knows, by profile.
    std::map<int, LONG> m_tags;
    // Rows that were removed in the course of an action that they began.
    rows m_gone;
    bool m_filled = false;
    bool m_has_center = false;
    bool m_subscribed = false;
    bool m_reloading = false;
    LONG m_next_id = 1;
    // What the host does when a question is open the next time.
    std::optional<action> m_interrupt;
    // What is told to the log only.
    std::vector<std::string> m_notes;
};

}  // namespace monkey
