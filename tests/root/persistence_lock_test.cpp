// What happens under the lock that all bars share, and what outside of it.

#include "platform/message_pump.h"
#include "platform/process_mutex.h"
#include "tests/root/persistence_fixture.h"
#include "tests/support/failing_registry.h"

namespace {

using platform::port;
using platform::process_mutex;
using platform::process_mutexes;
using test::closing_host;
using test::persistence_test;
using test::remember;
using test::texts;
using testing::ElementsAre;

// Mutexes that note what is done to them among the calls of a host.
class noting_mutexes final : public process_mutexes {
public:
    explicit noting_mutexes(test::fake_host host) : m_host(std::move(host)) {}

    DWORD result = WAIT_OBJECT_0;

    std::unique_ptr<process_mutex> open(const CString&) noexcept override {
        return std::make_unique<noting>(*this);
    }

private:
    class noting final : public process_mutex {
    public:
        explicit noting(noting_mutexes& owner) : m_owner(owner) {}
        ~noting() override { m_owner.m_host.note("mutex closed"); }
        DWORD wait(DWORD) noexcept override {
            m_owner.m_host.note("mutex asked");
            return m_owner.result;
        }
        void release() noexcept override { m_owner.m_host.note("mutex released"); }

    private:
        noting_mutexes& m_owner;
    };

    test::fake_host m_host;
    port<process_mutexes>::replacement m_replacement{*this};
};

class PersistenceLock : public persistence_test {
protected:
    // The calls that concern the mutex, the bar's own state and the centre's start, in order.
    texts frame() {
        texts calls = bar.host.take();
        std::erase_if(calls, [](const std::string& call) {
            return call.rfind("mutex ", 0) != 0 && call.rfind("Bar.Serialize", 0) != 0 &&
                   call.rfind("Center.Prepare", 0) != 0;
        });
        return calls;
    }

    closing_host bar;
    noting_mutexes mutexes{bar.host};
    const std::string serialize = "Bar.Serialize(" + test::quoted(closing_host::path_of_records()) + ")";
};

TEST_F(PersistenceLock, IsHeldWhileTheBarWritesAndLeftAndClosedAfterwards) {
    bar.open({});
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(frame(), ElementsAre("mutex asked", serialize, "mutex released", "mutex closed"));
}

TEST_F(PersistenceLock, IsLeftAndClosedAfterAFailureToo) {
    bar.open({});
    failing_registry registry;
    registry.fail("delete_tree", ERROR_ACCESS_DENIED);
    EXPECT_EQ(bar.root->OnClose(), S_OK);
    EXPECT_THAT(frame(), ElementsAre("mutex asked", serialize, "mutex released", "mutex closed"));
}

TEST_F(PersistenceLock, ThatAnotherHoldsIsClosedAndNotLeft) {
    bar.open({});
    for (const DWORD result : {DWORD{WAIT_TIMEOUT}, DWORD{WAIT_FAILED}}) {
        mutexes.result = result;
        EXPECT_EQ(bar.root->OnClose(), S_OK);
        EXPECT_THAT(frame(), ElementsAre("mutex asked", "mutex closed"));
    }
}

TEST_F(PersistenceLock, IsNotHeldWhileTheCentreIsAsked) {
    remember({L"Alpha", true, 0, L""});
    EXPECT_EQ(bar.create(), S_OK);
    bar.run_loop();
    EXPECT_THAT(frame(), ElementsAre("mutex asked", "mutex released", "mutex closed", "Center.Prepare(-1)"));
}

// The restoring is posted to the loop whatever was read, and keeps its bar.

bool a_message_waits() {
    MSG message;
    return platform::peek_message(message);
}

TEST_F(PersistenceLock, TheRestoringIsPostedAlsoWithNothingRemembered) {
    EXPECT_FALSE(a_message_waits());
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_TRUE(a_message_waits());
}

TEST_F(PersistenceLock, TheRestoringKeepsABarThatTheHostHasLetGo) {
    remember({L"Alpha", true, 0, L""});
    bar.add_profile(L"Alpha");
    EXPECT_EQ(bar.create(), S_OK);
    bar.root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
    bar.run_loop();
    EXPECT_EQ(bar.host.count("Profile(\"Alpha\").Connect()"), 1);
    // By now its subscription alone keeps it.
    const auto sinks = bar.center->profiles->events->sinks<ITC_ItemsChanged>();
    ASSERT_EQ(sinks.size(), 1U);
    EXPECT_EQ(platform::query<ISWUnifyAccess>(sinks[0])->Destroy(), S_OK);
}

}  // namespace
