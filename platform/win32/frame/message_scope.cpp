#include "platform/win32/frame/message_scope.h"

#include <windows.h>

#include <utility>

namespace frame {

namespace {

// A thread's outermost scope. A slot of the system's and no variable of the language's: those have
// destructors that run when the module may be gone.
class thread_slot {
public:
    thread_slot() : m_index(::TlsAlloc()) {}
    ~thread_slot() { ::TlsFree(m_index); }
    thread_slot(const thread_slot&) = delete;
    thread_slot& operator=(const thread_slot&) = delete;

    message_scope* get() const { return static_cast<message_scope*>(::TlsGetValue(m_index)); }
    void put(message_scope* scope) const { ::TlsSetValue(m_index, scope); }

private:
    DWORD m_index;
};

const thread_slot& outermost() {
    static const thread_slot slot;
    return slot;
}

}  // namespace

message_scope::message_scope() : m_outermost(outermost().get() == nullptr) {
    if (m_outermost) {
        outermost().put(this);
    }
}

// What ends here may send messages and bring more to keep.
message_scope::~message_scope() {
    if (!m_outermost) {
        return;
    }
    while (m_kept != nullptr) {
        lasting* const first = std::exchange(m_kept, m_kept->m_next);
        const boost::shared_ptr<lasting> last_reference = std::move(first->m_self);
    }
    outermost().put(nullptr);
}

void message_scope::Keep(const boost::shared_ptr<lasting>& object) {
    message_scope* const scope = outermost().get();
    if (scope == nullptr || !object || object->m_self) {
        return;
    }
    object->m_next = std::exchange(scope->m_kept, object.get());
    object->m_self = object;
}

}  // namespace frame
