// The library as those who ask it for keys load it.
#include "hotkeys/hot_key_services.h"

#include <HotKeyServices.h>
#include <windows.h>

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/own_names.h"

namespace host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The one that is delivered; another of this name lies beside the test programs.
HMODULE delivered_library() {
    std::array<wchar_t, 1024> program{};
    GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    const auto folder = std::filesystem::path(program.data()).parent_path().parent_path() / "bin";
    return LoadLibraryExW((folder / "HotKeyServices.dll").c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

class HostHotKeyServices : public ::testing::Test {
protected:
    void SetUp() override {
        m_library = delivered_library();
        ASSERT_NE(m_library, nullptr);
        m_path = std::filesystem::current_path() / (test_support::own_name() + " keys") / "keys.txt";
    }
    void TearDown() override {
        std::filesystem::remove_all(m_path.parent_path());
        FreeLibrary(m_library);
    }

    template <class Function>
    Function* get(const char* name) {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_library, name)));
    }
    bool load() {
        const auto complain = [](void* self, const char* text) {
            static_cast<HostHotKeyServices*>(self)->m_complaints.emplace_back(text);
        };
        return get<decltype(HotKeyServices_Load)>("HotKeyServices_Load")(m_path.c_str(), complain, this) != 0;
    }
    bool load(const std::string& text) {
        std::filesystem::create_directories(m_path.parent_path());
        std::ofstream(m_path, std::ios::binary) << text;
        return load();
    }
    // As the bar asks: -1 for no key.
    std::int64_t key_of(std::uint32_t kind, const wchar_t* text) {
        hotkeys::handler_room room{};
        EXPECT_NE(get<hotkeys::HKHandler_Construct>("HKHandler_Construct")(&room), 0);
        const hotkeys::commands* all = get<hotkeys::HKHandler_GetCommands>("HKHandler_GetCommands")(&room);
        const hotkeys::command_record record{kind, text, nullptr, nullptr};
        std::uint32_t key = 0;
        const bool found = get<hotkeys::CommandsMap_get_key>("CommandsMap_get_key")(all, &record, &key) != 0;
        get<hotkeys::HKHandler_Destruct>("HKHandler_Destruct")(&room);
        return found ? static_cast<std::int64_t>(key) : -1;
    }

    HMODULE m_library = nullptr;
    std::filesystem::path m_path;
    std::vector<std::string> m_complaints;
};

TEST_F(HostHotKeyServices, TheFirstLoadMakesTheFile) {
    EXPECT_TRUE(load());
    EXPECT_TRUE(std::filesystem::exists(m_path));
    EXPECT_THAT(m_complaints, IsEmpty());
    EXPECT_EQ(key_of(10, L"Show Symbol Mapping"), 3 << 16 | 'M');
}

TEST_F(HostHotKeyServices, KeysOfTheFileAreToldByKindAndText) {
    EXPECT_TRUE(load("F9 = 甲\nNone = Show Symbol Mapping\n"));
    EXPECT_EQ(key_of(10, L"甲"), 120);
    EXPECT_EQ(key_of(9, L"甲"), -1);
    EXPECT_EQ(key_of(10, L"乙"), -1);
    EXPECT_EQ(key_of(10, L"Show Symbol Mapping"), 0);
    EXPECT_STREQ(get<decltype(HotKeyServices_CommandOf)>("HotKeyServices_CommandOf")(120), "甲");
    EXPECT_EQ(get<decltype(HotKeyServices_CommandOf)>("HotKeyServices_CommandOf")(121), nullptr);
    EXPECT_EQ(get<decltype(HotKeyServices_KeyOf)>("HotKeyServices_KeyOf")("甲"), 120u);
    EXPECT_EQ(get<decltype(HotKeyServices_KeyOf)>("HotKeyServices_KeyOf")("乙"), 0u);
}

TEST_F(HostHotKeyServices, LinesThatCannotBeUsedAreNamed) {
    EXPECT_TRUE(load("M = Letter\nF9 = Good\n"));
    EXPECT_THAT(m_complaints, ElementsAre("line 1: \"M\" is no key"));
    EXPECT_EQ(key_of(10, L"Good"), 120);
}

TEST_F(HostHotKeyServices, AFileThatCannotBeReadIsSaid) {
    std::filesystem::create_directories(m_path);
    EXPECT_FALSE(load());
}

}  // namespace
}  // namespace host
