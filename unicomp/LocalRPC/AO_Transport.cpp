#include "unicomp/LocalRPC/AO_Transport.h"

#include <limits>

#include "diagnostics/BugSlayerUtil.h"
#include "platform/thread.h"

namespace LocalRPC::details {
namespace {

constexpr LONG WriterMark = std::numeric_limits<LONG>::min();

}  // namespace

void CStateLock::LockWrite() {
    m_section.lock();
    for (LONG free = 0; !m_counter.compare_exchange_strong(free, WriterMark); free = 0) {
        platform::yield_thread();
    }
}

void CStateLock::UnlockWrite() {
    m_counter.exchange(0);
    m_section.unlock();
}

void CStateLock::LockRead() {
    while (++m_counter <= 0) {
        // Waits for the writer.
        const std::lock_guard wait(m_section);
    }
}

void CStateLock::UnlockRead() {
    --m_counter;
}

void CAOTransportBaseBase::execute_task(const task_ptr& task) {
    try {
        task->Execute();
    } catch (...) {
        BugSlayerUtil::assertion(BS_HERE, "Unhandled exception occure during execute task.");
    }
}

void CAOTransportBase::DisableTasks(bool discard) {
    m_tasksDisabled.exchange(1);
    if (discard) {
        DiscardTasks();
    }
}

}  // namespace LocalRPC::details
