#include "platform/connection_point.h"

#include <gmock/gmock.h>

#include "tests/support/fake_center.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct silent_sink : platform::com_root<ITC_ItemsChanged> {
    STDMETHODIMP OnItemChanged(ETM_ChangeTypeOfEvent, SAFEARRAY*) override { return S_OK; }
};

class ConnectionPoint : public testing::Test {
protected:
    HRESULT advise() {
        return platform::advise(source->GetUnknown(), sink.get(), __uuidof(ITC_ItemsChanged), point, cookie);
    }

    test::fake_host host;
    com_ptr<test::FakeProfiles> source = platform::make_com<test::FakeProfiles>(host);
    com_ptr<silent_sink> sink = platform::make_com<silent_sink>();
    com_ptr<IConnectionPoint> point;
    DWORD cookie = platform::not_advised;
};

TEST_F(ConnectionPoint, AdvisingFindsThePointAndKeepsItWithTheCookie) {
    EXPECT_EQ(advise(), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre("Profiles.FindConnectionPoint()", "ProfilesEvents.Advise(1)"));
    EXPECT_EQ(point.get(), source->events.get());
    EXPECT_EQ(cookie, 1U);
}

TEST_F(ConnectionPoint, AdvisingAgainEndsTheEarlierSubscriptionFirst) {
    ASSERT_EQ(advise(), S_OK);
    host.clear();
    // What the ending gives counts for nothing.
    host.fail("ProfilesEvents.Unadvise", E_FAIL);
    EXPECT_EQ(advise(), S_OK);
    EXPECT_THAT(host.calls(), ElementsAre("ProfilesEvents.Unadvise(1)", "Profiles.FindConnectionPoint()",
                                          "ProfilesEvents.Advise(2)"));
    EXPECT_EQ(cookie, 2U);
    EXPECT_EQ(source->events->size(), 1U);
}

TEST_F(ConnectionPoint, AMissingSourceSinkOrContainerIsRefusedAndLeavesTheEarlierSubscription) {
    ASSERT_EQ(advise(), S_OK);
    host.clear();
    const IID& events = __uuidof(ITC_ItemsChanged);
    EXPECT_EQ(platform::advise(nullptr, sink.get(), events, point, cookie), E_INVALIDARG);
    EXPECT_EQ(platform::advise(source->GetUnknown(), nullptr, events, point, cookie), E_INVALIDARG);
    for (const HRESULT hr : {E_NOINTERFACE, E_FAIL}) {
        source->container_result = hr;
        EXPECT_EQ(advise(), E_INVALIDARG);
    }
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_EQ(cookie, 1U);
    EXPECT_TRUE(point);
}

TEST_F(ConnectionPoint, AFailedSearchOrSubscriptionGivesItsResultAndLeavesNone) {
    for (const char* const operation : {"Profiles.FindConnectionPoint", "ProfilesEvents.Advise"}) {
        host.forget_faults();
        host.fail(operation, CONNECT_E_ADVISELIMIT);
        EXPECT_EQ(advise(), CONNECT_E_ADVISELIMIT) << operation;
        EXPECT_FALSE(point) << operation;
        EXPECT_EQ(cookie, platform::not_advised) << operation;
    }
}

TEST_F(ConnectionPoint, ASearchThatSucceedsWithoutAPointIsANullPointer) {
    host.leave_unwritten("Profiles.FindConnectionPoint");
    EXPECT_EQ(advise(), E_POINTER);
    EXPECT_FALSE(point);
}

TEST_F(ConnectionPoint, AnySuccessIsASubscriptionThatIsToBeEnded) {
    host.fail_and_write("ProfilesEvents.Advise", S_FALSE);
    EXPECT_EQ(advise(), S_FALSE);
    EXPECT_EQ(cookie, 1U);
    EXPECT_TRUE(point);
}

TEST_F(ConnectionPoint, EndingGivesTheResultOfThePointAndForgetsItOnce) {
    EXPECT_EQ(platform::unadvise(point, cookie), S_OK);
    EXPECT_THAT(host.calls(), IsEmpty());
    ASSERT_EQ(advise(), S_OK);
    host.fail("ProfilesEvents.Unadvise", E_FAIL);
    EXPECT_EQ(platform::unadvise(point, cookie), E_FAIL);
    EXPECT_FALSE(point);
    EXPECT_EQ(cookie, platform::not_advised);
    EXPECT_EQ(platform::unadvise(point, cookie), S_OK);
    EXPECT_EQ(host.count("Unadvise"), 1);
}

}  // namespace
