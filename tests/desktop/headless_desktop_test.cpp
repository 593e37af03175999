#include "platform/headless_desktop.h"

#include <gtest/gtest.h>

#include "tests/support/recording_desktop.h"

namespace {

TEST(HeadlessDesktop, KnowsOnlyTheWindowsItWasToldOf) {
    platform::headless_desktop desktop;
    EXPECT_FALSE(desktop.is_window(nullptr));
    const HWND first = desktop.make_window(L"one");
    const HWND second = desktop.make_window();
    EXPECT_NE(first, second);
    EXPECT_TRUE(desktop.is_window(first));
    EXPECT_EQ(desktop.window_text(first), L"one");
    desktop.set_window_text(second, L"two");
    EXPECT_EQ(desktop.window_text(second), L"two");
    desktop.destroy_window(first);
    EXPECT_FALSE(desktop.is_window(first));
    desktop.set_window_text(first, L"gone");
    EXPECT_EQ(desktop.window_text(first), L"");
}

TEST(HeadlessDesktop, RecordsAMessageBoxAndAnswersInOrderThenOk) {
    platform::headless_desktop desktop;
    const HWND owner = desktop.make_window();
    desktop.answer_message_box(IDNO);
    EXPECT_EQ(desktop.message_box(owner, L"text", L"caption", MB_YESNO), IDNO);
    EXPECT_EQ(desktop.message_box(owner, L"text", L"caption", MB_OK), IDOK);
    ASSERT_EQ(desktop.message_boxes().size(), 2U);
    const auto shown = desktop.message_boxes().front();
    EXPECT_EQ(shown.owner, owner);
    EXPECT_EQ(shown.text, L"text");
    EXPECT_EQ(shown.caption, L"caption");
    EXPECT_EQ(shown.flags, MB_YESNO);
}

TEST(HeadlessDesktop, AMenuIsDismissedUntilToldOtherwise) {
    platform::headless_desktop desktop;
    EXPECT_EQ(desktop.popup_menu(nullptr, {{1, L"a", true}}, {10, 20}), 0U);
    desktop.answer_menu(1);
    EXPECT_EQ(desktop.popup_menu(nullptr, {{1, L"a", true}}, {10, 20}), 1U);
    ASSERT_EQ(desktop.menus().size(), 2U);
    EXPECT_EQ(desktop.menus()[0].items.front().text, L"a");
    EXPECT_EQ(desktop.menus()[0].at.y, 20);
}

TEST(HeadlessDesktop, ARefusedMenuRaisesEFail) {
    platform::headless_desktop desktop;
    desktop.refuse_menus(true);
    try {
        desktop.popup_menu(nullptr, {}, {});
        FAIL() << "no error was raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_FAIL);
    }
}

TEST(HeadlessDesktop, RunsTheModalActionWhileABoxIsUp) {
    platform::headless_desktop desktop;
    std::size_t boxes_seen = 0;
    desktop.while_modal([&] { boxes_seen = desktop.message_boxes().size(); });
    desktop.message_box(nullptr, {}, {}, 0);
    EXPECT_EQ(boxes_seen, 1U);
}

TEST(HeadlessDesktop, RecordsMessagesAndAnswersThem) {
    platform::headless_desktop desktop;
    const HWND window = desktop.make_window();
    desktop.answer_messages(7);
    EXPECT_EQ(desktop.send_message(window, 1702, 1, 2), 7);
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.messages()[0].window, window);
    EXPECT_EQ(desktop.messages()[0].message, 1702U);
    EXPECT_EQ(desktop.messages()[0].wParam, 1U);
    EXPECT_EQ(desktop.messages()[0].lParam, 2);
    desktop.forget();
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_TRUE(desktop.is_window(window));
}

TEST(RecordingDesktop, StandsInForTheSystemsDesktop) {
    test::recording_desktop desktop;
    EXPECT_EQ(&platform::port<platform::desktop>::get(), static_cast<platform::desktop*>(&desktop));
}

}  // namespace
