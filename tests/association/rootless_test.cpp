// For a program whose version block names no product.
#include <gtest/gtest.h>

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

}  // namespace
