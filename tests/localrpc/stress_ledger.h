// The account of every task of a stress run, and the threads that give the tasks.
#pragma once

#include <atomic>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "tests/localrpc/local_rpc_fixture.h"

// ORDERDECK_STRESS_TASKS is how many tasks each of the eight threads gives.
constexpr std::size_t Producers = 8;

inline std::size_t tasks_of_each() {
    const char* const told = std::getenv("ORDERDECK_STRESS_TASKS");
    return told != nullptr ? std::strtoul(told, nullptr, 10) : 20000;
}

// What became of each task, by its number. Any thread.
class ledger {
public:
    explicit ledger(std::size_t tasks) : m_marks(new std::atomic<unsigned>[tasks]()), m_tasks(tasks) {}

    // Lives as long as its task.
    class entry {
    public:
        entry(ledger& all, std::size_t number) : m_all(&all), m_number(number) {}
        entry(entry&& other) noexcept
            : m_all(std::exchange(other.m_all, nullptr)), m_number(other.m_number) {}
        entry(const entry&) = delete;
        entry& operator=(const entry&) = delete;
        entry& operator=(entry&&) = delete;
        ~entry() {
            if (m_all != nullptr) {
                m_all->m_marks[m_number] += Ended;
                --m_all->m_alive;
            }
        }
        void run() { m_all->m_marks[m_number] += Ran; }

    private:
        ledger* m_all;
        std::size_t m_number;
    };

    entry begin(std::size_t number) {
        ++m_alive;
        return {*this, number};
    }
    void refuse(std::size_t number) { m_marks[number] += Refused; }
    std::size_t alive() const { return m_alive; }

    struct totals {
        std::size_t ran = 0;
        std::size_t dropped = 0;
        std::size_t refused = 0;
        // Refused, and run all the same.
        std::size_t late = 0;
        // Run twice, or not ended exactly once.
        std::size_t wrong = 0;
    };
    totals sum() const {
        totals all;
        for (std::size_t i = 0; i < m_tasks; ++i) {
            switch (m_marks[i].load()) {
                case Ended + Ran:
                    ++all.ran;
                    break;
                case Ended:
                    ++all.dropped;
                    break;
                case Ended + Refused:
                    ++all.refused;
                    break;
                case Ended + Refused + Ran:
                    ++all.late;
                    break;
                default:
                    ++all.wrong;
            }
        }
        return all;
    }

private:
    enum Marks : unsigned { Ran = 1, Refused = 0x100, Ended = 0x10000 };

    std::unique_ptr<std::atomic<unsigned>[]> m_marks;
    std::size_t m_tasks;
    std::atomic<std::size_t> m_alive{0};
};

// Gives tasks from eight threads, each made from its number.
class producers {
public:
    using maker = std::function<LocalRPC::task_ptr(std::size_t)>;

    producers(LocalRPC::details::IAOTransport& transport, ledger& all, const maker& make) {
        for (std::size_t i = 0; i < Producers; ++i) {
            m_threads.emplace_back(
                [=, this, &transport, &all] { give(transport, all, make, i * tasks_of_each()); });
        }
    }
    ~producers() {
        for (std::thread& each : m_threads) {
            each.join();
        }
    }
    producers(const producers&) = delete;
    producers& operator=(const producers&) = delete;

    bool over() const { return m_given == Producers * tasks_of_each(); }
    // Nothing is given until so many more are allowed.
    void allow(std::size_t tasks) { m_allowed += tasks; }
    bool rest() const { return m_given >= m_allowed || over(); }

private:
    static constexpr std::size_t MostAlive = 100000;

    void give(LocalRPC::details::IAOTransport& transport, ledger& all, const maker& make, std::size_t first) {
        for (std::size_t number = first; number < first + tasks_of_each(); ++number) {
            // The memory that waits is bounded, however long the run.
            while (m_given >= m_allowed || all.alive() > MostAlive) {
                platform::yield_thread();
            }
            if (!transport.Execute(make(number))) {
                all.refuse(number);
            }
            ++m_given;
        }
    }

    std::atomic<std::size_t> m_given{0};
    std::atomic<std::size_t> m_allowed{0};
    std::vector<std::thread> m_threads;
};
