#include <limits>
#include <stdexcept>

#include "tests/profile/profile_fixture.h"

namespace {

using OV_OrderDeck::CProfileWrap;
using testing::ElementsAre;
using testing::IsEmpty;

// A tab that writes down what reaches it and what the wrapper knows then.
class recording_sink : public OV_OrderDeck::IOD_ProfileDataChange {
public:
    explicit recording_sink(test::fake_host host) : m_host(std::move(host)) {}

    LONG result = 0;
    CProfileWrap* wrap = nullptr;

    LONG OnQuote(double bid, double ask) override {
        m_host.note("OnQuote " + test::number_text(bid) + " " + test::number_text(ask));
        return result;
    }
    LONG OnConnectionState(ETM_ConnectionChanged state) override {
        const LONG known = wrap != nullptr ? static_cast<LONG>(wrap->get_ConnectionState(true)) : 0;
        m_host.note("OnConnectionState " + std::to_string(static_cast<LONG>(state)) + " known " +
                    std::to_string(known));
        return result;
    }
    LONG OnTradingAllowed(bool allowed) override {
        m_host.note(allowed ? "OnTradingAllowed true" : "OnTradingAllowed false");
        return result;
    }
    LONG OnStatusText(BSTR text) override {
        m_host.note("OnStatusText " + test::quoted(text));
        return result;
    }

private:
    test::fake_host m_host;
};

class ProfileEvents : public test::profile_test {
protected:
    recording_sink sink{host};
};

TEST_F(ProfileEvents, AdvisingFindsTheEventsPointAndSubscribes) {
    EXPECT_TRUE(wrap->Advise(&sink));
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Alpha\").FindConnectionPoint()",
                                          "ProfileEvents(\"Alpha\").Advise(1)"));
    EXPECT_EQ(profile->events->size(), 1U);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileEvents, EveryEventReachesTheSinkWithItsArguments) {
    wrap->Advise(&sink);
    sink.wrap = wrap.get();
    host.clear();
    profile->fire_quote(1.25, 1.5);
    profile->fire_state(eTM_CC_Connected);
    profile->fire_trading_allowed(VARIANT_TRUE);
    profile->fire_status_text(L"ready");
    EXPECT_THAT(host.calls(), ElementsAre("OnQuote 1.25 1.5", "OnConnectionState 768 known 768",
                                          "OnTradingAllowed true", "OnStatusText \"ready\""));
}

TEST_F(ProfileEvents, EachEventGivesTheResultOfTheSink) {
    wrap->Advise(&sink);
    sink.result = 5;
    EXPECT_EQ(wrap->OnQuote(1, 2), 5);
    EXPECT_EQ(wrap->OnConnectionState(eTM_CC_Connected), 5);
    EXPECT_EQ(wrap->OnTradingAllowed(VARIANT_TRUE), 5);
    EXPECT_EQ(wrap->OnStatusText(nullptr), 5);
}

TEST_F(ProfileEvents, WithNoSinkEachEventGivesZero) {
    EXPECT_EQ(wrap->OnQuote(1, 2), 0);
    EXPECT_EQ(wrap->OnConnectionState(eTM_CC_Connected), 0);
    EXPECT_EQ(wrap->OnTradingAllowed(VARIANT_TRUE), 0);
    EXPECT_EQ(wrap->OnStatusText(nullptr), 0);
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(ProfileEvents, AStateWithNoSinkIsKnownAndNotAskedFor) {
    wrap->OnConnectionState(eTM_CC_Connecting);
    EXPECT_EQ(wrap->get_ConnectionState(true), eTM_CC_Connecting);
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(ProfileEvents, AStateWithNoNameReachesTheSinkAndIsKnown) {
    wrap->Advise(&sink);
    sink.wrap = wrap.get();
    for (const LONG state : {LONG{0x400}, LONG{-1}, std::numeric_limits<LONG>::max()}) {
        host.clear();
        profile->fire_state(ETM_ConnectionChanged{state});
        const std::string number = std::to_string(state);
        EXPECT_THAT(host.calls(), ElementsAre("OnConnectionState " + number + " known " + number));
    }
}

TEST_F(ProfileEvents, AStateWithNoNameIsTakenWhenTheHostIsAsked) {
    profile->state = ETM_ConnectionChanged{0x400};
    EXPECT_EQ(static_cast<LONG>(wrap->get_ConnectionState(false)), 0x400);
    wrap->Connect();
    EXPECT_EQ(host.count("Connect()"), 1);
    host.clear();
    EXPECT_TRUE(wrap->Disconnect(nullptr));
    EXPECT_EQ(host.count("Disconnect"), 0);
}

TEST_F(ProfileEvents, TradingIsAllowedForExactlyVariantTrue) {
    wrap->Advise(&sink);
    host.clear();
    for (const int value : {-1, 1, 0, -2, 0x7FFF}) {
        wrap->OnTradingAllowed(static_cast<VARIANT_BOOL>(value));
    }
    EXPECT_THAT(host.calls(),
                ElementsAre("OnTradingAllowed true", "OnTradingAllowed false", "OnTradingAllowed false",
                            "OnTradingAllowed false", "OnTradingAllowed false"));
}

TEST_F(ProfileEvents, AThrowingSinkEndsAtTheWrapper) {
    class throwing_sink : public recording_sink {
    public:
        using recording_sink::recording_sink;
        LONG OnQuote(double, double) override { throw std::out_of_range("quote"); }
    } thrower{host};
    wrap->Advise(&thrower);
    EXPECT_EQ(wrap->OnQuote(1, 2), E_INVALIDARG);
    EXPECT_EQ(reports.traces().size(), 1U);
    wrap->Unadvise();
}

TEST_F(ProfileEvents, AProfileWithoutConnectionPointsIsReportedAndGivesFalse) {
    for (const HRESULT hr : {E_NOINTERFACE, E_FAIL}) {
        reports.clear();
        profile->container_result = hr;
        EXPECT_FALSE(wrap->Advise(&sink));
        EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr"));
    }
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(ProfileEvents, AFailedSearchOrSubscriptionIsReportedAndLeavesNoSink) {
    for (const char* operation : {"Profile.FindConnectionPoint", "ProfileEvents.Advise"}) {
        reports.clear();
        host.forget_faults();
        host.fail(operation, E_FAIL);
        EXPECT_FALSE(wrap->Advise(&sink)) << operation;
        EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr")) << operation;
        host.clear();
        wrap->OnQuote(1, 2);
        EXPECT_THAT(host.calls(), IsEmpty()) << operation;
    }
}

TEST_F(ProfileEvents, ASuccessOtherThanSOkIsReportedAndItsSubscriptionEndsWithTheWrapper) {
    host.fail_and_write("ProfileEvents.Advise", S_FALSE, 1);
    EXPECT_FALSE(wrap->Advise(&sink));
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr"));
    host.clear();
    wrap->Unadvise();
    EXPECT_THAT(host.calls(), IsEmpty());
    wrap.reset();
    EXPECT_THAT(host.calls(), ElementsAre("ProfileEvents(\"Alpha\").Unadvise(1)"));
}

TEST_F(ProfileEvents, AnEventsPointThatIsNotThereIsReported) {
    host.leave_unwritten("Profile.FindConnectionPoint");
    EXPECT_FALSE(wrap->Advise(&sink));
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"S_OK == hr"));
}

TEST_F(ProfileEvents, AdvisingAgainFirstEndsTheEarlierSubscription) {
    wrap->Advise(&sink);
    recording_sink second{host};
    host.clear();
    EXPECT_TRUE(wrap->Advise(&second));
    EXPECT_THAT(host.calls(), ElementsAre("ProfileEvents(\"Alpha\").Unadvise(1)",
                                          "Profile(\"Alpha\").FindConnectionPoint()",
                                          "ProfileEvents(\"Alpha\").Advise(2)"));
    EXPECT_EQ(profile->events->size(), 1U);
    second.result = 9;
    EXPECT_EQ(profile->fire_quote(1, 2), 9);
}

TEST_F(ProfileEvents, AFailedSecondAdviseKeepsTheFirstSink) {
    wrap->Advise(&sink);
    recording_sink second{host};
    second.result = 9;
    host.fail("ProfileEvents.Advise", E_FAIL);
    EXPECT_FALSE(wrap->Advise(&second));
    EXPECT_EQ(wrap->OnQuote(1, 2), 0);
    EXPECT_EQ(host.count("OnQuote"), 1);
}

TEST_F(ProfileEvents, UnadvisingEndsTheSubscriptionOnce) {
    wrap->Advise(&sink);
    host.clear();
    wrap->Unadvise();
    wrap->Unadvise();
    EXPECT_THAT(host.calls(), ElementsAre("ProfileEvents(\"Alpha\").Unadvise(1)"));
    EXPECT_EQ(profile->events->size(), 0U);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(ProfileEvents, TheSinkIsGoneBeforeTheHostIsAskedToUnadvise) {
    wrap->Advise(&sink);
    host.on_call("ProfileEvents.Unadvise", [this] { wrap->OnQuote(1, 2); });
    wrap->Unadvise();
    EXPECT_EQ(host.count("OnQuote"), 0);
}

TEST_F(ProfileEvents, AnyOtherResultOfUnadviseIsReportedWithIt) {
    wrap->Advise(&sink);
    host.fail("ProfileEvents.Unadvise", E_FAIL, 1);
    wrap->Unadvise();
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_FAIL));
}

TEST_F(ProfileEvents, ADyingWrapperReleasesTheProfileThenEndsItsSubscription) {
    profile->events->count_sinks = false;
    wrap->Advise(&sink);
    profile->AddRef();
    const ULONG before = profile->Release();
    ULONG during = 0;
    host.on_call("ProfileEvents.Unadvise", [&] {
        profile->AddRef();
        during = profile->Release();
    });
    wrap.reset();
    EXPECT_EQ(profile->events->size(), 0U);
    EXPECT_EQ(during, before - 1);
}

TEST_F(ProfileEvents, AHostThatTouchesADyingWrapperDoesNotEndItTwice) {
    profile->events->count_sinks = false;
    wrap->Advise(&sink);
    IUnknown* const raw = wrap->GetUnknown();
    int touches = 0;
    host.on_call("ProfileEvents.Unadvise", [&] {
        raw->AddRef();
        raw->Release();
        ++touches;
    });
    wrap.reset();
    EXPECT_EQ(touches, 1);
}

}  // namespace
