// The bridge to the optional property sheet library.
#include <gmock/gmock.h>

#include <filesystem>
#include <iostream>

#include "charting/orderdeck/src/lookup/QVResizablePropSheetWrap.h"
#include "platform/module.h"
#include "tests/lookup/fake_sheet.h"
#include "tests/support/child_process.h"

namespace {

using OV_OrderDeck::CQVPropDSDllCaller;
using OV_OrderDeck::CQVPropSheetWrapBase;
using OV_OrderDeck::CQVResizablePropSheetWrap;
using testing::ElementsAre;

static_assert(std::is_base_of_v<CQVPropDSDllCaller, CQVPropSheetWrapBase>);
static_assert(std::is_base_of_v<CQVPropSheetWrapBase, CQVResizablePropSheetWrap>);
static_assert(std::is_abstract_v<CQVPropSheetWrapBase>);

// What a process without the library of the fake sheets sees.
int make_a_sheet() {
    CQVResizablePropSheetWrap wrap;
    const auto hr = static_cast<unsigned>(wrap.CreateSheet());
    std::cout << std::hex << hr << (wrap.get_Sheet() == nullptr ? " empty" : " sheet") << '\n' << std::flush;
    return 0;
}

// A library of the name lies in the current folder, where anybody may have put it.
CHILD_MAIN(sheet_without_library) {
    const std::filesystem::path program(platform::program_path());
    std::filesystem::current_path(program.parent_path() / "sheet_library");
    return make_a_sheet();
}

CHILD_MAIN(sheet_of_other_library) {
    platform::load_library(platform::folder_of(platform::program_path()) + L"other_library/PropDS2_x64.dll");
    return make_a_sheet();
}

TEST(property_sheet, without_the_library_there_is_no_sheet_even_if_one_lies_in_the_current_folder) {
    test_support::child_process child("sheet_without_library");
    EXPECT_EQ(child.read_line(), "8007007e empty");
    EXPECT_EQ(child.wait(), 0);
}

TEST(property_sheet, a_library_without_the_export_makes_none) {
    test_support::child_process child("sheet_of_other_library");
    EXPECT_EQ(child.read_line(), "8007007f empty");
    EXPECT_EQ(child.wait(), 0);
}

class loaded_property_sheet : public testing::Test {
protected:
    test::fake_host host;
    std::shared_ptr<test::dialog_plan> plan = std::make_shared<test::dialog_plan>();
    test::sheet_library_scope library{host, plan};
};

TEST_F(loaded_property_sheet, is_made_once) {
    CQVResizablePropSheetWrap wrap;
    EXPECT_EQ(wrap.get_Sheet(), nullptr);
    EXPECT_EQ(wrap.CreateSheet(), S_OK);
    IQVPropertySheet* const sheet = wrap.get_Sheet();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(wrap.CreateSheet(), S_OK);
    EXPECT_EQ(wrap.get_Sheet(), sheet);
    EXPECT_THAT(host.calls(), ElementsAre("Library.CreateResizablePropertySheet()"));
}

TEST_F(loaded_property_sheet, a_library_that_fails_gives_its_result_and_is_tried_again) {
    CQVResizablePropSheetWrap wrap;
    plan->sheet_result = E_ACCESSDENIED;
    const LONG before = platform::module_lock_count();
    EXPECT_EQ(wrap.CreateSheet(), E_ACCESSDENIED);
    EXPECT_EQ(wrap.get_Sheet(), nullptr);
    EXPECT_EQ(platform::module_lock_count(), before) << "what it gave all the same is released";
    plan->sheet_result = S_OK;
    EXPECT_EQ(wrap.CreateSheet(), S_OK);
    EXPECT_NE(wrap.get_Sheet(), nullptr);
}

TEST_F(loaded_property_sheet, an_object_without_the_interface_gives_the_result_of_the_query) {
    CQVResizablePropSheetWrap wrap;
    const LONG before = platform::module_lock_count();
    plan->refused = {{test::id_text(__uuidof(IQVPropertySheet)), E_NOINTERFACE}};
    EXPECT_EQ(wrap.CreateSheet(), E_NOINTERFACE);
    EXPECT_EQ(wrap.get_Sheet(), nullptr);
    EXPECT_EQ(platform::module_lock_count(), before);
}

TEST_F(loaded_property_sheet, a_library_that_succeeds_with_nothing_is_no_crash) {
    CQVResizablePropSheetWrap wrap;
    plan->makes_sheet = false;
    EXPECT_EQ(wrap.CreateSheet(), E_POINTER);
    EXPECT_EQ(wrap.get_Sheet(), nullptr);
}

TEST_F(loaded_property_sheet, is_released_with_its_wrap) {
    const LONG before = platform::module_lock_count();
    {
        CQVResizablePropSheetWrap wrap;
        EXPECT_EQ(wrap.CreateSheet(), S_OK);
        EXPECT_EQ(platform::module_lock_count(), before + 1);
    }
    EXPECT_EQ(platform::module_lock_count(), before);
}

}  // namespace
