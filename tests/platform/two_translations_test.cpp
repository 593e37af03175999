#include <gtest/gtest.h>

#include "platform/resources.h"

namespace {

TEST(TwoTranslations, TheFirstOfTheListIsReadAndNoOther) {
    EXPECT_EQ(platform::main_version_string(L"ProductName"), L"第一");
    EXPECT_EQ(platform::main_version_string(L"Comments"), L"");
}

}  // namespace
