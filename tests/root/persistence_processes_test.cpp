// Several processes at the same records: bars that open and close at once, bars that die while they write,
// and bars that never let go.

#include <cstdlib>
#include <iostream>

#include "platform/process.h"
#include "platform/process_mutex.h"
#include "tests/root/persistence_fixture.h"
#include "tests/support/child_process.h"
#include "tests/support/failing_registry.h"

namespace {

using platform::port;
using platform::process_mutex;
using platform::process_mutexes;
using test::closing_host;
using test::panel_state;
using test::persistence_test;
using test::remember;
using test::restored;
using test::stored;
using test::texts;
using test_support::child_process;
using testing::AnyOf;
using testing::ElementsAre;

using PersistenceProcesses = persistence_test;

constexpr int killed = 9;
constexpr wchar_t the_mutex[] = L"Global\\2686F9D2-457E-44e7-B656-9ABCC802D38A";

const std::vector<panel_state> first_state = {{L"Alpha", true, 7, L"TXF"}, {L"Beta", false, 0, L"ABC"}};
const texts first_stored = {"Profiles",
                            "Profiles\\Alpha",
                            "Profiles\\Alpha \"Connected\" 1 \"True\"",
                            "Profiles\\Alpha \"Symbol Id\" 4 7",
                            "Profiles\\Alpha \"Symbol Name\" 1 \"TXF\"",
                            "Profiles\\Beta",
                            "Profiles\\Beta \"Connected\" 1 \"False\"",
                            "Profiles\\Beta \"Symbol Name\" 1 \"ABC\""};
const texts first_restored = {"connect \"Alpha\"", "symbol 7", "symbol \"ABC\""};

const std::vector<panel_state> second_state = {
    {L"Delta", false, 9, L"MXF"}, {L"Epsilon", true, 0, L"XYZ"}, {L"Gamma", true, 0, L""}};
const texts second_stored = {"Profiles",
                             "Profiles\\Delta",
                             "Profiles\\Delta \"Connected\" 1 \"False\"",
                             "Profiles\\Delta \"Symbol Id\" 4 9",
                             "Profiles\\Delta \"Symbol Name\" 1 \"MXF\"",
                             "Profiles\\Epsilon",
                             "Profiles\\Epsilon \"Connected\" 1 \"True\"",
                             "Profiles\\Epsilon \"Symbol Name\" 1 \"XYZ\"",
                             "Profiles\\Gamma",
                             "Profiles\\Gamma \"Connected\" 1 \"True\""};
const texts second_restored = {"symbol 9", "connect \"Epsilon\"", "symbol \"XYZ\"", "connect \"Gamma\""};

const std::vector<panel_state>& state_of(const std::string& name) {
    return name == "first" ? first_state : second_state;
}

void add_all_profiles(closing_host& bar) {
    for (const auto& state : {first_state, second_state}) {
        for (const panel_state& panel : state) {
            bar.add_profile(panel.name);
        }
    }
}

void wait_for_end_of_input() {
    while (std::cin.get() != std::char_traits<char>::eof()) {
    }
}

// Opens and closes a bar with the same panels again and again, from the end of its input on.
CHILD_MAIN(open_and_close) {
    const test::com_apartment apartment;
    std::cout << "ready" << '\n' << std::flush;
    wait_for_end_of_input();
    for (int round = std::stoi(arguments[1]); round > 0; --round) {
        closing_host bar;
        bar.open(state_of(arguments[0]));
        if (bar.root->OnClose() != S_OK || !bar.take_assertions().empty()) {
            return 1;
        }
    }
    return 0;
}

TEST_F(PersistenceProcesses, TwoBarsThatOpenAndCloseAtTheSameTimeLeaveOneOfTheTwoStatesWhole) {
    for (const panel_state& panel : first_state) {
        remember(panel);
    }
    child_process first("open_and_close", {"first", "30"});
    child_process second("open_and_close", {"second", "30"});
    EXPECT_EQ(first.read_line(), "ready");
    EXPECT_EQ(second.read_line(), "ready");
    first.end_input();
    second.end_input();
    // Whoever opens a bar meanwhile sees one of the two states too.
    for (int reading = 0; reading < 20; ++reading) {
        closing_host bar;
        add_all_profiles(bar);
        EXPECT_EQ(bar.create(), S_OK);
        EXPECT_THAT(restored(bar), AnyOf(first_restored, second_restored));
        EXPECT_THAT(bar.take_assertions(), ElementsAre());
    }
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
    EXPECT_THAT(stored(), AnyOf(first_stored, second_stored));
}

// Closes a bar and ends, as a process that is killed does, before the change of the registry that the
// argument counts.
CHILD_MAIN(die_while_closing) {
    const test::com_apartment apartment;
    closing_host bar;
    bar.open(second_state);
    failing_registry registry;
    registry.before_change = [left = std::stoi(arguments[0])]() mutable {
        if (--left == 0) {
            platform::terminate_process(killed);
        }
    };
    return bar.root->OnClose() == S_OK ? 0 : 1;
}

// What stands in the registry, and what the next bar makes of it.
struct remains {
    texts stored;
    texts restored;
};

// What is left by a close that got as far as so many changes: the key of the bar is made, the old list
// deleted, the new one made, and then each profile's key with its values in turn.
remains after_changes(int changes) {
    if (changes < 2) {
        return {first_stored, first_restored};
    }
    remains left;
    const std::vector<texts> lines_of_changes = {
        {},
        {"Profiles"},
        {"Profiles\\Delta"},
        {"Profiles\\Delta \"Connected\" 1 \"False\""},
        {"Profiles\\Delta \"Symbol Id\" 4 9", "symbol 9"},
        {"Profiles\\Delta \"Symbol Name\" 1 \"MXF\""},
        {"Profiles\\Epsilon"},
        {"Profiles\\Epsilon \"Connected\" 1 \"True\"", "connect \"Epsilon\""},
        {"Profiles\\Epsilon \"Symbol Name\" 1 \"XYZ\"", "symbol \"XYZ\""},
        {"Profiles\\Gamma"},
        {"Profiles\\Gamma \"Connected\" 1 \"True\"", "connect \"Gamma\""},
    };
    for (int change = 2; change <= changes; ++change) {
        const texts& lines = lines_of_changes.at(static_cast<std::size_t>(change - 2));
        if (!lines.empty()) {
            left.stored.push_back(lines[0]);
        }
        if (lines.size() > 1) {
            left.restored.push_back(lines[1]);
        }
    }
    return left;
}

constexpr int changes_of_a_close = 12;

class PersistenceDeath : public persistence_test, public testing::WithParamInterface<int> {};

TEST_P(PersistenceDeath, ACloseThatDiesBeforeAnyOfItsChangesLeavesWhatTheNextBarReads) {
    for (const panel_state& panel : first_state) {
        remember(panel);
    }
    const int fatal = GetParam();
    child_process bar_that_dies("die_while_closing", {std::to_string(fatal)});
    EXPECT_EQ(bar_that_dies.wait(), fatal <= changes_of_a_close ? killed : 0);
    const remains left = after_changes(fatal - 1);
    EXPECT_EQ(stored(), left.stored);
    closing_host bar;
    add_all_profiles(bar);
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_EQ(restored(bar), left.restored);
    EXPECT_THAT(bar.take_assertions(), ElementsAre());
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.take_assertions(), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(BeforeChange, PersistenceDeath, testing::Range(1, changes_of_a_close + 2));

// Takes the mutex that all bars share, says so, and ends when its input does, as told.
CHILD_MAIN(hold_the_records) {
    const auto mutex = port<process_mutexes>::get().open(the_mutex);
    mutex->wait(INFINITE);
    std::cout << "held" << '\n' << std::flush;
    wait_for_end_of_input();
    if (arguments[0] == "abandon") {
        std::_Exit(0);
    }
    mutex->release();
    return 0;
}

// The system's mutexes for somebody who can't wait: asks for as long as it is told, and gives up at once.
class impatient_mutexes final : public process_mutexes {
public:
    std::unique_ptr<process_mutex> open(const CString& name) noexcept override {
        return std::make_unique<impatient>(m_system.open(name), waits);
    }

    std::vector<DWORD> waits;

private:
    class impatient final : public process_mutex {
    public:
        impatient(std::unique_ptr<process_mutex> real, std::vector<DWORD>& waits)
            : m_real(std::move(real)), m_waits(waits) {}
        DWORD wait(DWORD milliseconds) noexcept override {
            m_waits.push_back(milliseconds);
            return m_real->wait(0);
        }
        void release() noexcept override { m_real->release(); }

    private:
        std::unique_ptr<process_mutex> m_real;
        std::vector<DWORD>& m_waits;
    };

    process_mutexes& m_system = port<process_mutexes>::get();
};

TEST_F(PersistenceProcesses, ABarThatNeverLetsGoKeepsOthersFromReadingAndWritingForAMinuteAtMost) {
    remember({L"Alpha", true, 0, L""});
    const texts before = stored();
    closing_host bar;
    bar.add_profile(L"Alpha");
    impatient_mutexes mutexes;
    const port<process_mutexes>::replacement replacement(mutexes);
    const texts report = {"dwRes == WAIT_OBJECT_0 || dwRes == WAIT_ABANDONED"};
    child_process holder("hold_the_records", {"release"});
    EXPECT_EQ(holder.read_line(), "held");
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_EQ(bar.take_assertions(), report);
    EXPECT_THAT(restored(bar), ElementsAre());
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_EQ(bar.take_assertions(), report);
    EXPECT_EQ(bar.host.count("Bar.Serialize"), 0);
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(mutexes.waits, (std::vector<DWORD>{60000, 60000}));
    holder.end_input();
    EXPECT_EQ(holder.wait(), 0);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.take_assertions(), ElementsAre());
    EXPECT_THAT(stored(), ElementsAre("Profiles"));
}

TEST_F(PersistenceProcesses, AMutexWhoseOwnerDiedCountsAsOwned) {
    remember({L"Alpha", true, 0, L""});
    closing_host bar;
    bar.add_profile(L"Alpha");
    // Keeps the mutex in being while the owner ends.
    const auto kept = port<process_mutexes>::get().open(the_mutex);
    child_process holder("hold_the_records", {"abandon"});
    EXPECT_EQ(holder.read_line(), "held");
    holder.end_input();
    EXPECT_EQ(holder.wait(), 0);
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_THAT(bar.take_assertions(), ElementsAre());
    EXPECT_THAT(restored(bar), ElementsAre("connect \"Alpha\""));
}

TEST_F(PersistenceProcesses, AFailureInsideLetsTheMutexGo) {
    remember({L"Alpha", true, 0, L""});
    closing_host bar;
    bar.open({{L"Alpha", true, 0, L""}});
    {
        failing_registry registry;
        registry.fail("delete_tree", ERROR_ACCESS_DENIED);
        EXPECT_EQ(bar.root->OnClose(), S_OK);
    }
    EXPECT_EQ(bar.take_assertions().back(), "Serialization failed");
    child_process holder("hold_the_records", {"release"});
    EXPECT_EQ(holder.read_line(), "held");
}

TEST_F(PersistenceProcesses, WithoutAMutexNothingIsReadOrWritten) {
    struct no_mutexes : process_mutexes {
        std::unique_ptr<process_mutex> open(const CString&) noexcept override { return nullptr; }
    } mutexes;
    remember({L"Alpha", true, 0, L""});
    const texts before = stored();
    closing_host bar;
    bar.add_profile(L"Alpha");
    const port<process_mutexes>::replacement replacement(mutexes);
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_THAT(bar.take_assertions(), ElementsAre("hMutax != NULL"));
    EXPECT_THAT(restored(bar), ElementsAre());
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(bar.take_assertions(), ElementsAre("hMutax != NULL"));
    EXPECT_EQ(stored(), before);
}

}  // namespace
