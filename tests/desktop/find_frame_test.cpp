#include "platform/win32/find_frame.h"

#include <gtest/gtest.h>

#include "platform/desktop.h"
#include "tests/desktop/foreign_process.h"

namespace {

using platform::win32::examine_window;
using platform::win32::frame_search;

constexpr wchar_t s_frame_class[] = L"ATL_QVMDIMainFrame";

// A window out of everybody's sight, of a class of its own.
class hidden_window {
public:
    explicit hidden_window(const wchar_t* name) : m_name(name) {
        WNDCLASSW window_class{};
        window_class.lpfnWndProc = DefWindowProcW;
        window_class.hInstance = GetModuleHandleW(nullptr);
        window_class.lpszClassName = name;
        RegisterClassW(&window_class);
        m_handle = CreateWindowExW(0, name, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, window_class.hInstance,
                                   nullptr);
    }
    ~hidden_window() {
        DestroyWindow(m_handle);
        UnregisterClassW(m_name, GetModuleHandleW(nullptr));
    }
    hidden_window(const hidden_window&) = delete;
    hidden_window& operator=(const hidden_window&) = delete;

    HWND handle() const { return m_handle; }

private:
    const wchar_t* m_name;
    HWND m_handle = nullptr;
};

TEST(FindFrame, TakesAWindowOfThisProcessWithTheFrameClassAndStops) {
    const hidden_window frame(s_frame_class);
    ASSERT_NE(frame.handle(), nullptr);
    frame_search search;
    EXPECT_FALSE(examine_window(frame.handle(), search));
    EXPECT_EQ(search.result, frame.handle());
}

TEST(FindFrame, GoesOnAtAnotherClass) {
    for (const wchar_t* name : {L"ATL_QVMDIMainFram", L"ATL_QVMDIMainFrame2", L"atl_qvmdimainframe"}) {
        const hidden_window other(name);
        ASSERT_NE(other.handle(), nullptr);
        frame_search search;
        EXPECT_TRUE(examine_window(other.handle(), search));
        EXPECT_EQ(search.result, nullptr);
    }
}

TEST(FindFrame, GoesOnAtAWindowThatIsNoMore) {
    HWND gone = nullptr;
    {
        const hidden_window frame(s_frame_class);
        gone = frame.handle();
    }
    frame_search search;
    EXPECT_TRUE(examine_window(gone, search));
    EXPECT_EQ(search.result, nullptr);
}

TEST(FindFrame, DoesNotTakeAWindowOfAnotherProcess) {
    const test::foreign_process other;
    const HWND window = other.hidden_window();
    ASSERT_NE(window, nullptr);
    frame_search search;
    EXPECT_TRUE(examine_window(window, search));
    EXPECT_EQ(search.result, nullptr);
}

TEST(FindFrame, SecondModeWantsAnotherThreadAndTheUserData) {
    const hidden_window window(L"orderdeck_any_class");
    SetWindowLongPtrW(window.handle(), GWLP_USERDATA, 0x1234);
    frame_search search;
    search.mode = frame_search::user_data;
    search.value = 0x1234;
    search.thread = GetCurrentThreadId();
    EXPECT_TRUE(examine_window(window.handle(), search));
    search.thread = GetCurrentThreadId() + 1;
    EXPECT_FALSE(examine_window(window.handle(), search));
    EXPECT_EQ(search.result, window.handle());

    frame_search other_value = search;
    other_value.result = nullptr;
    other_value.value = 0x1235;
    EXPECT_TRUE(examine_window(window.handle(), other_value));
    EXPECT_EQ(other_value.result, nullptr);
}

TEST(FindFrame, WithNoFrameTheDesktopGivesNone) {
    EXPECT_EQ(platform::port<platform::desktop>::system().main_frame(), nullptr);
}

}  // namespace
