// This program lies in the library's folder.
#include <gtest/gtest.h>

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/library_search.h"
#include "platform/module.h"

namespace {

TEST(LibrarySearch, LoadsTheLibraryFromTheProgramsFolder) {
    EXPECT_EQ(platform::find_loaded_library(L"BugSlayerUtil3.0_x64.dll"), nullptr);
    EXPECT_NE(BugSlayerUtil::find_debug_library(), nullptr);
    EXPECT_NE(platform::find_loaded_library(L"BugSlayerUtil3.0_x64.dll"), nullptr);
    EXPECT_EQ(BugSlayerUtil::Client::Get().IsClean(), S_OK);
}

}  // namespace
