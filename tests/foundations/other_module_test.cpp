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

}  // namespace
