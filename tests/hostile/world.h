// A host that plays a trick inside one of the calls that it gets from the bar.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "tests/hostile/stage.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/fake_host.h"
#include "tests/support/recording_desktop.h"

namespace hostile {

enum class trick {
    destroy,
    destroy_and_create,
    create,
    close,
    remove_this,
    remove_all,
    reload,
    disconnect,
    quote,
    new_symbol,
    other_tab,
    press,
    message_loop,
    none
};
inline constexpr int trick_count = static_cast<int>(trick::none);
const char* name_of(trick what);

// Every call that a bar makes to its host, by the names of the record.
const std::vector<std::string>& calls_of_the_bar();

// A desktop whose container and whose user are part of the host.
class host_desktop final : public test::recording_desktop {
public:
    explicit host_desktop(test::fake_host record) : m_record(std::move(record)) {}

    bool is_window(HWND window) override;
    LRESULT send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    int message_box(HWND owner, const CString& text, const CString& caption, UINT flags) override;
    UINT popup_menu(HWND owner, const std::vector<platform::popup_item>& items, POINT at) override;

private:
    test::fake_host m_record;
};

class world {
public:
    world();
    ~world();
    world(const world&) = delete;
    world& operator=(const world&) = delete;

    // Plays the whole scenario: from the first Create to the last Destroy, with the trick in the first call
    // of that name in the step. False when the step made no such call.
    bool play(trick what, const std::string& call, int step);
    static int steps();
    static const char* name_of_step(int step);

    // After it: what is wrong, a line each.
    std::vector<std::string> faults();
    // Every call that was made, and the steps in which each was made first.
    std::set<std::pair<std::string, int>> made;

private:
    struct services;
    using step_action = void (world::*)();
    struct step_entry {
        const char* name;
        step_action action;
    };
    static const std::vector<step_entry>& all_steps();

    void make_profiles();
    void see(const std::string& general, const std::string& particular);
    void run_trick();
    HRESULT create();
    void fire(ETM_ChangeTypeOfEvent kind, const std::vector<com_ptr<test::FakeProfile>>& profiles);
    void run_loop();
    void press();
    void put_symbol(const com_ptr<test::FakeProfile>& profile, const CString& name);
    void command(LONG id);
    void show(const com_ptr<test::FakeProfile>& profile);
    bool is_told(const std::string& text) const;
    void expect_counts();
    bool alive() const { return root->UpdateLayout() == S_OK; }

    void step_create();
    void step_restore();
    void step_ask();
    void step_events();
    void step_driver();
    void step_symbol();
    void step_dialog();
    void step_order();
    void step_commands();
    void step_second_create();
    void step_close();
    void step_destroy();
    // What is left of a bar after a trick still works.
    void afterwards();

    test::com_apartment m_apartment;
    diagnostics_recorder reports;
    test::fake_host record;
    host_desktop desktop{record};
    com_ptr<test::FakeTradingCenter> center;
    com_ptr<test::FakeOnCommand> on_command;
    com_ptr<test::FakeLookup> lookup;
    std::unique_ptr<services> classes;
    com_ptr<test::FakeProfile> alpha;
    com_ptr<test::FakeProfile> beta;
    com_ptr<test::FakeProfile> gamma;
    std::unique_ptr<stage> row;
    com_ptr<OV_OrderDeck::COrderDeckObj> root;

    trick m_trick = trick::none;
    std::string m_call;
    int m_wanted_step = -1;
    int m_step = -1;
    bool m_in_bar = false;
    bool m_played = false;
    int m_presses = 0;
    std::vector<std::string> m_faults;
    std::vector<std::pair<com_ptr<IUnknown>, ULONG>> m_counts;
};

}  // namespace hostile
