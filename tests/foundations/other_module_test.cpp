// Texts of a module that is named.
#include <gtest/gtest.h>

#include "tests/support/diagnostics_recorder.h"
#include "unicomp/Simples/interface/resource_string.h"

namespace {

using resource_string::resourse_2_string_impl;

TEST(OtherModule, ANamedModulesTableIsReadAndNotTheComponents) {
    diagnostics_recorder recorder;
    EXPECT_EQ(resourse_2_string_impl<CString>(100, GetModuleHandleW(nullptr)), L"OrderDeck");
    EXPECT_EQ(platform::text_of(resourse_2_string_impl<_bstr_t>(100, GetModuleHandleW(nullptr))),
              L"OrderDeck");
    EXPECT_TRUE(recorder.assertions().empty());
    EXPECT_EQ(resourse_2_string_impl<CString>(100, GetModuleHandleW(L"advapi32.dll")), L"");
    ASSERT_EQ(recorder.assertions().size(), 1U);
    EXPECT_EQ(recorder.assertions()[0].description, L"0");
}

BOOL CALLBACK count_languages(HMODULE, LPCWSTR, LPCWSTR, WORD, LONG_PTR count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

BOOL CALLBACK expect_one_language(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR blocks) {
    int languages = 0;
    EnumResourceLanguagesW(module, type, name, &count_languages, reinterpret_cast<LONG_PTR>(&languages));
    EXPECT_EQ(languages, 1) << "texts from " << (reinterpret_cast<ULONG_PTR>(name) - 1) * 16;
    ++*reinterpret_cast<int*>(blocks);
    return TRUE;
}

TEST(Translations, TheTextsHaveOneWhateverTheThreadsLanguage) {
    int blocks = 0;
    EnumResourceNamesW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(6), &expect_one_language,
                       reinterpret_cast<LONG_PTR>(&blocks));
    EXPECT_GE(blocks, 4) << "where strings 100 to 142 stand";
    const LANGID before = GetThreadUILanguage();
    for (const LANGID language : std::initializer_list<LANGID>{0x0409, 0x0407, 0x0804}) {
        SetThreadUILanguage(language);
        EXPECT_EQ(resourse_2_string_impl<CString>(138), L"買進") << language;
    }
    SetThreadUILanguage(before);
}

}  // namespace
