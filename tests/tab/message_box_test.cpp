#include "charting/orderdeck/src/tab/MessageBox.h"

#include <gtest/gtest.h>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "platform/resources.h"
#include "tests/support/fake_host.h"
#include "tests/support/recording_desktop.h"

namespace OV_OrderDeck {
namespace {

class message : public ::testing::Test {
protected:
    test::com_apartment apartment;
    test::fake_host host;
    test::recording_desktop desktop;
    CGlobalData global;
};

TEST_F(message, is_owned_by_the_hosts_main_window_under_the_products_name) {
    const HWND frame = desktop.make_window();
    desktop.set_main_frame(frame);
    desktop.set_active_window(desktop.make_window());
    desktop.answer_message_box(IDYES);
    EXPECT_EQ(IDYES, OrderDeckMessageBox(L"text", MB_YESNO));
    ASSERT_EQ(1u, desktop.message_boxes().size());
    const auto shown = desktop.message_boxes()[0];
    EXPECT_EQ(frame, shown.owner);
    EXPECT_EQ(L"text", shown.text);
    EXPECT_EQ(L"tab_tests", shown.caption);
    EXPECT_EQ(static_cast<UINT>(MB_YESNO), shown.flags);
}

TEST_F(message, without_a_main_window_is_owned_by_the_active_one) {
    const HWND active = desktop.make_window();
    desktop.set_active_window(active);
    OrderDeckMessageBox(L"text", 0);
    ASSERT_EQ(1u, desktop.message_boxes().size());
    EXPECT_EQ(active, desktop.message_boxes()[0].owner);
    EXPECT_EQ(0u, desktop.message_boxes()[0].flags);
}

TEST_F(message, the_host_knows_of_it_as_long_as_it_is_shown) {
    const auto sink = platform::make_com<test::FakeOnCommand>(host);
    const HWND bar = desktop.make_window();
    global->put_OnCommand(sink.get());
    global->put_Hwnd(bar);
    desktop.while_modal([this] { host.note("shown"); });
    OrderDeckMessageBox(L"text", 0);
    const auto handle = static_cast<LONG>(reinterpret_cast<INT_PTR>(bar));
    EXPECT_EQ((std::vector<std::string>{"OnCommand.Execute(4, empty)", "shown",
                                        "OnCommand.Execute(5, " + std::to_string(handle) + ")"}),
              host.calls());
}

TEST_F(message, without_a_command_sink_is_shown_all_the_same) {
    OrderDeckMessageBox(L"text", 0);
    EXPECT_EQ(1u, desktop.message_boxes().size());
    EXPECT_TRUE(host.calls().empty());
}

}  // namespace
}  // namespace OV_OrderDeck
