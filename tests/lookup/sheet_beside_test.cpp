// A property sheet library that lies beside the program is found without being told of.
#include <gtest/gtest.h>

#include "charting/orderdeck/src/lookup/QVResizablePropSheetWrap.h"
#include "platform/module.h"

namespace {

TEST(property_sheet_beside_the_program, is_loaded_on_first_use) {
    ASSERT_EQ(platform::find_loaded_library(L"PropDS2_x64.dll"), nullptr);
    OV_OrderDeck::CQVResizablePropSheetWrap wrap;
    // Of the library's own export: nobody told it how to make a sheet.
    EXPECT_EQ(wrap.CreateSheet(), E_UNEXPECTED);
    EXPECT_EQ(wrap.get_Sheet(), nullptr);
    EXPECT_NE(platform::find_loaded_library(L"PropDS2_x64.dll"), nullptr);
}

}  // namespace
