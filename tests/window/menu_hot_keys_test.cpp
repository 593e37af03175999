#include "charting/orderdeck/src/window/MenuHotKeys.h"

#include <gmock/gmock.h>

#include "tests/window/hot_keys_fixture.h"

namespace {

using namespace OV_OrderDeck;
using hotkeys::CHotKeyLibrary;
using hotkeys::CommandsMap;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t ctrl_m = 2u << 16 | 'M';

class MenuHotKeys : public testing::Test {
protected:
    bool key_text(UINT id) {
        text = L"untouched";
        return GetMenuHotKeyText(id, text, &CommandIdFromMenuId);
    }

    window_tests::hot_keys library;
    CString text;
};

TEST(CommandIds, TheMenuItemsNameTheCommandsOfTheHost) {
    EXPECT_EQ(CommandIdFromMenuId(15), (CommandsMap::cmd_id{10, L"Show Symbol Mapping", nullptr}));
    EXPECT_EQ(CommandIdFromMenuId(16), (CommandsMap::cmd_id{10, L"Automate Order Execution", nullptr}));
}

TEST(CommandIds, AnyOtherItemIsTheEmptyCommand) {
    for (const UINT id : {0u, 10u, 11u, 12u, 14u, 17u, 0xFFFFu}) {
        const CommandsMap::cmd_id command = CommandIdFromMenuId(id);
        EXPECT_EQ(command.kind, 0u) << id;
        EXPECT_TRUE(command.text.empty()) << id;
        EXPECT_FALSE(command.reference) << id;
    }
}

TEST(CommandIds, AreAKindATextAndASharedReferenceOfTwoWords) {
    CommandsMap::cmd_id command;
    EXPECT_EQ(sizeof(command.kind), 4u);
    EXPECT_EQ(sizeof(command.reference), 2 * sizeof(void*));
    EXPECT_EQ(command, CommandIdFromMenuId(0));
    EXPECT_NE(command, CommandIdFromMenuId(15));
}

TEST_F(MenuHotKeys, TheKeyOfACommandIsTold) {
    library.told().bind(10, L"Show Symbol Mapping", ctrl_m);
    EXPECT_TRUE(key_text(15));
    EXPECT_EQ(text, L"Ctrl + M");
    EXPECT_FALSE(key_text(16));
}

TEST_F(MenuHotKeys, TheHandlerLivesForOneLookAndTheMapperIsAskedWithinIt) {
    library.told().bind(10, L"x", ctrl_m);
    std::vector<std::wstring> before;
    UINT asked = 0;
    EXPECT_TRUE(GetMenuHotKeyText(77, text, [&](UINT id) {
        asked = id;
        before = library.told().calls();
        return CommandsMap::cmd_id{10, L"x", nullptr};
    }));
    EXPECT_EQ(asked, 77u);
    EXPECT_THAT(before, ElementsAre(L"construct"));
    EXPECT_THAT(library.told().calls(), ElementsAre(L"construct", L"commands", L"get_key 10 x", L"destruct"));
}

TEST_F(MenuHotKeys, TheHandlerIsReleasedThoughThereIsNoKey) {
    EXPECT_FALSE(key_text(15));
    EXPECT_EQ(library.told().calls().back(), L"destruct");
}

TEST_F(MenuHotKeys, TheHandlerIsReleasedThoughTheMapperFails) {
    EXPECT_THROW(GetMenuHotKeyText(1, text, [](UINT) -> CommandsMap::cmd_id { throw std::bad_alloc(); }),
                 std::bad_alloc);
    EXPECT_THAT(library.told().calls(), ElementsAre(L"construct", L"destruct"));
}

TEST_F(MenuHotKeys, AKeyWithoutATextIsNoKey) {
    library.told().bind(10, L"Show Symbol Mapping", 'M');
    EXPECT_FALSE(key_text(15));
    library.told().bind(10, L"Show Symbol Mapping", 2u << 16 | 1);
    EXPECT_FALSE(key_text(15));
}

TEST_F(MenuHotKeys, TheKeyZeroHasAnEmptyText) {
    library.told().bind(10, L"Show Symbol Mapping", 0);
    EXPECT_TRUE(key_text(15));
    EXPECT_EQ(text, L"");
}

TEST_F(MenuHotKeys, TheObjectOfACommandReachesTheLibrary) {
    library.told().bind(10, L"x", ctrl_m);
    const boost::shared_ptr<const void> object(new int(1), [](const int* p) { delete p; });
    EXPECT_FALSE(GetMenuHotKeyText(1, text, [&](UINT) { return CommandsMap::cmd_id{10, L"x", object}; }));
    EXPECT_EQ(object.use_count(), 1);
}

TEST_F(MenuHotKeys, AHandlerThatCannotBeMadeKnowsNoKeyAndIsNotReleased) {
    library.told().bind(10, L"Show Symbol Mapping", ctrl_m);
    library.told().refuse_handlers();
    EXPECT_FALSE(key_text(15));
    EXPECT_THAT(library.told().calls(), ElementsAre(L"construct"));
}

TEST_F(MenuHotKeys, AHandlerWithoutCommandsKnowsNoKeyAndIsReleased) {
    library.told().bind(10, L"Show Symbol Mapping", ctrl_m);
    library.told().refuse_commands();
    EXPECT_FALSE(key_text(15));
    EXPECT_THAT(library.told().calls(), ElementsAre(L"construct", L"commands", L"destruct"));
}

TEST_F(MenuHotKeys, WithoutTheLibraryThereIsNoKey) {
    const CHotKeyLibrary missing(L"NoHotKeyServices.dll");
    EXPECT_FALSE(missing.is_usable());
    EXPECT_FALSE(GetMenuHotKeyText(15, text, &CommandIdFromMenuId, missing));
}

TEST_F(MenuHotKeys, ALibraryThatLacksAnExportIsNotUsed) {
    const CString folder = platform::folder_of(platform::program_path());
    const CHotKeyLibrary other(folder + L"diagnostics_library/BugSlayerUtil3.0_x64.dll");
    EXPECT_FALSE(other.is_usable());
    EXPECT_FALSE(GetMenuHotKeyText(15, text, &CommandIdFromMenuId, other));
    const CHotKeyLibrary whole(folder + L"HotKeyServices.dll");
    EXPECT_TRUE(whole.is_usable());
}

TEST_F(MenuHotKeys, ALibraryIsNotTakenFromAFolderThatIsNotToldInFull) {
    EXPECT_FALSE(CHotKeyLibrary(L"./HotKeyServices.dll").is_usable());
}

TEST(HotKeyColumn, IsSetOffByATab) {
    EXPECT_EQ(WithHotKey(L"商品轉換...", L"Ctrl + M"), L"商品轉換...\tCtrl + M");
    EXPECT_EQ(WithHotKey(L"", L"F2"), L"\tF2");
}

TEST(HotKeyColumn, AnOldKeyIsReplacedAndNotDoubled) {
    EXPECT_EQ(WithHotKey(L"Map\tF1", L"F2"), L"Map\tF2");
    EXPECT_EQ(WithHotKey(L"Map\tF1\tF3", L"F2"), L"Map\tF2");
}

TEST(HotKeyColumn, AnEmptyKeyRemovesTheOldOne) {
    EXPECT_EQ(WithHotKey(L"Map\tF1", L""), L"Map");
    EXPECT_EQ(WithHotKey(L"Map", L""), L"Map");
}

}  // namespace
