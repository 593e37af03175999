// The messages of a tab: whose they are, and that the host knows of them as long as they are shown.
#include <gtest/gtest.h>

#include "tests/support/fake_services.h"
#include "tests/tab/symbol_control_fixture.h"

namespace OV_OrderDeck {
namespace {

using test::calls;

class tab_message : public test::symbol_control {
protected:
    tab_message() {
        frame = desktop.make_window();
        desktop.set_main_frame(frame);
        desktop.set_active_window(desktop.make_window());
        const HWND window = desktop.make_window();
        global->put_Hwnd(window);
        global->put_OnCommand(platform::make_com<test::FakeOnCommand>(host).get());
        unlocked = "OnCommand.Execute(5, " +
                   std::to_string(static_cast<LONG>(reinterpret_cast<INT_PTR>(window))) + ")";
        desktop.while_modal([this] { host.note("shown"); });
    }

    void expect_owner_and_caption() {
        ASSERT_EQ(1u, desktop.message_boxes().size());
        EXPECT_EQ(frame, desktop.message_boxes()[0].owner);
        EXPECT_EQ(L"tab_tests", desktop.message_boxes()[0].caption);
    }

    HWND frame = nullptr;
    std::string unlocked;
};

TEST_F(tab_message, about_a_price_is_the_main_windows_and_ends_before_the_focus_is_set) {
    put_symbol(L"ESZ6");
    field(eODUE_OrderType).Select(eMTPA_OC_Stop);
    reset_record();
    tab->_on_place_order(eMTPA_OA_Buy);
    expect_owner_and_caption();
    EXPECT_EQ((calls{"OnCommand.Execute(4, empty)", "shown", unlocked, "TabCtrl.SetFocus(1, 0x400)"}),
              host.calls());
}

TEST_F(tab_message, that_offers_to_connect_is_the_main_windows_and_ends_before_the_profile_connects) {
    disconnect();
    control().LookupByText(L"ESZ6", false, true);
    desktop.answer_message_box(IDYES);
    reset_record();
    control().LookupByText(L"ESZ6", true, true);
    expect_owner_and_caption();
    EXPECT_EQ((calls{"Lookup.GetSymbolInfo(\"ESZ6\", 1, \"ESZ6\")", "OnCommand.Execute(4, empty)", "shown",
                     unlocked, "Profile(\"Alpha\").get_ConnectionState()", "Profile(\"Alpha\").Connect()"}),
              host.calls());
}

TEST_F(tab_message, that_asks_the_user_to_type_is_the_main_windows) {
    answer(eODLR_NotSupported);
    reset_record();
    control().LookupWithDialog();
    expect_owner_and_caption();
    const calls shown = host.calls();
    ASSERT_LE(3u, shown.size());
    EXPECT_EQ((calls{"OnCommand.Execute(4, empty)", "shown", unlocked}), calls(shown.end() - 3, shown.end()));
}

}  // namespace
}  // namespace OV_OrderDeck
