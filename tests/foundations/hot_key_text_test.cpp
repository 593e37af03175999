#include "unicomp/Simples/interface/HotKeyText.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using Unicomp::HotKeyToText;
using Unicomp::IsHotKeyValid;
using Unicomp::make_hotkey;

constexpr DWORD shift = 1;
constexpr DWORD control = 2;
constexpr DWORD alt = 4;
constexpr DWORD extended = 8;

// The text of a hot key, "(invalid)" when it has none.
CString text_of(DWORD modifiers, DWORD code) {
    CString text = L"left over";
    return HotKeyToText(make_hotkey(modifiers, code), text) ? text : L"(invalid)" + text;
}

const std::map<DWORD, CString>& all_names() {
    static const std::map<DWORD, CString> names{
        {33, L"Page Up"}, {34, L"Page Down"}, {35, L"End"},    {36, L"Home"},   {37, L"Left"},
        {38, L"Up"},      {39, L"Right"},     {40, L"Down"},   {45, L"Insert"}, {46, L"Delete"},
        {48, L"0"},       {49, L"1"},         {50, L"2"},      {51, L"3"},      {52, L"4"},
        {53, L"5"},       {54, L"6"},         {55, L"7"},      {56, L"8"},      {57, L"9"},
        {65, L"A"},       {66, L"B"},         {67, L"C"},      {68, L"D"},      {69, L"E"},
        {70, L"F"},       {71, L"G"},         {72, L"H"},      {73, L"I"},      {74, L"J"},
        {75, L"K"},       {76, L"L"},         {77, L"M"},      {78, L"N"},      {79, L"O"},
        {80, L"P"},       {81, L"Q"},         {82, L"R"},      {83, L"S"},      {84, L"T"},
        {85, L"U"},       {86, L"V"},         {87, L"W"},      {88, L"X"},      {89, L"Y"},
        {90, L"Z"},       {96, L"Num 0"},     {97, L"Num 1"},  {98, L"Num 2"},  {99, L"Num 3"},
        {100, L"Num 4"},  {101, L"Num 5"},    {102, L"Num 6"}, {103, L"Num 7"}, {104, L"Num 8"},
        {105, L"Num 9"},  {106, L"Num *"},    {107, L"Num +"}, {109, L"Num -"}, {110, L"Num Del"},
        {111, L"Num /"},  {112, L"F1"},       {113, L"F2"},    {114, L"F3"},    {115, L"F4"},
        {116, L"F5"},     {117, L"F6"},       {118, L"F7"},    {119, L"F8"},    {120, L"F9"},
        {121, L"F10"},    {122, L"F11"},      {123, L"F12"},   {186, L";"},     {187, L"="},
        {188, L","},      {189, L"-"},        {190, L"."},     {191, L"/"},     {192, L"`"},
        {219, L"["},      {220, L"\\"},       {221, L"]"},     {222, L"'"},
    };
    return names;
}

TEST(HotKeyText, EveryKeyOfTheTableHasItsNameAndNoOtherKeyHasOne) {
    for (DWORD code = 1; code <= 0xFFFF; ++code) {
        const auto name = all_names().find(code);
        const CString expected = name == all_names().end() ? L"(invalid)" : L"Ctrl + " + name->second;
        ASSERT_EQ(text_of(control | extended, code), expected) << code;
    }
}

TEST(HotKeyText, ModifiersStandInFrontInTheirFixedOrder) {
    EXPECT_EQ(text_of(shift, 65), L"Shift + A");
    EXPECT_EQ(text_of(control, 65), L"Ctrl + A");
    EXPECT_EQ(text_of(control | shift, 65), L"Ctrl + Shift + A");
    EXPECT_EQ(text_of(alt, 65), L"Alt + A");
    EXPECT_EQ(text_of(shift | alt, 65), L"Shift + Alt + A");
    EXPECT_EQ(text_of(control | alt, 65), L"Ctrl + Alt + A");
    EXPECT_EQ(text_of(control | shift | alt, 65), L"Ctrl + Shift + Alt + A");
}

TEST(HotKeyText, TheExtendedBitDoesNotShow) {
    EXPECT_EQ(text_of(control | extended, 65), L"Ctrl + A");
    EXPECT_EQ(text_of(extended, 112), L"F1");
}

TEST(HotKeyText, NoHotKeyIsValidAndEmpty) {
    CString text = L"left over";
    EXPECT_TRUE(HotKeyToText(0, text));
    EXPECT_EQ(text, L"");
    EXPECT_TRUE(IsHotKeyValid(0));
}

TEST(HotKeyText, ModifiersWithoutAKeyAreNotValid) {
    for (DWORD modifiers = 1; modifiers <= 15; ++modifiers) {
        EXPECT_EQ(text_of(modifiers, 0), L"(invalid)") << modifiers;
        EXPECT_FALSE(IsHotKeyValid(make_hotkey(modifiers, 0)));
    }
}

TEST(HotKeyText, KeysOfTheNumberPadAreNotThoseBesideIt) {
    for (const DWORD code : {33U, 34U, 35U, 36U, 37U, 38U, 39U, 40U, 45U}) {
        EXPECT_EQ(text_of(0, code), L"(invalid)") << code;
        EXPECT_EQ(text_of(control, code), L"(invalid)") << code;
        EXPECT_EQ(text_of(extended, code), all_names().at(code));
        EXPECT_EQ(text_of(control | extended, code), L"Ctrl + " + all_names().at(code));
    }
}

TEST(HotKeyText, DeleteNeedsNoExtendedBit) {
    EXPECT_EQ(text_of(0, 46), L"Delete");
    EXPECT_EQ(text_of(control, 46), L"Ctrl + Delete");
    EXPECT_EQ(text_of(extended, 46), L"Delete");
}

TEST(HotKeyText, OnlySomeKeysAreValidAlone) {
    std::set<DWORD> alone{33, 34, 35, 36, 37, 38, 39, 40, 45, 46, 107, 109};
    for (DWORD code = 112; code <= 123; ++code) {
        alone.insert(code);
    }
    for (DWORD code = 1; code <= 300; ++code) {
        EXPECT_EQ(IsHotKeyValid(make_hotkey(extended, code)), alone.contains(code)) << code;
    }
    EXPECT_EQ(text_of(0, 112), L"F1");
    EXPECT_EQ(text_of(0, 107), L"Num +");
    EXPECT_EQ(text_of(0, 65), L"(invalid)");
}

}  // namespace
