#include "platform/module.h"

#include <gtest/gtest.h>

namespace {

TEST(Module, KnowsTheProgramAndItself) {
    EXPECT_EQ(platform::file_name_of(platform::program_path()).substr(0, 14), L"platform_tests");
    // The tests are linked into the program.
    EXPECT_EQ(platform::this_module_path(), platform::program_path());
}

TEST(Module, SplitsPathsAtEitherSeparator) {
    EXPECT_EQ(platform::file_name_of(L"C:\\a/b.dll"), L"b.dll");
    EXPECT_EQ(platform::file_name_of(L"/a\\b.dll"), L"b.dll");
    EXPECT_EQ(platform::file_name_of(L"b.dll"), L"b.dll");
    EXPECT_EQ(platform::folder_of(L"C:\\a/b.dll"), L"C:\\a/");
    EXPECT_EQ(platform::folder_of(L"b.dll"), L"");
}

TEST(Module, LoadsNothingThatIsNotThere) {
    EXPECT_EQ(platform::find_loaded_library(L"not there.dll"), nullptr);
    EXPECT_EQ(platform::load_library(L"not there.dll"), nullptr);
    EXPECT_EQ(platform::load_library(platform::folder_of(platform::program_path()) + L"not there.dll"),
              nullptr);
    EXPECT_EQ(platform::load_library(""), nullptr);
}

TEST(Module, RefusesAFolderThatIsNoFullPath) {
    for (const wchar_t* name :
         {L"diagnostics_library/BugSlayerUtil3.0_x64.dll", L"./diagnostics_library/BugSlayerUtil3.0_x64.dll",
          L"../tests/diagnostics_library/BugSlayerUtil3.0_x64.dll"}) {
        EXPECT_EQ(platform::load_library(name), nullptr);
    }
}

TEST(Module, FindsNoExportThatIsNotThere) {
    const HMODULE library = platform::load_library(platform::folder_of(platform::program_path()) +
                                                   L"diagnostics_library/BugSlayerUtil3.0_x64.dll");
    ASSERT_NE(library, nullptr);
    EXPECT_NE(platform::find_export(library, "BS_InitObject"), nullptr);
    EXPECT_EQ(platform::find_export(library, "bs_initobject"), nullptr);
}

}  // namespace
