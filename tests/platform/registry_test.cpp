#include "platform/registry.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <thread>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/test_key.h"

namespace {

using platform::registry_key;

class Registry : public testing::Test {
protected:
    CString below(const wchar_t* name) const { return m_test.path() + L"\\" + name; }
    registry_key& key() { return m_test.key(); }

    static CString text_value(const registry_key& key, const CString& name) {
        std::array<wchar_t, 256> text{};
        DWORD type = REG_NONE;
        DWORD bytes = sizeof(text);
        EXPECT_EQ(key.QueryValue(name, type, reinterpret_cast<BYTE*>(text.data()), bytes), ERROR_SUCCESS);
        EXPECT_EQ(type, DWORD{REG_SZ});
        EXPECT_EQ(bytes % sizeof(wchar_t), 0U);
        return text.data();
    }

    test_key m_test{L"Registry"};
};

TEST_F(Registry, CreateMakesEveryKeyOfThePath) {
    registry_key made;
    ASSERT_EQ(made.Create(HKEY_CURRENT_USER, below(L"a\\b\\c")), ERROR_SUCCESS);
    EXPECT_NE(made.get(), nullptr);
    registry_key middle;
    EXPECT_EQ(middle.Open(HKEY_CURRENT_USER, below(L"a\\b"), KEY_READ), ERROR_SUCCESS);
    DWORD subkeys = 0;
    DWORD values = 99;
    EXPECT_EQ(middle.QueryInfo(subkeys, values), ERROR_SUCCESS);
    EXPECT_EQ(subkeys, 1U);
    EXPECT_EQ(values, 0U);
}

TEST_F(Registry, CreateOpensWhatIsThereWithItsValues) {
    ASSERT_EQ(key().SetDWORD(L"n", 7), ERROR_SUCCESS);
    registry_key again;
    ASSERT_EQ(again.Create(HKEY_CURRENT_USER, m_test.path()), ERROR_SUCCESS);
    DWORD read = 0;
    EXPECT_EQ(again.QueryDWORD(L"n", read), ERROR_SUCCESS);
    EXPECT_EQ(read, 7U);
}

TEST_F(Registry, AMissingKeyIsNotFoundAndLeavesTheObjectClosed) {
    registry_key missing;
    ASSERT_EQ(missing.Create(HKEY_CURRENT_USER, below(L"a")), ERROR_SUCCESS);
    EXPECT_EQ(missing.Open(HKEY_CURRENT_USER, below(L"no such"), KEY_READ), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(missing.get(), nullptr);
}

TEST_F(Registry, AnOpenKeyIsARoot) {
    registry_key child;
    ASSERT_EQ(child.Create(key().get(), L"x\\y"), ERROR_SUCCESS);
    registry_key same;
    EXPECT_EQ(same.Open(HKEY_CURRENT_USER, below(L"x\\y"), KEY_READ), ERROR_SUCCESS);
    registry_key itself;
    EXPECT_EQ(itself.Open(child.get(), L"", KEY_READ), ERROR_SUCCESS);
}

TEST_F(Registry, NamesAreComparedWithoutCaseAndKeepTheirs) {
    registry_key mixed;
    ASSERT_EQ(mixed.Create(HKEY_CURRENT_USER, below(L"MiXed Ärger")), ERROR_SUCCESS);
    ASSERT_EQ(mixed.SetString(L"Some Name", L"1"), ERROR_SUCCESS);
    registry_key other;
    ASSERT_EQ(other.Open(HKEY_CURRENT_USER, below(L"mIXED äRGER"), KEY_READ | KEY_WRITE), ERROR_SUCCESS);
    ASSERT_EQ(other.SetString(L"SOME NAME", L"2"), ERROR_SUCCESS);
    EXPECT_EQ(text_value(mixed, L"some name"), L"2");
    std::array<wchar_t, 257> name{};
    auto length = static_cast<DWORD>(name.size());
    ASSERT_EQ(key().EnumKey(0, name.data(), length), ERROR_SUCCESS);
    EXPECT_EQ(CString(name.data(), length), L"MiXed Ärger");
    length = static_cast<DWORD>(name.size());
    ASSERT_EQ(mixed.EnumValue(0, name.data(), length), ERROR_SUCCESS);
    EXPECT_EQ(CString(name.data(), length), L"Some Name");
    length = static_cast<DWORD>(name.size());
    EXPECT_EQ(mixed.EnumValue(1, name.data(), length), ERROR_NO_MORE_ITEMS);
}

TEST_F(Registry, AKeyNameHasRoomFor255CharactersAndNotFor257) {
    registry_key child;
    EXPECT_EQ(child.Create(HKEY_CURRENT_USER, m_test.path() + L"\\" + CString(255, L'k')), ERROR_SUCCESS);
    EXPECT_EQ(child.Create(HKEY_CURRENT_USER, m_test.path() + L"\\" + CString(257, L'k')),
              ERROR_INVALID_PARAMETER);
    std::array<wchar_t, 257> name{};
    auto length = static_cast<DWORD>(name.size());
    EXPECT_EQ(key().EnumKey(0, name.data(), length), ERROR_SUCCESS);
    EXPECT_EQ(length, 255U);
    EXPECT_EQ(name[255], L'\0');
}

TEST_F(Registry, APathWithALeadingSeparatorIsRefused) {
    registry_key child;
    EXPECT_EQ(child.Create(HKEY_CURRENT_USER, L"\\" + m_test.path()), ERROR_BAD_PATHNAME);
    EXPECT_EQ(child.Open(HKEY_CURRENT_USER, L"\\" + m_test.path(), KEY_READ), ERROR_BAD_PATHNAME);
}

TEST_F(Registry, ANameThatDoesNotFitTheBufferIsMoreData) {
    registry_key child;
    ASSERT_EQ(child.Create(key().get(), L"four"), ERROR_SUCCESS);
    ASSERT_EQ(key().SetDWORD(L"five5", 1), ERROR_SUCCESS);
    std::array<wchar_t, 6> name{};
    DWORD length = 4;
    EXPECT_EQ(key().EnumKey(0, name.data(), length), ERROR_MORE_DATA);
    length = 5;
    EXPECT_EQ(key().EnumKey(0, name.data(), length), ERROR_SUCCESS);
    EXPECT_EQ(length, 4U);
    length = 5;
    EXPECT_EQ(key().EnumValue(0, name.data(), length), ERROR_MORE_DATA);
    length = 6;
    EXPECT_EQ(key().EnumValue(0, name.data(), length), ERROR_SUCCESS);
    EXPECT_EQ(CString(name.data(), length), L"five5");
}

TEST_F(Registry, EveryValueIsCountedAndEnumeratedOnce) {
    const std::set<CString> names{L"one", L"two", L"three", L""};
    for (const CString& each : names) {
        ASSERT_EQ(key().SetString(each, L"text of " + each), ERROR_SUCCESS);
    }
    DWORD subkeys = 99;
    DWORD values = 0;
    ASSERT_EQ(key().QueryInfo(subkeys, values), ERROR_SUCCESS);
    EXPECT_EQ(subkeys, 0U);
    EXPECT_EQ(values, 4U);
    std::multiset<CString> seen;
    for (DWORD i = 0; i < values; ++i) {
        std::array<wchar_t, 256> name{};
        auto length = static_cast<DWORD>(name.size());
        ASSERT_EQ(key().EnumValue(i, name.data(), length), ERROR_SUCCESS);
        seen.emplace(name.data(), length);
    }
    EXPECT_EQ(seen, std::multiset<CString>(names.begin(), names.end()));
}

TEST_F(Registry, DataComesBackByteForByteWithItsType) {
    const std::vector<BYTE> odd{1, 0, 2, 0, 255};
    ASSERT_EQ(key().SetValue(L"v", REG_SZ, odd.data(), 5), ERROR_SUCCESS);
    DWORD type = REG_NONE;
    DWORD bytes = 0;
    EXPECT_EQ(key().QueryValue(L"v", type, nullptr, bytes), ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(bytes, 5U);
    std::vector<BYTE> read(5);
    EXPECT_EQ(key().QueryValue(L"v", type, read.data(), bytes), ERROR_SUCCESS);
    EXPECT_EQ(read, odd);
    ASSERT_EQ(key().SetValue(L"v", REG_BINARY, nullptr, 0), ERROR_SUCCESS);
    bytes = 5;
    EXPECT_EQ(key().QueryValue(L"v", type, read.data(), bytes), ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_BINARY});
    EXPECT_EQ(bytes, 0U);
}

TEST_F(Registry, ATextHasItsTerminatorStored) {
    ASSERT_EQ(key().SetString(L"t", L"下單匣"), ERROR_SUCCESS);
    EXPECT_EQ(text_value(key(), L"t"), L"下單匣");
    DWORD type = REG_NONE;
    DWORD bytes = 0;
    ASSERT_EQ(key().QueryValue(L"t", type, nullptr, bytes), ERROR_SUCCESS);
    EXPECT_EQ(bytes, 4 * sizeof(wchar_t));
}

TEST_F(Registry, TooLittleRoomTellsTheNeededSize) {
    ASSERT_EQ(key().SetString(L"t", L"1234567"), ERROR_SUCCESS);
    std::array<wchar_t, 7> text{};
    DWORD type = REG_NONE;
    DWORD bytes = sizeof(text);
    EXPECT_EQ(key().QueryValue(L"t", type, reinterpret_cast<BYTE*>(text.data()), bytes), ERROR_MORE_DATA);
    EXPECT_EQ(bytes, 8 * sizeof(wchar_t));
}

TEST_F(Registry, AMissingValueIsNotFound) {
    DWORD type = REG_NONE;
    DWORD bytes = 0;
    EXPECT_EQ(key().QueryValue(L"none", type, nullptr, bytes), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key().DeleteValue(L"none"), ERROR_FILE_NOT_FOUND);
    ASSERT_EQ(key().SetDWORD(L"n", 1), ERROR_SUCCESS);
    EXPECT_EQ(key().DeleteValue(L"N"), ERROR_SUCCESS);
    EXPECT_EQ(key().QueryValue(L"n", type, nullptr, bytes), ERROR_FILE_NOT_FOUND);
}

TEST_F(Registry, ANumberIsReadOnlyFromANumber) {
    ASSERT_EQ(key().SetDWORD(L"n", 0xFFFFFFFE), ERROR_SUCCESS);
    DWORD read = 5;
    EXPECT_EQ(key().QueryDWORD(L"n", read), ERROR_SUCCESS);
    EXPECT_EQ(read, 0xFFFFFFFE);
    read = 5;
    EXPECT_EQ(key().QueryDWORD(L"none", read), ERROR_FILE_NOT_FOUND);
    ASSERT_EQ(key().SetString(L"long text", L"a longer text"), ERROR_SUCCESS);
    EXPECT_EQ(key().QueryDWORD(L"long text", read), ERROR_INVALID_DATA);
    const std::array<BYTE, 4> four{1, 2, 3, 4};
    ASSERT_EQ(key().SetValue(L"binary", REG_BINARY, four.data(), 4), ERROR_SUCCESS);
    EXPECT_EQ(key().QueryDWORD(L"binary", read), ERROR_INVALID_DATA);
    ASSERT_EQ(key().SetValue(L"short", REG_DWORD, four.data(), 3), ERROR_SUCCESS);
    EXPECT_EQ(key().QueryDWORD(L"short", read), ERROR_INVALID_DATA);
    EXPECT_EQ(read, 5U);
}

TEST_F(Registry, AKeyOpenedForReadingRefusesToWrite) {
    ASSERT_EQ(key().SetDWORD(L"n", 1), ERROR_SUCCESS);
    registry_key reader;
    ASSERT_EQ(reader.Open(HKEY_CURRENT_USER, m_test.path(), 0x20019), ERROR_SUCCESS);
    EXPECT_EQ(reader.SetDWORD(L"n", 2), ERROR_ACCESS_DENIED);
    EXPECT_EQ(reader.DeleteValue(L"n"), ERROR_ACCESS_DENIED);
    DWORD read = 0;
    EXPECT_EQ(reader.QueryDWORD(L"n", read), ERROR_SUCCESS);
    EXPECT_EQ(read, 1U);
}

TEST_F(Registry, DeleteTreeTakesEverythingBelow) {
    registry_key deep;
    ASSERT_EQ(deep.Create(HKEY_CURRENT_USER, below(L"tree\\a\\b")), ERROR_SUCCESS);
    ASSERT_EQ(deep.SetDWORD(L"n", 1), ERROR_SUCCESS);
    EXPECT_EQ(registry_key::DeleteTree(HKEY_CURRENT_USER, below(L"tree")), ERROR_SUCCESS);
    registry_key gone;
    EXPECT_EQ(gone.Open(HKEY_CURRENT_USER, below(L"tree"), KEY_READ), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(registry_key::DeleteTree(HKEY_CURRENT_USER, below(L"tree")), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(deep.SetDWORD(L"n", 2), ERROR_KEY_DELETED);
    ASSERT_EQ(gone.Create(HKEY_CURRENT_USER, below(L"tree\\a\\b")), ERROR_SUCCESS);
    DWORD read = 0;
    EXPECT_EQ(gone.QueryDWORD(L"n", read), ERROR_FILE_NOT_FOUND) << "a key made anew is empty";
    EXPECT_EQ(deep.SetDWORD(L"n", 2), ERROR_KEY_DELETED) << "the old handle is not the new key";
}

TEST_F(Registry, DeleteTreeOfARootIsRefused) {
    EXPECT_EQ(registry_key::DeleteTree(key().get(), L""), ERROR_INVALID_PARAMETER);
    registry_key still;
    EXPECT_EQ(still.Open(HKEY_CURRENT_USER, m_test.path(), KEY_READ), ERROR_SUCCESS);
}

TEST_F(Registry, AClosedKeyRefusesEverything) {
    registry_key closed;
    DWORD number = 0;
    EXPECT_EQ(closed.QueryDWORD(L"n", number), ERROR_INVALID_HANDLE);
    EXPECT_EQ(closed.SetDWORD(L"n", 1), ERROR_INVALID_HANDLE);
    EXPECT_EQ(closed.QueryInfo(number, number), ERROR_INVALID_HANDLE);
}

TEST_F(Registry, ClosingKeepsTheLastError) {
    registry_key child;
    ASSERT_EQ(child.Create(key().get(), L"c"), ERROR_SUCCESS);
    SetLastError(1234);
    child.Close();
    EXPECT_EQ(GetLastError(), 1234U);
    EXPECT_EQ(child.get(), nullptr);
}

TEST_F(Registry, AMovedKeyHasOneOwner) {
    registry_key first;
    ASSERT_EQ(first.Create(key().get(), L"c"), ERROR_SUCCESS);
    const HKEY handle = first.get();
    registry_key second(std::move(first));
    EXPECT_EQ(second.get(), handle);
    registry_key third;
    third = std::move(second);
    EXPECT_EQ(third.get(), handle);
    EXPECT_EQ(third.SetDWORD(L"n", 1), ERROR_SUCCESS);
}

TEST_F(Registry, ClassesRootIsReadable) {
    registry_key root;
    EXPECT_EQ(root.Open(HKEY_CLASSES_ROOT, L"CLSID\\{no such class}", KEY_READ), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(root.Open(HKEY_CLASSES_ROOT, L"", KEY_READ), ERROR_SUCCESS);
}

// Adds one to a number that it finds, in a key that it is told.
CHILD_MAIN(count_up) {
    registry_key key;
    DWORD number = 0;
    if (key.Open(HKEY_CURRENT_USER, CString(arguments[0].begin(), arguments[0].end())) != ERROR_SUCCESS ||
        key.QueryDWORD(L"n", number) != ERROR_SUCCESS) {
        return 1;
    }
    return key.SetDWORD(L"n", number + 1) == ERROR_SUCCESS ? 0 : 1;
}

TEST_F(Registry, ProcessesSeeEachOthersValuesAtOnce) {
    ASSERT_EQ(key().SetDWORD(L"n", 41), ERROR_SUCCESS);
    std::string path;
    for (const wchar_t each : m_test.path()) {
        path += static_cast<char>(each);
    }
    EXPECT_EQ(test_support::child_process("count_up", {path}).wait(), 0);
    DWORD read = 0;
    EXPECT_EQ(key().QueryDWORD(L"n", read), ERROR_SUCCESS);
    EXPECT_EQ(read, 42U);
}

TEST_F(Registry, ManyThreadsWriteSideBySide) {
    std::vector<std::thread> threads;
    for (DWORD t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            registry_key mine;
            EXPECT_EQ(mine.Create(HKEY_CURRENT_USER, m_test.path() + L"\\t" + std::to_wstring(t)),
                      ERROR_SUCCESS);
            for (DWORD i = 0; i < 20; ++i) {
                EXPECT_EQ(mine.SetDWORD(std::to_wstring(i), t * 100 + i), ERROR_SUCCESS);
            }
        });
    }
    for (std::thread& each : threads) {
        each.join();
    }
    DWORD subkeys = 0;
    DWORD values = 0;
    ASSERT_EQ(key().QueryInfo(subkeys, values), ERROR_SUCCESS);
    EXPECT_EQ(subkeys, 4U);
    for (DWORD t = 0; t < 4; ++t) {
        registry_key theirs;
        ASSERT_EQ(theirs.Open(key().get(), L"t" + std::to_wstring(t), KEY_READ), ERROR_SUCCESS);
        DWORD read = 0;
        EXPECT_EQ(theirs.QueryDWORD(L"19", read), ERROR_SUCCESS);
        EXPECT_EQ(read, t * 100 + 19);
    }
}

}  // namespace
