#include "hotkeys/hot_key_table.h"

#include <gmock/gmock.h>

#include <sstream>

namespace host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> read(hot_key_table& table, const std::string& text) {
    std::istringstream lines(text);
    return table.read(lines);
}

TEST(HostHotKeys, AKeyIsReadInAnyWriting) {
    EXPECT_EQ(parse_key("Ctrl + Shift + M"), key_control | key_shift | 'M');
    EXPECT_EQ(parse_key("shift+ctrl+m"), key_control | key_shift | 'M');
    EXPECT_EQ(parse_key(" ALT+ 7 "), key_alt | '7');
    EXPECT_EQ(parse_key("F1"), 112u);
    EXPECT_EQ(parse_key("Shift + f12"), key_shift | 123);
    EXPECT_EQ(parse_key("Ctrl+Page Up"), key_control | key_extended | 33);
    EXPECT_EQ(parse_key("delete"), key_extended | 46);
    EXPECT_EQ(parse_key("none"), 0u);
}

TEST(HostHotKeys, WhatWouldKeepPeopleFromTypingIsNoKey) {
    EXPECT_EQ(parse_key("M"), std::nullopt);
    EXPECT_EQ(parse_key("Shift + 7"), std::nullopt);
}

TEST(HostHotKeys, OtherTextsAreNoKeys) {
    for (const char* text : {"", "Ctrl +", "Ctrl + Ctrl + M", "Super + M", "F0", "F13", "F1x", "Ctrl + $",
                             "Ctrl + Pageup", "+", "Ctrl M"}) {
        EXPECT_EQ(parse_key(text), std::nullopt) << text;
    }
}

TEST(HostHotKeys, AKeyIsShownAsTheBarShowsIt) {
    EXPECT_EQ(key_text(key_control | key_shift | key_alt | 'M'), "Ctrl + Shift + Alt + M");
    EXPECT_EQ(key_text(113), "F2");
    EXPECT_EQ(key_text(key_alt | key_extended | 33), "Alt + Page Up");
    EXPECT_EQ(key_text(0), "");
    EXPECT_EQ(key_text(key_control | 7), "");
}

TEST(HostHotKeys, LinesBindKeysToCommandsBothWays) {
    hot_key_table table;
    EXPECT_THAT(read(table, "# keys\r\n\r\n  Ctrl+M = Show Symbol Mapping \r\nNone = Nothing\n"), IsEmpty());
    EXPECT_EQ(table.key_of("Show Symbol Mapping"), key_control | 'M');
    EXPECT_EQ(*table.command_of(key_control | 'M'), "Show Symbol Mapping");
    EXPECT_EQ(table.key_of("Nothing"), 0u);
    EXPECT_EQ(table.command_of(0), nullptr);
    EXPECT_EQ(table.key_of("show symbol mapping"), std::nullopt);
    EXPECT_EQ(table.command_of(key_control | 'N'), nullptr);
}

TEST(HostHotKeys, ALineThatCannotBeUsedIsNamedAndTheOthersCount) {
    hot_key_table table;
    EXPECT_THAT(
        read(table,
             "Ctrl+M\n"
             "Ctrl+M =\n"
             "M = Letter\n"
             "Ctrl+A = First\n"
             "Ctrl+A = Second\n"
             "Ctrl+B = First\n"),
        ElementsAre("line 1: no \"KEY = COMMAND\"", "line 2: no \"KEY = COMMAND\"", "line 3: \"M\" is no key",
                    "line 5: \"Ctrl+A\" runs \"First\" already", "line 6: \"First\" has a key already"));
    EXPECT_EQ(table.key_of("First"), key_control | 'A');
    EXPECT_EQ(table.command_of(key_control | 'B'), nullptr);
}

TEST(HostHotKeys, ReadingAgainForgetsWhatWasThere) {
    hot_key_table table;
    read(table, "Ctrl+A = First");
    read(table, "Ctrl+B = Second");
    EXPECT_EQ(table.key_of("First"), std::nullopt);
    EXPECT_EQ(table.command_of(key_control | 'A'), nullptr);
}

TEST(HostHotKeys, ANewFileBindsTheCommandsOfThisApplication) {
    hot_key_table table;
    EXPECT_THAT(read(table, std::string(default_hot_keys())), IsEmpty());
    for (const char* command : {"Toggle Connection", "Show Profile Settings", "Show Profile Editor",
                                "Show Symbol Mapping", "Cancel All Orders"}) {
        EXPECT_NE(table.key_of(command).value_or(0), 0u) << command;
    }
}

}  // namespace
}  // namespace host
