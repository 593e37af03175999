#pragma once

#include <deque>
#include <mutex>

#include "unicomp/LocalRPC/Task.h"

namespace LocalRPC::details::utils {

class ITaskStorage {
public:
    // Takes a reference. Throws std::bad_alloc.
    virtual void Push(const task_ptr& task) = 0;
    // Moves the front task out; leaves task as it is when there is none.
    virtual void Pop(task_ptr& task) = 0;
    // After each task that has run.
    virtual void OnTaskDone() = 0;
    // Drops every task.
    virtual void Clear() = 0;

protected:
    ~ITaskStorage() = default;
};

// First in, first out. Any thread; the lock is held for one operation and never while a task runs or dies.
class CTaskStorage final : public ITaskStorage {
public:
    void Push(const task_ptr& task) override {
        const std::lock_guard guard(m_lock);
        m_tasks.push_back(task);
    }

    void Pop(task_ptr& task) override {
        task_ptr front;
        {
            const std::lock_guard guard(m_lock);
            if (m_tasks.empty()) {
                return;
            }
            front.swap(m_tasks.front());
            m_tasks.pop_front();
        }
        task.swap(front);
    }

    void OnTaskDone() override {}

    // The dropped tasks die here, on the caller's thread. A waiter of one of them is never woken: stopping
    // does not race a synchronous call.
    void Clear() override {
        std::deque<task_ptr> dropped;
        {
            const std::lock_guard guard(m_lock);
            dropped.swap(m_tasks);
        }
    }

private:
    std::mutex m_lock;
    std::deque<task_ptr> m_tasks;
};

}  // namespace LocalRPC::details::utils
