#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <mutex>

#include "platform/com.h"

namespace BugSlayerUtil {

// The handlers of others that ours goes on to, for one kind of handler. Whoever came after ours may go on
// to it again: then it is the turn of the one that was there before him, so that there is no ring. Any
// thread; takes no memory from the heap; throws nothing.
template <class Handler>
class handler_chain {
    // A thread inside a call, 0 for none, and how many handlers it has not been to.
    struct place {
        DWORD thread = 0;
        std::ptrdiff_t left = 0;
    };

public:
    // Ours took this one's place; null for nobody's. One that is known already stands in the chain once.
    void put(Handler found) noexcept {
        const std::lock_guard guard(m_lock);
        const auto end = m_handlers.begin() + m_count;
        const auto known = std::find(m_handlers.begin(), end, found);
        m_count = found != nullptr ? std::min<std::ptrdiff_t>(known - m_handlers.begin(), room - 1) : 0;
        if (found != nullptr) {
            m_handlers[static_cast<std::size_t>(m_count++)] = found;
        }
    }

    void clear() noexcept { put(nullptr); }

    // The one whose place ours took last.
    Handler latest() const noexcept {
        const std::lock_guard guard(m_lock);
        return behind(m_count);
    }

    // One call of our handler, to the end of those that it goes on to.
    class call {
    public:
        explicit call(handler_chain& chain) noexcept : m_chain(chain) {
            const std::lock_guard guard(chain.m_lock);
            m_place = chain.place_of(GetCurrentThreadId());
            m_again = m_place != nullptr;
            if (!m_again) {
                m_place = chain.place_of(0);
            }
            m_left = m_again ? m_place->left : chain.m_count;
            remember({GetCurrentThreadId(), m_left});
        }
        ~call() {
            const std::lock_guard guard(m_chain.m_lock);
            remember(m_again ? place{GetCurrentThreadId(), m_left} : place{});
        }
        call(const call&) = delete;
        call& operator=(const call&) = delete;

        // Whether somebody that ours went on to has led back here: all is told already.
        bool again() const noexcept { return m_again; }

        // Whom to go on to now; null for nobody.
        Handler next() noexcept {
            const std::lock_guard guard(m_chain.m_lock);
            const std::ptrdiff_t left = std::min(m_left, m_chain.m_count);
            remember({GetCurrentThreadId(), std::max<std::ptrdiff_t>(left - 1, 0)});
            return m_chain.behind(left);
        }

    private:
        void remember(const place& now) noexcept {
            if (m_place != nullptr) {
                *m_place = now;
            }
        }

        handler_chain& m_chain;
        // Null where more threads than anybody expects are in the chain at once.
        place* m_place;
        bool m_again;
        std::ptrdiff_t m_left;
    };

private:
    static constexpr std::ptrdiff_t room = 8;

    place* place_of(DWORD thread) noexcept {
        const auto found = std::find_if(m_places.begin(), m_places.end(),
                                        [thread](const place& each) { return each.thread == thread; });
        return found != m_places.end() ? &*found : nullptr;
    }

    Handler behind(std::ptrdiff_t count) const noexcept {
        return count > 0 ? m_handlers[static_cast<std::size_t>(count - 1)] : nullptr;
    }

    mutable std::mutex m_lock;
    // The oldest first.
    std::array<Handler, room> m_handlers{};
    std::ptrdiff_t m_count = 0;
    std::array<place, 8> m_places{};
};

}  // namespace BugSlayerUtil
