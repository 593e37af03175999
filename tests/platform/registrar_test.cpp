#include "platform/registrar.h"

#include <gmock/gmock.h>

#include "tests/support/failing_registry.h"

namespace {

using platform::registrar;
using platform::registry_key;
using testing::IsEmpty;

constexpr wchar_t users_classes[] = L"Software\\Classes\\";
// One key for all that these tests leave, and one that bears it.
constexpr wchar_t test_key[] = L"OrderDeckRegistrarTests";

std::wstring in_user(const std::wstring& path) {
    return users_classes + std::wstring(test_key) + path;
}

bool exists(const std::wstring& path) {
    registry_key key;
    return key.Open(HKEY_CURRENT_USER, in_user(path), KEY_READ) == ERROR_SUCCESS;
}

std::wstring text_at(HKEY root, const std::wstring& path, const wchar_t* name) {
    registry_key key;
    wchar_t text[128] = {};
    DWORD type = 0;
    DWORD bytes = sizeof(text) - sizeof(wchar_t);
    if (key.Open(root, path, KEY_READ) != ERROR_SUCCESS ||
        key.QueryValue(name, type, reinterpret_cast<BYTE*>(text), bytes) != ERROR_SUCCESS || type != REG_SZ) {
        return L"(none)";
    }
    return text;
}

class Registrar : public testing::Test {
protected:
    Registrar() { forget(); }
    ~Registrar() override { forget(); }

    static void forget() {
        registry_key::DeleteTree(HKEY_CURRENT_USER, in_user({}));
        registry_key::DeleteTree(HKEY_CLASSES_ROOT, test_key);
    }

    static std::wstring script(const std::wstring& body) {
        return L"HKCR\n{\n\tNoRemove " + std::wstring(test_key) + L"\n\t{\n" + body + L"\n\t}\n}\n";
    }

    static std::wstring text(const std::wstring& path, const wchar_t* name) {
        return text_at(HKEY_CURRENT_USER, in_user(path), name);
    }

    registrar m_registrar;
};

TEST_F(Registrar, WritesKeysDefaultValuesAndNamedValues) {
    const std::wstring body = L"Plain = s text 'A key' = s 'a text' { val Named = s '{braces}' Below { } }";
    EXPECT_EQ(m_registrar.Register(script(body)), S_OK);
    EXPECT_EQ(text(L"\\Plain", L""), L"text");
    EXPECT_EQ(text(L"\\A key", L""), L"a text");
    EXPECT_EQ(text(L"\\A key", L"Named"), L"{braces}");
    EXPECT_TRUE(exists(L"\\A key\\Below"));
}

TEST_F(Registrar, ReplacesNamesInKeysAndValues) {
    m_registrar.AddReplacement(L"ID", L"{7}");
    m_registrar.AddReplacement(L"NAME", L"100% of it");
    EXPECT_EQ(m_registrar.Register(script(L"'%ID%' = s 'it is %NAME% %ID%' { val %ID% = s x }")), S_OK);
    EXPECT_EQ(text(L"\\{7}", L""), L"it is 100% of it {7}");
    EXPECT_EQ(text(L"\\{7}", L"{7}"), L"x");
}

TEST_F(Registrar, WritesTheClassesOfTheMachineWhenToldSo) {
    EXPECT_EQ(registrar(registrar::scope::machine).Register(script(L"Key = s text")), S_OK);
    EXPECT_EQ(text_at(HKEY_CLASSES_ROOT, std::wstring(test_key) + L"\\Key", L""), L"text");
    EXPECT_FALSE(exists(L""));
}

TEST_F(Registrar, AForcedKeyStartsEmptyAndAnotherKeepsWhatItHas) {
    ASSERT_EQ(m_registrar.Register(script(L"Forced { Old } Kept { Old }")), S_OK);
    ASSERT_EQ(m_registrar.Register(script(L"ForceRemove Forced { New } Kept { New }")), S_OK);
    EXPECT_FALSE(exists(L"\\Forced\\Old"));
    EXPECT_TRUE(exists(L"\\Forced\\New"));
    EXPECT_TRUE(exists(L"\\Kept\\Old"));
    EXPECT_TRUE(exists(L"\\Kept\\New"));
}

TEST_F(Registrar, UnregisteringLeavesKeysOfOthersAndTheKeysAboveThem) {
    const std::wstring own = script(L"ForceRemove Forced Shared { Own }");
    ASSERT_EQ(m_registrar.Register(own), S_OK);
    ASSERT_EQ(m_registrar.Register(script(L"Forced { Foreign } Shared { Foreign }")), S_OK);
    EXPECT_EQ(m_registrar.Unregister(own), S_OK);
    EXPECT_FALSE(exists(L"\\Forced"));
    EXPECT_FALSE(exists(L"\\Shared\\Own"));
    EXPECT_TRUE(exists(L"\\Shared\\Foreign"));
    ASSERT_EQ(m_registrar.Unregister(script(L"Shared { Foreign }")), S_OK);
    EXPECT_FALSE(exists(L""));
}

TEST_F(Registrar, AKeyThatIsNotToBeRemovedGoesOnlyWithNothingInIt) {
    const std::wstring own = script(L"Own");
    ASSERT_EQ(m_registrar.Register(own), S_OK);
    {
        registry_key key;
        ASSERT_EQ(key.Create(HKEY_CURRENT_USER, in_user({})), ERROR_SUCCESS);
        ASSERT_EQ(key.SetString(L"Foreign", L"value"), ERROR_SUCCESS);
    }
    EXPECT_EQ(m_registrar.Unregister(own), S_OK);
    EXPECT_FALSE(exists(L"\\Own"));
    EXPECT_TRUE(exists(L""));
}

TEST_F(Registrar, UnregisteringWhatIsNotThereIsFine) {
    EXPECT_EQ(m_registrar.Unregister(script(L"Never { There } ForceRemove NorThis")), S_OK);
}

TEST_F(Registrar, AScriptThatCannotBeReadChangesNothing) {
    const std::wstring a_key = L"Key = s text ";
    const std::vector<std::wstring> scripts = {
        L"",
        L"HKLM { Key }",
        L"HKCR",
        L"HKCR {",
        L"HKCR { } more",
        script(a_key + L"= s nameless"),
        script(a_key + L"ForceRemove { }"),
        script(a_key + L"val Named s text"),
        script(a_key + L"Numbered = d 7"),
        script(a_key + L"Cut ="),
        script(a_key + L"'open"),
        script(a_key + L"'%UNKNOWN%'"),
        script(a_key + L"'%open'"),
    };
    for (const std::wstring& each : scripts) {
        const failing_registry registry;
        EXPECT_EQ(m_registrar.Register(each), DISP_E_EXCEPTION) << testing::PrintToString(each);
        EXPECT_EQ(m_registrar.Unregister(each), DISP_E_EXCEPTION) << testing::PrintToString(each);
        EXPECT_THAT(registry.calls(), IsEmpty()) << testing::PrintToString(each);
    }
}

TEST_F(Registrar, AFailureOfTheRegistryStopsTheScriptAndIsItsResult) {
    for (const char* const operation : {"create_key", "set_value"}) {
        failing_registry registry;
        registry.fail(operation, ERROR_ACCESS_DENIED, 2);
        EXPECT_EQ(m_registrar.Register(script(L"First = s text Second = s text Third = s text")),
                  E_ACCESSDENIED)
            << operation;
        EXPECT_FALSE(exists(L"\\Third")) << operation;
    }
    failing_registry registry;
    registry.fail("delete_tree", ERROR_ACCESS_DENIED);
    EXPECT_EQ(m_registrar.Unregister(script(L"First")), E_ACCESSDENIED);
}

}  // namespace
