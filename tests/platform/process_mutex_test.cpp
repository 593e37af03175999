#include "platform/process_mutex.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include "tests/support/child_process.h"
#include "tests/support/own_names.h"

namespace {

using platform::port;
using platform::process_mutex;
using platform::process_mutex_lock;
using platform::process_mutexes;
using test_support::child_process;

std::unique_ptr<process_mutex> open(const CString& name) {
    return port<process_mutexes>::system().open(name);
}

CString wide(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

// Writes what its wait gave, then holds the mutex until its input ends, and ends without releasing it when
// told so.
CHILD_MAIN(hold_mutex) {
    const auto mutex = open(wide(arguments[0]));
    const DWORD result = mutex->wait(0);
    std::cout << (result == WAIT_OBJECT_0 ? "acquired" : "refused") << std::endl;
    while (std::cin.get() != std::char_traits<char>::eof()) {
    }
    if (arguments[1] == "abandon") {
        std::_Exit(3);
    }
    mutex->release();
    return 0;
}

class ProcessMutex : public testing::Test {
protected:
    ProcessMutex() : m_name("Global\\" + test_support::own_name()) { m_mutex = open(wide(m_name)); }

    std::string m_name;
    std::unique_ptr<process_mutex> m_mutex;
};

TEST_F(ProcessMutex, IsOwnedByOneThreadAtATime) {
    ASSERT_TRUE(m_mutex);
    ASSERT_EQ(m_mutex->wait(0), WAIT_OBJECT_0);
    DWORD of_other = WAIT_FAILED;
    std::thread([&] { of_other = open(wide(m_name))->wait(1); }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_TIMEOUT});
    std::thread([&] { of_other = m_mutex->wait(0); }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_TIMEOUT});
    m_mutex->release();
    std::thread([&] {
        of_other = m_mutex->wait(INFINITE);
        m_mutex->release();
    }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_OBJECT_0});
}

TEST_F(ProcessMutex, ItsOwnerMayOwnItMoreThanOnce) {
    ASSERT_EQ(m_mutex->wait(0), WAIT_OBJECT_0);
    ASSERT_EQ(m_mutex->wait(0), WAIT_OBJECT_0);
    m_mutex->release();
    DWORD of_other = WAIT_FAILED;
    std::thread([&] { of_other = m_mutex->wait(0); }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_TIMEOUT});
    m_mutex->release();
}

TEST_F(ProcessMutex, AThreadThatDoesNotOwnItReleasesNothing) {
    ASSERT_EQ(m_mutex->wait(0), WAIT_OBJECT_0);
    DWORD of_other = WAIT_FAILED;
    std::thread([&] {
        m_mutex->release();
        of_other = m_mutex->wait(0);
    }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_TIMEOUT});
    m_mutex->release();
}

TEST_F(ProcessMutex, AnotherNameIsAnotherMutex) {
    ASSERT_EQ(m_mutex->wait(0), WAIT_OBJECT_0);
    DWORD of_other = WAIT_FAILED;
    std::thread([&] {
        const auto other = open(wide(m_name) + L" b");
        of_other = other->wait(0);
        other->release();
    }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_OBJECT_0});
    m_mutex->release();
}

TEST_F(ProcessMutex, AnotherProcessIsKeptOutUntilTheRelease) {
    ASSERT_EQ(m_mutex->wait(0), WAIT_OBJECT_0);
    child_process refused("hold_mutex", {m_name, "release"});
    EXPECT_EQ(refused.read_line(), "refused");
    m_mutex->release();
    child_process owner("hold_mutex", {m_name, "release"});
    EXPECT_EQ(owner.read_line(), "acquired");
    EXPECT_EQ(m_mutex->wait(1), DWORD{WAIT_TIMEOUT});
    owner.end_input();
    EXPECT_EQ(m_mutex->wait(INFINITE), WAIT_OBJECT_0);
    m_mutex->release();
}

TEST_F(ProcessMutex, AProcessThatEndsAsTheOwnerAbandonsIt) {
    {
        child_process owner("hold_mutex", {m_name, "abandon"});
        EXPECT_EQ(owner.read_line(), "acquired");
        owner.end_input();
        EXPECT_EQ(m_mutex->wait(INFINITE), DWORD{WAIT_ABANDONED});
        EXPECT_EQ(owner.wait(), 3);
    }
    DWORD of_other = WAIT_FAILED;
    std::thread([&] { of_other = m_mutex->wait(0); }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_TIMEOUT}) << "an abandoned mutex that was waited for is owned";
    m_mutex->release();
    EXPECT_EQ(m_mutex->wait(0), WAIT_OBJECT_0) << "it is told once";
    m_mutex->release();
}

TEST_F(ProcessMutex, AThreadThatEndsAsTheOwnerAbandonsIt) {
    std::thread([&] { EXPECT_EQ(m_mutex->wait(0), WAIT_OBJECT_0); }).join();
    EXPECT_EQ(m_mutex->wait(INFINITE), DWORD{WAIT_ABANDONED});
    m_mutex->release();
}

TEST_F(ProcessMutex, ALockReleasesAtTheEndOfTheScopeWhatItOwns) {
    DWORD of_other = WAIT_FAILED;
    {
        const process_mutex_lock lock(*m_mutex, 0);
        EXPECT_TRUE(lock.owns());
        EXPECT_EQ(lock.result(), WAIT_OBJECT_0);
        std::thread([&] {
            const process_mutex_lock refused(*m_mutex, 0);
            EXPECT_FALSE(refused.owns());
            of_other = refused.result();
        }).join();
        EXPECT_EQ(of_other, DWORD{WAIT_TIMEOUT});
        std::thread([&] { of_other = m_mutex->wait(0); }).join();
        EXPECT_EQ(of_other, DWORD{WAIT_TIMEOUT}) << "the refused lock released nothing";
    }
    std::thread([&] {
        of_other = m_mutex->wait(0);
        m_mutex->release();
    }).join();
    EXPECT_EQ(of_other, DWORD{WAIT_OBJECT_0});
}

TEST_F(ProcessMutex, ALockOwnsAnAbandonedMutex) {
    std::thread([&] { EXPECT_EQ(m_mutex->wait(0), WAIT_OBJECT_0); }).join();
    const process_mutex_lock lock(*m_mutex, 0);
    EXPECT_EQ(lock.result(), DWORD{WAIT_ABANDONED});
    EXPECT_TRUE(lock.owns());
}

TEST(ProcessMutexes, ANameOf128CharactersIsTheLongest) {
    CString name = wide(test_support::own_name());
    name.resize(128, L'n');
    EXPECT_NE(open(name), nullptr);
    EXPECT_EQ(open(name + L'n'), nullptr);
}

}  // namespace
