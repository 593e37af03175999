// Eight threads against one active object that is stopped, disabled, enabled and started at random meanwhile:
// each task is run once, refused, or dropped where the kind of stop says so.
#include <iostream>
#include <random>
#include <stdexcept>

#include "tests/localrpc/stress_ledger.h"

namespace {

using namespace LocalRPC;

class Stress : public testing::TestWithParam<bool> {
protected:
    ~Stress() override { handle_messages(); }

    bool discards() const { return GetParam(); }
    bool chance() { return m_random() % 2 == 0; }

    // Something is done to the transport again and again while some more tasks are given, so that the run
    // is the same mix however fast the threads are.
    template <class Meanwhile, class Something>
    void disturb(producers& giving, Meanwhile meanwhile, Something something) {
        while (!giving.over()) {
            giving.allow(1 + m_random() % (Producers * tasks_of_each() / 256 + 1));
            do {
                ++m_turns;
                something();
                meanwhile();
            } while (!giving.rest() && chance());
            while (!giving.rest()) {
                meanwhile();
            }
        }
    }

    // One task in so many throws.
    static bool throws(std::size_t number) { return number % 1024 == 5; }

    task_ptr plain_task(std::size_t number) {
        return CreateAsyncTask([this, number, mine = m_all.begin(number)]() mutable {
            mine.run();
            if (throws(number)) {
                ++m_thrown;
                throw std::runtime_error("lost");
            }
        });
    }

    // What has to hold once the transport is gone.
    void expect_every_task_accounted_for() {
        const ledger::totals sum = m_all.sum();
        std::cout << "  " << sum.ran << " run, " << sum.dropped << " dropped, " << sum.refused << " refused, "
                  << sum.late << " refused and run, " << m_turns << " stops and starts\n";
        EXPECT_EQ(m_all.alive(), 0U);
        EXPECT_EQ(sum.wrong, 0U);
        EXPECT_EQ(sum.ran + sum.dropped + sum.refused + sum.late, Producers * tasks_of_each());
        EXPECT_GT(sum.ran, 0U);
        if (!discards()) {
            EXPECT_EQ(sum.dropped, 0U);
        }
        EXPECT_EQ(descriptions(m_recorder), std::vector<std::wstring>(m_thrown, UnhandledException[0]));
    }

    std::atomic<std::size_t> m_thrown{0};
    std::size_t m_turns = 0;
    ledger m_all{Producers * tasks_of_each()};
    diagnostics_recorder m_recorder;
    std::minstd_rand m_random{20240229};
};

class StressOfThread : public Stress {
protected:
    // One thing that an owner may do to its transport. Start drops the queue of one that runs.
    void do_something() {
        switch (m_random() % 5) {
            case 0:
                EXPECT_TRUE(m_thread->StopEx(discards(), INFINITE, chance()));
                break;
            case 1:
                m_thread->DisableTasks(discards());
                break;
            case 2:
                if (discards()) {
                    EXPECT_TRUE(m_thread->Start());
                }
                break;
            case 3:
                m_thread->Execute(nullptr);
                break;
            default:
                m_thread->EnableTasks();
        }
    }

    boost::intrusive_ptr<details::CThread> m_thread{new details::CThread(0)};
};

INSTANTIATE_TEST_SUITE_P(Discarding, StressOfThread, testing::Bool());

TEST_P(StressOfThread, LosesNoTask) {
    {
        producers giving(*m_thread, m_all, [this](std::size_t number) { return plain_task(number); });
        disturb(
            giving, [] { platform::yield_thread(); }, [this] { do_something(); });
    }
    // The last worker takes what is left.
    m_thread->EnableTasks();
    EXPECT_TRUE(m_thread->Execute(nullptr));
    EXPECT_TRUE(m_thread->StopEx(false, INFINITE, true));
    m_thread.reset();
    expect_every_task_accounted_for();
    EXPECT_EQ(m_all.sum().late, 0U);
}

class StressOfWindow : public Stress {
protected:
    StressOfWindow() { EXPECT_TRUE(m_pump->Start()); }

    // Tasks of every kind: plain ones, those that throw, those with a message loop of their own, those that
    // post another, and those that stop the transport under themselves.
    task_ptr any_task(std::size_t number) {
        switch (number % 4096) {
            case 100:
                return CreateAsyncTask([this, mine = m_all.begin(number)]() mutable {
                    mine.run();
                    handle_messages();
                });
            case 200:
                return CreateAsyncTask([this, mine = m_all.begin(number)]() mutable {
                    mine.run();
                    ++m_posted;
                    m_accepted += m_pump->Execute(CreateAsyncTask([this] { ++m_posted_ran; })) ? 1 : 0;
                });
            case 300:
                return CreateAsyncTask([this, mine = m_all.begin(number)]() mutable {
                    mine.run();
                    m_pump->StopEx(discards(), INFINITE, true);
                });
            default:
                return plain_task(number);
        }
    }

    void do_something() {
        switch (m_random() % 5) {
            case 0:
                m_pump->StopEx(discards(), INFINITE, true);
                break;
            case 1:
                m_pump->DisableTasks(discards());
                break;
            case 2:
                m_pump->EnableTasks();
                break;
            default:
                // Start drops the queue of one that is started.
                if (discards() || !m_pump->IsStarted()) {
                    EXPECT_TRUE(m_pump->Start());
                }
        }
    }

    // Of the tasks that tasks have posted, all on the window's thread.
    std::size_t m_posted = 0;
    std::size_t m_accepted = 0;
    std::size_t m_posted_ran = 0;
    boost::intrusive_ptr<details::CWndMsgPump> m_pump{new details::CWndMsgPump};
};

INSTANTIATE_TEST_SUITE_P(Discarding, StressOfWindow, testing::Bool());

TEST_P(StressOfWindow, LosesNoTask) {
    {
        producers giving(*m_pump, m_all, [this](std::size_t number) { return any_task(number); });
        disturb(
            giving, [] { handle_messages(); }, [this] { do_something(); });
    }
    // A task that stops the pump leaves the rest to the loop that ran it, and a post that lost the race
    // with a stop waits for the next start.
    m_pump->StopEx(false, INFINITE, true);
    EXPECT_TRUE(m_pump->Start());
    while (m_all.alive() > 0) {
        if (!m_pump->IsStarted()) {
            EXPECT_TRUE(m_pump->Start());
        }
        EXPECT_TRUE(m_pump->Execute(nullptr));
        handle_messages();
    }
    m_pump->StopEx(false, INFINITE, true);
    expect_every_task_accounted_for();
    EXPECT_LE(m_posted_ran, m_posted);
    if (!discards()) {
        EXPECT_GE(m_posted_ran, m_accepted);
    }
}

TEST(StressOfCalls, EveryCallerReadsWhatItsOwnCallLeft) {
    CActiveObject_thread object(0);
    std::vector<std::thread> callers;
    std::atomic<std::size_t> wrong{0};
    for (std::size_t caller = 0; caller < Producers; ++caller) {
        callers.emplace_back([&, caller] {
            for (std::size_t n = 0; n < tasks_of_each() / 40; ++n) {
                std::size_t out = 0;
                SyncCall(object, [&out, sum = caller + n + 1] { out = sum; });
                wrong += out == caller + n + 1 ? 0 : 1;
            }
        });
    }
    for (std::thread& each : callers) {
        each.join();
    }
    EXPECT_EQ(wrong, 0U);
}

TEST(StressOfStarts, StartsOfManyThreadsLeaveOneWorker) {
    CActiveObject_thread object(0);
    std::atomic<int> at_once{0};
    std::atomic<int> most{0};
    std::vector<std::thread> starters;
    for (int i = 0; i < 4; ++i) {
        starters.emplace_back([&] {
            for (int n = 0; n < 20; ++n) {
                object.Start();
                AsyncCall(object, [&] {
                    most = std::max<int>(most, ++at_once);
                    platform::yield_thread();
                    --at_once;
                });
            }
        });
    }
    for (std::thread& each : starters) {
        each.join();
    }
    object.StopEx(false, INFINITE, true);
    EXPECT_LE(most, 1);
    EXPECT_EQ(at_once, 0);
}

}  // namespace
