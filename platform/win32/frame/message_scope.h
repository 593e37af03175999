// Whoever is called back in the middle of a message may end the objects behind the windows. What such an
// object is made of stays in place until no message of theirs is at work any more.
#pragma once

#include <boost/shared_ptr.hpp>

namespace frame {

// An object that can be kept over the messages that are at work. On one thread.
class lasting {
public:
    lasting(const lasting&) = delete;
    lasting& operator=(const lasting&) = delete;

protected:
    lasting() = default;
    ~lasting() = default;

private:
    friend class message_scope;

    boost::shared_ptr<lasting> m_self;
    lasting* m_next = nullptr;
};

// Stands in each window procedure before everything else: what outlives the messages of this thread goes
// when the outermost ends.
class message_scope {
public:
    message_scope();
    ~message_scope();
    message_scope(const message_scope&) = delete;
    message_scope& operator=(const message_scope&) = delete;

    // Keeps an object until no message of this thread is at work; not at all when there is none.
    static void Keep(const boost::shared_ptr<lasting>& object);

private:
    bool m_outermost;
    lasting* m_kept = nullptr;
};

}  // namespace frame
