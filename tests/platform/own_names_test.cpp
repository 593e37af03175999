// The names under which the tests themselves use the system.
#include "tests/support/own_names.h"

#include <gtest/gtest.h>

#include <iostream>
#include <thread>

#include "platform/process_mutex.h"
#include "tests/support/child_process.h"

namespace {

using platform::port;
using platform::process_mutexes;
using test_support::child_process;
using test_support::own_name;

// Owns the mutex of that name for a moment, as the port or as the system has it; WAIT_TIMEOUT when another
// thread has it.
DWORD own_for_a_moment(process_mutexes& mutexes, const CString& name) {
    DWORD result = WAIT_FAILED;
    std::thread([&] {
        const auto mutex = mutexes.open(name);
        result = mutex->wait(0);
        mutex->release();
    }).join();
    return result;
}

CHILD_MAIN(own_a_mutex) {
    std::cout << own_name() << '\n'
              << own_for_a_moment(port<process_mutexes>::get(),
                                  CString(arguments[0].begin(), arguments[0].end()))
              << '\n'
              << std::flush;
    return 0;
}

TEST(OwnNames, AMutexThatAnotherProgramHasIsNotInTheWay) {
    for (const char* const place : {"Global\\", ""}) {
        const std::string narrow = place + own_name() + " in the way";
        const CString name(narrow.begin(), narrow.end());
        const auto others = port<process_mutexes>::system().open(name);
        ASSERT_EQ(others->wait(0), WAIT_OBJECT_0);
        EXPECT_EQ(own_for_a_moment(port<process_mutexes>::system(), name), DWORD{WAIT_TIMEOUT});
        EXPECT_EQ(own_for_a_moment(port<process_mutexes>::get(), name), WAIT_OBJECT_0);
        others->release();
    }
}

TEST(OwnNames, AChildProcessHasThemToo) {
    const auto mine = port<process_mutexes>::get().open(L"Global\\of the family");
    ASSERT_EQ(mine->wait(0), WAIT_OBJECT_0);
    child_process child("own_a_mutex", {"Global\\of the family"});
    EXPECT_EQ(child.read_line(), own_name());
    EXPECT_EQ(child.read_line(), std::to_string(WAIT_TIMEOUT));
    mine->release();
}

}  // namespace
