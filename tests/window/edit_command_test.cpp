#include "unicomp/wtlcontrols/EditCommand/EditCommand.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/win32/frame/module_instance.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/message_spy.h"

namespace {

class recording_sink final : public WTLControls::IEditCommandSink2 {
public:
    std::vector<std::string> calls;
    // Runs at each press.
    std::function<void()> on_button;
    void OnButtonPressed(LONG id) override {
        calls.push_back("button " + std::to_string(id));
        if (on_button) {
            on_button();
        }
    }
    void OnEditSetFocus(LONG id) override { calls.push_back("focus " + std::to_string(id)); }
    void OnEditEnd(LONG id, bool accepted) override {
        calls.push_back((accepted ? "enter " : "esc ") + std::to_string(id));
    }
    void OnEditKillFocus(LONG id) override { calls.push_back("left " + std::to_string(id)); }
};

using calls = std::vector<std::string>;

class EditCommand : public testing::Test {
protected:
    EditCommand() {
        parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 50, 50, 300, 60, nullptr, nullptr,
                                 frame::module_instance(), nullptr);
        window = CreateWindowExW(0, L"EDIT", L"text", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 10, 10, 150,
                                 24, parent, nullptr, frame::module_instance(), nullptr);
        other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 200, 10, 50, 24, parent, nullptr,
                                frame::module_instance(), nullptr);
        below.SubclassWindow(window);
        edit.SubclassWindow(window);
        edit.CreateButton(203, 232);
        SetActiveWindow(parent);
        SetFocus(other);
        sink.calls.clear();
    }
    ~EditCommand() override { DestroyWindow(parent); }

    HWND button() const { return edit.get_Button(); }
    RECT place() const {
        RECT at = {};
        GetWindowRect(button(), &at);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&at), 2);
        return at;
    }
    // The button as it draws itself now.
    std::vector<COLORREF> picture() const {
        const HDC screen = GetDC(button());
        const HDC memory = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, 16, 16);
        const HGDIOBJ old = SelectObject(memory, bitmap);
        SendMessageW(button(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory), 0);
        std::vector<COLORREF> pixels;
        for (int i = 0; i < 256; ++i) {
            pixels.push_back(GetPixel(memory, i % 16, i / 16));
        }
        SelectObject(memory, old);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(button(), screen);
        return pixels;
    }

    // The button as it stands on the screen.
    std::vector<COLORREF> shown() const {
        const HDC dc = GetDC(window);
        const RECT at = place();
        std::vector<COLORREF> pixels;
        for (LONG i = 0; i < 256; ++i) {
            pixels.push_back(GetPixel(dc, at.left + i % 16, at.top + i / 16));
        }
        ReleaseDC(window, dc);
        return pixels;
    }
    void mouse_over() const {
        POINT over = {5, 5};
        ClientToScreen(button(), &over);
        SetCursorPos(over.x, over.y);
        SendMessageW(button(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    }
    void press() const { SendMessageW(button(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5)); }
    void release(int x = 5, int y = 5) const { SendMessageW(button(), WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }
    void draw_all() const {
        RedrawWindow(parent, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }

    diagnostics_recorder reports;
    recording_sink sink;
    HWND parent = nullptr;
    HWND window = nullptr;
    HWND other = nullptr;
    // What the command edit leaves to the edit.
    message_spy below;
    WTLControls::CEditCommandCtrlWnd2 edit{sink, 203};
};

TEST_F(EditCommand, TellsOfTheFocus) {
    SetFocus(window);
    SetFocus(other);
    EXPECT_EQ(sink.calls, (calls{"focus 203", "left 203"}));
}

TEST_F(EditCommand, TellsOfEnterAndEscAndLetsOtherKeysPass) {
    SendMessageW(window, WM_KEYDOWN, VK_RETURN, 1);
    SendMessageW(window, WM_KEYDOWN, VK_ESCAPE, 1);
    SendMessageW(window, WM_KEYDOWN, 'A', 1);
    SendMessageW(window, WM_KEYDOWN, VK_TAB, 1);
    EXPECT_EQ(sink.calls, (calls{"enter 203", "esc 203"}));
}

TEST_F(EditCommand, TheEditHearsOfTheFocusAndOfEveryKeyToo) {
    below.heard.clear();
    SetFocus(window);
    SetFocus(other);
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE, 'A' + 0}) {
        SendMessageW(window, WM_KEYDOWN, key, 1);
    }
    EXPECT_EQ(below.count(WM_SETFOCUS), 1);
    EXPECT_EQ(below.count(WM_KILLFOCUS), 1);
    EXPECT_EQ(below.count(WM_KEYDOWN), 3);
}

TEST_F(EditCommand, APaintIsTheEditsAndItsAnswerIsZero) {
    below.answers[WM_PAINT] = [](WPARAM, LPARAM) { return 7; };
    below.heard.clear();
    EXPECT_EQ(SendMessageW(window, WM_PAINT, 0, 0), 0);
    EXPECT_EQ(below.count(WM_PAINT), 1);
}

TEST_F(EditCommand, TakesEnterAndEscFromADialog) {
    EXPECT_EQ(SendMessageW(window, WM_GETDLGCODE, VK_RETURN, 0), DLGC_WANTALLKEYS);
    EXPECT_EQ(SendMessageW(window, WM_GETDLGCODE, VK_ESCAPE, 0), DLGC_WANTALLKEYS);
    EXPECT_NE(SendMessageW(window, WM_GETDLGCODE, VK_TAB, 0), DLGC_WANTALLKEYS);
    EXPECT_NE(SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL, 0) << "an edit all the same";
}

TEST_F(EditCommand, KeepsItsButtonSixteenWideAtItsRightEnd) {
    for (const int width : {150, 90, 41}) {
        MoveWindow(window, 10, 10, width, 24, TRUE);
        RECT client = {};
        GetClientRect(window, &client);
        EXPECT_EQ(place().right, client.right);
        EXPECT_EQ(place().left, client.right - 16);
        EXPECT_EQ(place().bottom - place().top, client.bottom);
    }
}

TEST_F(EditCommand, APressTellsTheSinkAndGivesTheFocusToTheEdit) {
    press();
    EXPECT_TRUE(sink.calls.empty());
    release();
    EXPECT_EQ(sink.calls, (calls{"button 0", "focus 203"}));
    EXPECT_EQ(GetFocus(), window);
}

TEST_F(EditCommand, AReleaseOutsideStillPresses) {
    press();
    release(500, -40);
    EXPECT_EQ(sink.calls.at(0), "button 0");
}

TEST_F(EditCommand, ADragOffTheButtonStillPressesWhereverItEnds) {
    const auto at_rest = picture();
    press();
    EXPECT_EQ(GetCapture(), button());
    SendMessageW(button(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(500, 5));
    EXPECT_EQ(picture(), at_rest) << "the mouse is not over it";
    EXPECT_TRUE(sink.calls.empty());
    release(500, 5);
    EXPECT_EQ(sink.calls.at(0), "button 0");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(EditCommand, APressHasGivenTheMouseBackWhenItIsTold) {
    HWND holder = button();
    sink.on_button = [&] { holder = GetCapture(); };
    press();
    release();
    EXPECT_EQ(holder, nullptr);
}

TEST_F(EditCommand, APressWhoseMouseIsTakenAwayIsGivenUp) {
    const auto at_rest = picture();
    press();
    SetCapture(other);
    EXPECT_EQ(picture(), at_rest);
    EXPECT_EQ(GetCapture(), other);
    ReleaseCapture();
    release();
    EXPECT_TRUE(sink.calls.empty());
    press();
    SendMessageW(button(), WM_CANCELMODE, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
    release();
    EXPECT_TRUE(sink.calls.empty());
    press();
    release();
    EXPECT_EQ(sink.calls.at(0), "button 0") << "the next press is one";
}

TEST_F(EditCommand, AButtonThatEndsWhileItIsPressedPressesNothing) {
    press();
    DestroyWindow(button());
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(sink.calls.empty());
}

TEST_F(EditCommand, TheButtonIsAnotherPictureUnderTheMouseAndThatOfRestWhenPressed) {
    const auto at_rest = picture();
    mouse_over();
    const auto hot = picture();
    EXPECT_NE(hot, at_rest);
    press();
    EXPECT_EQ(picture(), at_rest);
    release();
    EXPECT_EQ(picture(), hot);
    SendMessageW(button(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(picture(), at_rest);
    EXPECT_TRUE(reports.assertions().empty());
}

TEST_F(EditCommand, OnlyTheFirstMoveOfAVisitChangesThePicture) {
    const auto at_rest = picture();
    mouse_over();
    press();
    SendMessageW(button(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(6, 6));
    EXPECT_EQ(picture(), at_rest) << "still pressed";
    SendMessageW(button(), WM_MOUSELEAVE, 0, 0);
    mouse_over();
    EXPECT_NE(picture(), at_rest) << "the next visit";
}

TEST_F(EditCommand, AMouseThatIsNotWatchedCannotLeave) {
    press();
    release();
    const auto hot = picture();
    SendMessageW(button(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(picture(), hot);
}

TEST_F(EditCommand, AChangeIsDrawnAtOnceAndOnlyOnAButtonThatShows) {
    draw_all();
    message_spy spy(button());
    press();
    EXPECT_EQ(spy.count(WM_ERASEBKGND), 1);
    ShowWindow(button(), SW_HIDE);
    spy.heard.clear();
    press();
    EXPECT_EQ(spy.count(WM_ERASEBKGND), 0);
}

TEST_F(EditCommand, AMouseThatCannotBeWatchedIsReportedAndAskedForAgain) {
    WTLControls::CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications bare;
    LRESULT result = 0;
    for (const std::size_t moves : {1u, 2u}) {
        bare.ProcessWindowMessage(nullptr, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5), result, 0);
        ASSERT_EQ(reports.assertions().size(), moves);
        EXPECT_EQ(reports.assertions().back().description, L"bResult");
    }
}

TEST_F(EditCommand, APictureStripThatIsMissingIsReportedAndTheButtonServes) {
    WTLControls::CEditCommandCtrlWnd2 plain{sink, 7};
    plain.SubclassWindow(other);
    EXPECT_TRUE(plain.CreateButton(7, 9999));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
    sink.calls.clear();
    SendMessageW(plain.get_Button(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(sink.calls.at(0), "button 0");
}

TEST_F(EditCommand, AReleaseOutsideLeavesThePictureOfRest) {
    const auto at_rest = picture();
    press();
    release(500, 5);
    EXPECT_EQ(picture(), at_rest);
}

TEST_F(EditCommand, AButtonThatCannotBeUsedStandsOnAGreyGround) {
    const auto usable = picture();
    EXPECT_EQ(usable.back(), GetSysColor(COLOR_WINDOW));
    EnableWindow(window, FALSE);
    EXPECT_FALSE(IsWindowEnabled(button()));
    EXPECT_EQ(picture().back(), GetSysColor(COLOR_BTNFACE));
    EnableWindow(window, TRUE);
    EXPECT_EQ(picture(), usable);
}

TEST_F(EditCommand, ANewTextDoesNotCoverTheButton) {
    draw_all();
    const auto before = shown();
    EXPECT_EQ(before, picture());
    SetWindowTextW(window, L"a text that is much longer than the whole of the edit is wide");
    UpdateWindow(window);
    EXPECT_EQ(shown(), before);
}

TEST_F(EditCommand, AnEditInsideItIsPureGreen) {
    const HDC dc = GetDC(other);
    const auto brush = reinterpret_cast<HBRUSH>(
        SendMessageW(window, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(other)));
    EXPECT_EQ(GetBkColor(dc), RGB(0, 255, 0));
    LOGBRUSH what = {};
    ASSERT_NE(GetObjectW(brush, sizeof(what), &what), 0);
    EXPECT_EQ(what.lbColor, RGB(0, 255, 0));
    DeleteObject(brush);
    ReleaseDC(other, dc);
}

TEST_F(EditCommand, AnUnexpectedMapIdIsReported) {
    LRESULT result = 0;
    EXPECT_FALSE(edit.ProcessWindowMessage(window, WM_SIZE, 0, 0, result, 2));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
}

TEST_F(EditCommand, AnUnexpectedMapIdOfTheButtonIsReported) {
    WTLControls::CSimpleFuckingButtonThatCanDrawWithoutReflectFuckingNotifications bare;
    LRESULT result = 0;
    EXPECT_FALSE(bare.ProcessWindowMessage(nullptr, WM_LBUTTONDOWN, 0, 0, result, 1));
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"0");
}

TEST_F(EditCommand, ASecondWindowForOneEditIsReported) {
    edit.SubclassWindow(other);
    ASSERT_EQ(reports.assertions().size(), 1u);
    EXPECT_EQ(reports.assertions()[0].description, L"m_hWnd == 0");
}

}  // namespace
