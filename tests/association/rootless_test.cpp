// For a program whose version block names no product.
#include <gtest/gtest.h>

#include "tests/support/diagnostics_recorder.h"
#include "unicomp/ProfileVsDataFeedAssociation/interface/ProfileVsDataFeedAssociation.h"

namespace {

TEST(RootlessAssociation, CannotBeMadeWithoutASettingsRoot) {
    try {
        const Unicomp::CProfileDataFeedAssociation<IUnknown> feeds;
        FAIL() << "nothing was thrown";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_FAIL);
    }
}

TEST(RootlessAssociation, IsNoneForWhomItsFeedsAreNoNeedAndIsReportedOnce) {
    const diagnostics_recorder reports;
    EXPECT_EQ(Unicomp::association_if_rooted<IUnknown>(), nullptr);
    EXPECT_EQ(Unicomp::association_if_rooted<IUnknown>(), nullptr);
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"!root.empty()");
    EXPECT_EQ(reports.assertions()[0].hresult, E_FAIL);
}

}  // namespace
