#include "charting/orderdeck/src/root/UILocker.h"

#include "tests/profile/profile_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UILocker : public test::profile_test {
protected:
    com_ptr<test::FakeOnCommand> sink = platform::make_com<test::FakeOnCommand>(host);
};

TEST_F(UILocker, LocksWithAnEmptyVariantAndUnlocksWithTheLowHalfOfTheHandle) {
    {
        const SW::CUILocker lock(sink.get(),
                                 reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0xABCD00000001E240ULL)));
        EXPECT_THAT(host.calls(), ElementsAre("OnCommand.Execute(4, empty)"));
    }
    EXPECT_THAT(host.calls(), ElementsAre("OnCommand.Execute(4, empty)", "OnCommand.Execute(5, 123456)"));
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(UILocker, KeepsItsSinkAlive) {
    test::FakeOnCommand* const raw = sink.get();
    {
        const SW::CUILocker lock(raw, nullptr);
        sink.reset();
    }
    EXPECT_EQ(host.count("Execute(5, 0)"), 1);
}

TEST_F(UILocker, AFailedLockAndAFailedUnlockAreReportedAlike) {
    host.fail("OnCommand.Execute", E_FAIL, 1);
    {
        const SW::CUILocker lock(sink.get(), nullptr);
        EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L"hr == ((HRESULT)0L)"));
        host.fail("OnCommand.Execute", S_FALSE, 1);
    }
    EXPECT_THAT(test::descriptions_of(reports.assertions()),
                ElementsAre(L"hr == ((HRESULT)0L)", L"hr == ((HRESULT)0L)"));
}

TEST_F(UILocker, WithoutASinkItDoesNothing) {
    { const SW::CUILocker lock(nullptr, nullptr); }
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

}  // namespace
