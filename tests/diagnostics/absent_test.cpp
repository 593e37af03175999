// Reporting while there is no library. This program never loads one itself; the children do.
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <new>
#include <stdexcept>

#include "diagnostics/AsserterClass.h"
#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/exception_report.h"
#include "diagnostics/library_search.h"
#include "platform/module.h"
#include "tests/diagnostics/told_registry.h"
#include "tests/support/child_process.h"
#include "tests/support/recording_desktop.h"

namespace {

using BugSlayerUtil::AsserterClass;
using BugSlayerUtil::Client;
using BugSlayerUtil::code_location;

constexpr code_location here{"src/Tab.cpp", 1, "work", "void work()"};
constexpr wchar_t settings[] = L"Software\\Orvane\\BugSlayer";
constexpr wchar_t class_key[] = L"CLSID\\{CF3478AA-DD21-456C-98F2-5222D9B9CD75}\\InprocServer32";

class NoLibrary : public testing::Test {
protected:
    ~NoLibrary() override { EXPECT_EQ(registry.open_keys(), 0); }

    told_registry registry;
    test::recording_desktop desktop;
};

TEST_F(NoLibrary, MakesEveryReportFailAndNothingElse) {
    SetLastError(1234);
    EXPECT_EQ(AsserterClass(here).Report(L"work", E_FAIL), E_FAIL);
    EXPECT_EQ(BugSlayerUtil::TracerClass(here).Message(L"work"), E_FAIL);
    EXPECT_EQ(BugSlayerUtil::report_exception(BugSlayerUtil::unhandled_exception, {}), E_FAIL);
    EXPECT_EQ(Client::Get().IsClean(), E_FAIL);
    EXPECT_EQ(Client::Get().Terminate(), E_FAIL);
    EXPECT_EQ(GetLastError(), 1234u);
    EXPECT_TRUE(desktop.message_boxes().empty());
    EXPECT_EQ(registry.opened_for_writing(), 0);
}

TEST_F(NoLibrary, LetsTheCodeGoOnAfterAnAssertion) {
    SetLastError(5);
    EXPECT_FALSE(BS_ASSERT(1 + 1 == 3));
    EXPECT_FALSE(BS_ASSERT_OK(E_FAIL));
    EXPECT_EQ(GetLastError(), 5u);
    EXPECT_TRUE(desktop.message_boxes().empty());
}

TEST_F(NoLibrary, StillGivesTheResultsOfTheGuard) {
    EXPECT_EQ(BugSlayerUtil::guard(here, [] { BS_REQUIRE(false, E_POINTER); }), E_POINTER);
    EXPECT_EQ(BugSlayerUtil::guard(here, [] { throw std::out_of_range("row"); }), E_INVALIDARG);
    EXPECT_EQ(BugSlayerUtil::guard(here, [] { throw std::runtime_error("row"); }), E_UNEXPECTED);
    EXPECT_EQ(BugSlayerUtil::guard(here, [] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(BugSlayerUtil::guard(here, [] { throw 1; }), E_UNEXPECTED);
}

TEST_F(NoLibrary, MakesTheErrorPathThrowTheText) {
    std::wstring thrown;
    try {
        BugSlayerUtil::throw_error(here, "Singleton");
    } catch (wchar_t* text) {
        thrown = text;
    }
    EXPECT_EQ(thrown, L"Singleton");
}

TEST_F(NoLibrary, IsShownWhenTheUsersSettingCanBeRead) {
    registry.tell(HKEY_CURRENT_USER, settings, REG_DWORD, L"\1");
    BS_ASSERT(false);
    ASSERT_EQ(desktop.message_boxes().size(), 1u);
    const auto box = desktop.message_boxes()[0];
    EXPECT_EQ(box.text, L"BugSlayer Init Failed.");
    EXPECT_EQ(box.caption, L"diagnostics_absent_tests");
    EXPECT_EQ(box.flags, 0x10u);
    EXPECT_EQ(box.owner, nullptr);
}

TEST_F(NoLibrary, IsNotShownWhenTheKeyHasNoDefaultValue) {
    registry.tell(HKEY_CURRENT_USER, settings);
    BS_ASSERT(false);
    EXPECT_TRUE(desktop.message_boxes().empty());
}

TEST_F(NoLibrary, IsLookedForAgainAtTheNextReport) {
    registry.tell(HKEY_CURRENT_USER, settings, REG_SZ, L"");
    BS_ASSERT(false);
    BS_ASSERT(false);
    EXPECT_EQ(desktop.message_boxes().size(), 2u);
}

TEST_F(NoLibrary, IsLookedForOnceByTheOrderToEndTheProcess) {
    registry.tell(HKEY_CURRENT_USER, settings, REG_SZ, L"");
    EXPECT_EQ(Client::Get().Terminate(), E_FAIL);
    EXPECT_EQ(desktop.message_boxes().size(), 1u);
}

TEST_F(NoLibrary, IsShownOnceWhenAReportComesWhileTheBoxIsUp) {
    registry.tell(HKEY_CURRENT_USER, settings, REG_SZ, L"");
    HRESULT inner = S_OK;
    desktop.while_modal([&] { inner = AsserterClass(here).Report(L"inner"); });
    BS_ASSERT(false);
    EXPECT_EQ(inner, E_FAIL);
    EXPECT_EQ(desktop.message_boxes().size(), 1u);
}

TEST_F(NoLibrary, IsTheAnswerToARegisteredTextThatIsNoFullPathToIt) {
    for (const CString& text :
         {CString(), CString(1, L'\0'), CString(L"diagnostics_library/BugSlayerUtil3.0_x64.dll"),
          CString(L"./diagnostics_library/BugSlayerUtil3.0_x64.dll"), CString(L"BugSlayerUtil3.0_x64.dll")}) {
        registry.tell(HKEY_CLASSES_ROOT, class_key, REG_SZ, text);
        EXPECT_EQ(BugSlayerUtil::find_debug_library(), nullptr);
    }
}

CString library_path() {
    return platform::folder_of(platform::program_path()) + L"diagnostics_library/BugSlayerUtil3.0_x64.dll";
}

TEST_F(NoLibrary, IsTheAnswerToARegisteredValueThatIsNoText) {
    registry.tell(HKEY_CLASSES_ROOT, class_key, REG_BINARY, library_path());
    EXPECT_EQ(BugSlayerUtil::find_debug_library(), nullptr);
}

// The library's path, made longer until it has that many characters.
CString library_path_of(std::size_t length) {
    CString path = library_path();
    const std::size_t at = platform::folder_of(path).size();
    while (path.size() + 1 < length) {
        path.insert(at, L"./");
    }
    return path.size() < length ? path.insert(at, L"/") : path;
}

// Says whether the library that is registered under a path of that length is found and connected to.
CHILD_MAIN(looks_for_the_registered_library) {
    told_registry registry;
    registry.tell(HKEY_CLASSES_ROOT, class_key, REG_SZ,
                  library_path_of(std::stoul(arguments.at(0))) + CString(1, L'\0'));
    std::cout << (Client::Get().IsClean() == S_OK ? "found" : "not found") << '\n' << std::flush;
    return 0;
}

std::string found_at_length(std::size_t length) {
    test_support::child_process child("looks_for_the_registered_library", {std::to_string(length)});
    return child.read_line();
}

TEST(RegisteredLibrary, IsLoadedByItsFullPath) {
    EXPECT_EQ(found_at_length(library_path().size()), "found");
}

TEST(RegisteredLibrary, HasAPathOfLessThan260Bytes) {
    EXPECT_EQ(found_at_length(259), "found");
    EXPECT_EQ(found_at_length(260), "not found");
}

CHILD_MAIN(looks_in_the_current_folder) {
    told_registry registry;
    std::filesystem::current_path(std::filesystem::path(library_path()).parent_path());
    const bool there = std::filesystem::exists("BugSlayerUtil3.0_x64.dll");
    const bool found = BugSlayerUtil::find_debug_library() != nullptr;
    std::cout << (there ? "there, " : "not there, ") << (found ? "found" : "not found") << '\n' << std::flush;
    return 0;
}

TEST(LibrarySearch, NeverLooksInTheCurrentFolder) {
    test_support::child_process child("looks_in_the_current_folder");
    EXPECT_EQ(child.read_line(), "there, not found");
}

}  // namespace
