#include "centre/profile_store.h"

#include <gmock/gmock.h>

#include <fstream>
#include <stdexcept>

#include "tests/support/own_names.h"

namespace host {
namespace {

using ::testing::ElementsAre;

class HostProfileStore : public ::testing::Test {
protected:
    HostProfileStore() {
        m_folder = std::filesystem::current_path() / (test_support::own_name() + " profiles");
        m_path = m_folder / "profiles.json";
    }
    ~HostProfileStore() override { std::filesystem::remove_all(m_folder); }

    void write(const std::string& text) {
        std::filesystem::create_directories(m_folder);
        std::ofstream(m_path, std::ios::binary) << text;
    }
    std::string problem() {
        try {
            load_profiles(m_path);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "none";
    }
    static std::string one(const std::string& fields) {
        return R"({"last_number":1,"profiles":[{)" + fields + "}]}";
    }

    std::filesystem::path m_folder;
    std::filesystem::path m_path;
};

TEST_F(HostProfileStore, WithoutAFileThereAreTwoProfiles) {
    const profile_list list = load_profiles(m_path);
    EXPECT_EQ(list.last_number, 2);
    ASSERT_EQ(list.profiles.size(), 2u);
    EXPECT_EQ(list.profiles[0].name, "Paper");
    EXPECT_EQ(list.profiles[0].plugin, "OrderDeck Paper");
    EXPECT_EQ(list.profiles[0].connect_delay, 0u);
    EXPECT_THAT(list.profiles[0].accounts, ElementsAre("DEMO-101", "DEMO-102", "模擬帳戶-1"));
    EXPECT_EQ(list.profiles[1].outer_id, "orderdeck-paper-2");
    EXPECT_EQ(list.profiles[1].connect_delay, 1500u);
}

TEST_F(HostProfileStore, WhatIsSavedComesBack) {
    profile_list list;
    list.last_number = 9;
    list.profiles = {{"orderdeck-paper-9", "下單 9", "OrderDeck Paper Remote", {"甲", "B"}, 250, 30}};
    save_profiles(m_path, list);
    EXPECT_EQ(load_profiles(m_path), list);
    list.profiles.clear();
    save_profiles(m_path, list);
    EXPECT_EQ(load_profiles(m_path), list);
}

TEST_F(HostProfileStore, NothingButTheFileIsLeft) {
    save_profiles(m_path, default_profiles());
    int files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(m_folder)) {
        ++files;
    }
    EXPECT_EQ(files, 1);
}

TEST_F(HostProfileStore, AFileThatIsNoListIsRefusedWithAReason) {
    for (const char* text : {"", "{", "[]", R"({"last_number":1})", R"({"profiles":[]})",
                             R"({"last_number":"x","profiles":[]})"}) {
        write(text);
        EXPECT_THAT(problem(), ::testing::HasSubstr("json.exception")) << text;
    }
}

TEST_F(HostProfileStore, AProfileThatCannotBeIsRefusedWithAReason) {
    const std::string good =
        R"("id":"a","name":"A","plugin":"OrderDeck Paper","accounts":["x"],"delay_ms":0,"reject_percent":0)";
    write(one(good));
    EXPECT_EQ(problem(), "none");
    const auto with = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        write(one(text));
        return problem();
    };
    EXPECT_EQ(with("OrderDeck Paper", "Elsewhere"), "\"Elsewhere\" is no broker");
    EXPECT_EQ(with(R"("name":"A")", R"("name":"")"), "A profile wants a name.");
    EXPECT_EQ(with(R"(["x"])", "[]"), "At least one account is needed.");
    EXPECT_EQ(with(R"(["x"])", R"([""])"), "An account wants a name.");
    EXPECT_EQ(with(R"(["x"])", R"(["x","x"])"), "Account \"x\" is there twice.");
    EXPECT_EQ(with(R"("delay_ms":0)", R"("delay_ms":60001)"), "The time to connect is at most 60000 ms.");
    EXPECT_EQ(with(R"("reject_percent":0)", R"("reject_percent":101)"),
              "At most 100 of 100 orders can be rejected.");
    write(R"({"last_number":1,"profiles":[{)" + good + "},{" + good + "}]}");
    EXPECT_EQ(problem(), "a profile is there twice");
}

TEST_F(HostProfileStore, AFolderThatCannotBeMadeIsSaid) {
    write("a file where a folder is wanted");
    EXPECT_THROW(save_profiles(m_path / "profiles.json", default_profiles()), std::runtime_error);
}

}  // namespace
}  // namespace host
