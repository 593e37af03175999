// Many threads against one active object that is stopped and started meanwhile: each task is run once,
// refused or dropped. ORDERDECK_STRESS_TASKS is the number of tasks of each of the eight threads.
#include <atomic>
#include <cstdlib>
#include <random>
#include <thread>

#include "tests/localrpc/local_rpc_fixture.h"

namespace {

using namespace LocalRPC;

constexpr int Producers = 8;

int tasks_of_each() {
    const char* const told = std::getenv("ORDERDECK_STRESS_TASKS");
    return told != nullptr ? std::atoi(told) : 250;
}

struct counts {
    std::atomic<int> ran{0};
    std::atomic<int> ran_again{0};
    std::atomic<int> unrun{0};
    std::atomic<int> refused{0};
};

// Lives as long as its task.
struct fate {
    explicit fate(counts& all) : m_all(all) {}
    ~fate() { m_all.unrun += m_ran ? 0 : 1; }
    fate(const fate&) = delete;
    fate& operator=(const fate&) = delete;

    void run() { ++(std::exchange(m_ran, true) ? m_all.ran_again : m_all.ran); }

private:
    counts& m_all;
    bool m_ran = false;
};

task_ptr task_of(counts& all) {
    return CreateAsyncTask([mine = std::make_shared<fate>(all)] { mine->run(); });
}

// Gives tasks from eight threads; done opens when the last of them has given its last.
class producers {
public:
    producers(details::IAOTransport& transport, counts& all) : m_left(Producers) {
        for (int i = 0; i < Producers; ++i) {
            m_threads.emplace_back([this, &transport, &all] { give(transport, all); });
        }
    }
    ~producers() {
        for (std::thread& each : m_threads) {
            each.join();
        }
    }
    producers(const producers&) = delete;
    producers& operator=(const producers&) = delete;

    gate done;

private:
    void give(details::IAOTransport& transport, counts& all) {
        for (int n = 0; n < tasks_of_each(); ++n) {
            all.refused += transport.Execute(task_of(all)) ? 0 : 1;
        }
        if (--m_left == 0) {
            done.open();
        }
    }

    std::atomic<int> m_left;
    std::vector<std::thread> m_threads;
};

class Stress : public testing::TestWithParam<bool> {
protected:
    ~Stress() override { handle_messages(); }

    // What has to hold once the transport is gone.
    void expect_every_task_accounted_for(bool discards) {
        EXPECT_EQ(m_all.ran + m_all.unrun, Producers * tasks_of_each() + 1);
        EXPECT_EQ(m_all.ran_again, 0);
        EXPECT_GT(m_all.ran, 0);
        if (!discards) {
            EXPECT_LE(m_all.unrun, m_all.refused);
        }
        EXPECT_EQ(m_recorder.records().size(), 0u);
    }

    counts m_all;
    diagnostics_recorder m_recorder;
    std::minstd_rand m_random{20240229};
};

INSTANTIATE_TEST_SUITE_P(Discarding, Stress, testing::Bool());

TEST_P(Stress, AThreadTransportLosesNoTaskWhileItIsStoppedAndStarted) {
    const bool discards = GetParam();
    {
        const boost::intrusive_ptr<details::CThread> thread(new details::CThread(0));
        {
            producers giving(*thread, m_all);
            while (!giving.done.is_open()) {
                EXPECT_TRUE(thread->StopEx(discards, INFINITE, m_random() % 2 == 0));
                if (discards) {
                    EXPECT_TRUE(thread->Start());
                } else {
                    // Start would drop the queue of a worker that a producer has started meanwhile.
                    thread->EnableTasks();
                    EXPECT_TRUE(thread->Execute(nullptr));
                }
            }
        }
        EXPECT_TRUE(thread->Execute(task_of(m_all)));
        thread->Stop(false, true);
    }
    expect_every_task_accounted_for(discards);
}

TEST_P(Stress, AWindowTransportLosesNoTaskWhileItIsStoppedAndStarted) {
    const bool discards = GetParam();
    {
        const boost::intrusive_ptr<details::CWndMsgPump> pump(new details::CWndMsgPump);
        EXPECT_TRUE(pump->Start());
        {
            producers giving(*pump, m_all);
            while (!giving.done.is_open()) {
                handle_messages();
                if (m_random() % 4 == 0) {
                    EXPECT_TRUE(pump->StopEx(discards, INFINITE, true));
                    EXPECT_TRUE(pump->Start());
                }
            }
        }
        EXPECT_TRUE(pump->Execute(task_of(m_all)));
        handle_messages();
        pump->Stop(false, true);
    }
    expect_every_task_accounted_for(discards);
}

TEST(StressOfCalls, EveryCallerReadsWhatItsOwnCallLeft) {
    CActiveObject_thread object(0);
    std::vector<std::thread> callers;
    std::atomic<int> wrong{0};
    for (int caller = 0; caller < Producers; ++caller) {
        callers.emplace_back([&, caller] {
            for (int n = 0; n < tasks_of_each(); ++n) {
                int out = 0;
                SyncCall(object, [&out, sum = caller + n] { out = sum; });
                wrong += out == caller + n ? 0 : 1;
            }
        });
    }
    for (std::thread& each : callers) {
        each.join();
    }
    EXPECT_EQ(wrong, 0);
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
