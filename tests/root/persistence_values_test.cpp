// Stored values of every wrong kind, and names and texts at their limits.

#include "charting/orderdeck/src/root/RegistryHelpers.h"
#include "tests/root/persistence_fixture.h"

namespace {

using platform::registry_key;
using test::closing_host;
using test::make_record;
using test::persistence_test;
using test::restored;
using test::stored;
using test::texts;
using testing::ElementsAre;

using PersistenceValues = persistence_test;

// The bytes of a text as the system stores it; with_end adds the terminator.
std::vector<BYTE> bytes_of(const CString& text, bool with_end) {
    const auto* const start = reinterpret_cast<const BYTE*>(text.c_str());
    return {start, start + (text.size() + (with_end ? 1 : 0)) * sizeof(wchar_t)};
}

// Windows stores a terminator that follows the data of a text; here none does.
void set(const registry_key& key, const CString& name, DWORD type, std::vector<BYTE> data) {
    const auto size = static_cast<DWORD>(data.size());
    data.insert(data.end(), sizeof(wchar_t), 0xFF);
    EXPECT_EQ(key.SetValue(name, type, data.data(), size), ERROR_SUCCESS);
}

// What a bar makes of the one record that is stored for "Alpha".
texts restored_alpha() {
    closing_host bar;
    bar.add_profile(L"Alpha");
    EXPECT_EQ(bar.create(), S_OK);
    texts lines = restored(bar);
    EXPECT_THAT(bar.take_assertions(), ElementsAre());
    return lines;
}

TEST_F(PersistenceValues, ARecordWithoutValuesRestoresNothingAndFillsTheBar) {
    make_record(L"Alpha");
    closing_host bar;
    bar.add_profile(L"Alpha");
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_THAT(restored(bar), ElementsAre());
    EXPECT_THAT(bar.tab_names(), ElementsAre(L"Alpha"));
}

TEST_F(PersistenceValues, ConnectedIsTheWordTrueInAnyCaseAndNothingElse) {
    const registry_key key = make_record(L"Alpha");
    for (const wchar_t* const word : {L"True", L"true", L"TRUE", L"tRuE"}) {
        key.SetString(L"Connected", word);
        EXPECT_THAT(restored_alpha(), ElementsAre("connect \"Alpha\"")) << test::narrow(word);
    }
    for (const wchar_t* const word : {L"", L"False", L"1", L"yes", L" True", L"True ", L"Tru", L"Trues"}) {
        key.SetString(L"Connected", word);
        EXPECT_THAT(restored_alpha(), ElementsAre()) << test::narrow(word);
    }
}

TEST_F(PersistenceValues, AnIdIsANumberOfFourBytes) {
    const registry_key key = make_record(L"Alpha");
    set(key, L"Symbol Id", REG_DWORD, {7, 0, 0, 0});
    EXPECT_THAT(restored_alpha(), ElementsAre("symbol 7"));
    set(key, L"Symbol Id", REG_DWORD, {0, 0, 0, 0});
    EXPECT_THAT(restored_alpha(), ElementsAre());
}

TEST_F(PersistenceValues, AnIdThatIsNoSymbolsEndsTheRestoringThere) {
    set(make_record(L"Alpha"), L"Symbol Id", REG_DWORD, {0xFF, 0xFF, 0xFF, 0xFF});
    set(make_record(L"Beta"), L"Symbol Id", REG_DWORD, {7, 0, 0, 0});
    closing_host bar;
    bar.add_profile(L"Alpha");
    bar.add_profile(L"Beta");
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_THAT(restored(bar), ElementsAre());
    EXPECT_THAT(bar.take_assertions(),
                ElementsAre("id > 0", "Unhandled exception occure during execute task."));
    EXPECT_THAT(bar.tab_names(), ElementsAre(L"Alpha", L"Beta"));
}

TEST_F(PersistenceValues, AnIdOfAnotherTypeOrSizeIsNone) {
    const registry_key key = make_record(L"Alpha");
    const std::vector<BYTE> seven = {7, 0, 0, 0};
    for (const DWORD type : {REG_BINARY, REG_SZ, REG_EXPAND_SZ, REG_NONE, REG_MULTI_SZ}) {
        set(key, L"Symbol Id", type, seven);
        EXPECT_THAT(restored_alpha(), ElementsAre()) << type;
    }
    for (const std::vector<BYTE>& data :
         {std::vector<BYTE>{}, {7}, {7, 0}, {7, 0, 0}, {7, 0, 0, 0, 0}, {7, 0, 0, 0, 0, 0, 0, 0}}) {
        set(key, L"Symbol Id", REG_DWORD, data);
        EXPECT_THAT(restored_alpha(), ElementsAre()) << data.size();
    }
}

TEST_F(PersistenceValues, ATextIsOfEitherTextTypeAndOfNoOther) {
    const registry_key key = make_record(L"Alpha");
    for (const DWORD type : {REG_SZ, REG_EXPAND_SZ}) {
        set(key, L"Connected", type, bytes_of(L"True", true));
        set(key, L"Symbol Name", type, bytes_of(L"%ABC%", true));
        EXPECT_THAT(restored_alpha(), ElementsAre("connect \"Alpha\"", "symbol \"%ABC%\"")) << type;
    }
    for (const DWORD type : {REG_NONE, REG_BINARY, REG_DWORD, REG_MULTI_SZ}) {
        set(key, L"Connected", type, bytes_of(L"True", true));
        set(key, L"Symbol Name", type, bytes_of(L"ABC", true));
        EXPECT_THAT(restored_alpha(), ElementsAre()) << type;
    }
}

TEST_F(PersistenceValues, ATextOfOddLengthIsIgnored) {
    const registry_key key = make_record(L"Alpha");
    std::vector<BYTE> longer = bytes_of(L"True", true);
    longer.push_back(0);
    set(key, L"Connected", REG_SZ, longer);
    std::vector<BYTE> shorter = bytes_of(L"ABC", true);
    shorter.pop_back();
    set(key, L"Symbol Name", REG_SZ, shorter);
    EXPECT_THAT(restored_alpha(), ElementsAre());
    set(key, L"Symbol Name", REG_SZ, {0});
    EXPECT_THAT(restored_alpha(), ElementsAre());
}

TEST_F(PersistenceValues, ATextWithoutATerminatorIsIgnored) {
    const registry_key key = make_record(L"Alpha");
    set(key, L"Connected", REG_SZ, bytes_of(L"True", false));
    set(key, L"Symbol Name", REG_SZ, bytes_of(L"ABC", false));
    EXPECT_THAT(restored_alpha(), ElementsAre());
    set(key, L"Connected", REG_SZ, {});
    set(key, L"Symbol Name", REG_SZ, {});
    EXPECT_THAT(restored_alpha(), ElementsAre());
}

TEST_F(PersistenceValues, ATextEndsAtItsFirstTerminator) {
    const registry_key key = make_record(L"Alpha");
    set(key, L"Connected", REG_SZ, bytes_of(CString(L"True\0x", 6), true));
    set(key, L"Symbol Name", REG_SZ, bytes_of(CString(L"AB\0CD", 5), true));
    EXPECT_THAT(restored_alpha(), ElementsAre("connect \"Alpha\"", "symbol \"AB\""));
}

TEST_F(PersistenceValues, WhatCannotBeReadHasItsDefault) {
    const registry_key key = make_record(L"Alpha");
    EXPECT_EQ(OV_OrderDeck::read_string(key, L"Absent", L"default"), L"default");
    set(key, L"Text", REG_SZ, bytes_of(L"text", false));
    EXPECT_EQ(OV_OrderDeck::read_string(key, L"Text", L"default"), L"default");
    set(key, L"Text", REG_SZ, bytes_of(L"", true));
    EXPECT_EQ(OV_OrderDeck::read_string(key, L"Text", L"default"), L"");
}

// The buffer is first tried with a guess; each of these is around it.
TEST_F(PersistenceValues, ATextOfAnyLengthIsReadWhole) {
    const registry_key key = make_record(L"Alpha");
    for (const std::size_t length : {1U, 254U, 255U, 256U, 257U, 511U, 512U, 10000U}) {
        const CString text(length, L'字');
        EXPECT_EQ(key.SetString(L"Text", text), ERROR_SUCCESS);
        EXPECT_TRUE(OV_OrderDeck::read_string(key, L"Text", L"default") == text) << length;
        set(key, L"Text", REG_SZ, bytes_of(text, false));
        EXPECT_TRUE(OV_OrderDeck::read_string(key, L"Text", L"default") == L"default") << length;
    }
}

TEST_F(PersistenceValues, ASymbolOfTenThousandCharactersComesBack) {
    const CString name(10000, L'號');
    {
        closing_host bar;
        bar.open({{L"Alpha", false, 0, name}});
        EXPECT_EQ(bar.root->OnClose(), S_OK);
    }
    EXPECT_THAT(restored_alpha(), ElementsAre("symbol " + test::quoted(name)));
}

TEST_F(PersistenceValues, AProfileNamedWithTenThousandCharactersIsReportedAndTheOthersAreKept) {
    {
        closing_host bar;
        bar.open({{CString(10000, L'n'), true, 0, L""}, {L"Alpha", true, 0, L""}});
        EXPECT_EQ(bar.root->OnClose(), S_OK);
        EXPECT_THAT(bar.take_assertions(),
                    ElementsAre("key.Create(HKEY_CURRENT_USER, sProfPath) == ERROR_SUCCESS"));
    }
    EXPECT_THAT(restored_alpha(), ElementsAre("connect \"Alpha\""));
}

// Every character that may stand in the name of a key, spread over names that are short enough.
std::vector<CString> legal_names() {
    CString printable;
    for (wchar_t each = L' '; each <= L'~'; ++each) {
        if (each != L'\\') {
            printable += each;
        }
    }
    CString latin;
    for (wchar_t each = 0xA1; each <= 0xFF; ++each) {
        latin += each;
    }
    return {printable,
            latin,
            L" begins and ends with a blank ",
            L"..",
            L"*?",
            L"HKEY_CURRENT_USER",
            L"Connected",
            L"元大期貨 一號",
            L"Ünïcode Ελληνικά Русский",
            L"\U0001F4C8 \U00020000",
            CString(255, L'L')};
}

TEST_F(PersistenceValues, ANameOfEveryLegalCharacterComesBack) {
    const std::vector<CString> names = legal_names();
    texts expected;
    {
        closing_host bar;
        std::vector<test::panel_state> panels;
        for (const CString& name : names) {
            panels.push_back({name, true, 0, L""});
            expected.push_back("connect " + test::quoted(name));
        }
        bar.open(panels);
        EXPECT_EQ(bar.root->OnClose(), S_OK);
        EXPECT_THAT(bar.take_assertions(), ElementsAre());
    }
    closing_host bar;
    for (const CString& name : names) {
        bar.add_profile(name);
    }
    EXPECT_EQ(bar.create(), S_OK);
    EXPECT_THAT(restored(bar), testing::UnorderedElementsAreArray(expected));
}

// How many of so many remembered profiles are connected again.
std::size_t connected_of(int count) {
    registry_key key;
    for (int index = 0; index < count; ++index) {
        const CString path = closing_host::path_of_records() + L"\\Profiles\\P" + std::to_wstring(index);
        EXPECT_EQ(key.Create(HKEY_CURRENT_USER, path), ERROR_SUCCESS);
        EXPECT_EQ(key.SetString(L"Connected", L"True"), ERROR_SUCCESS);
    }
    closing_host bar;
    for (const int index : {0, 250, count - 1}) {
        bar.add_profile(L"P" + std::to_wstring(index));
    }
    EXPECT_EQ(bar.create(), S_OK);
    const bool whole = bar.take_assertions().empty();
    const texts lines = restored(bar);
    EXPECT_EQ(whole, !lines.empty());
    return lines.size();
}

TEST_F(PersistenceValues, FourHundredNinetyNineProfilesAreRestored) {
    EXPECT_EQ(connected_of(499), 3U);
}

TEST_F(PersistenceValues, FiveHundredProfilesAreNot) {
    EXPECT_EQ(connected_of(500), 0U);
}

TEST_F(PersistenceValues, FiveHundredAndOneProfilesAreNot) {
    EXPECT_EQ(connected_of(501), 0U);
}

}  // namespace
