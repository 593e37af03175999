// A quantity's edit on the screen: its button's place, what is drawn, and the mouse.
#include <windows.h>

#include <olectl.h>
#include <uxtheme.h>

#include <set>

#include "tests/number_editors/editor_window_fixture.h"
#include "tests/support/message_spy.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/QuantityCalc.h"

namespace number_editors_tests {
namespace {

using editors::CQuantityCalc;

class QuantityCalcWindow : public editor_window_test<CQuantityCalc> {
protected:
    QuantityCalcWindow() : editor_window_test<CQuantityCalc>(ES_NUMBER) { editor->put_Images(211); }
};

TEST_F(QuantityCalcWindow, TheButtonIsAChildWithTheSpinsIdNearTheRightEnd) {
    const HWND button = editor->get_Button();
    ASSERT_TRUE(IsWindow(button));
    EXPECT_EQ(GetParent(button), window);
    EXPECT_EQ(GetDlgCtrlID(button), 10003);
    EXPECT_EQ(GetDlgCtrlID(editor->get_Spin()), 10003);
    EXPECT_TRUE(IsWindowVisible(button));
    EXPECT_EQ(GetWindow(window, GW_CHILD), button) << "on top of the spin";
    RECT client = {};
    GetClientRect(window, &client);
    const RECT at = place_in_parent(button);
    EXPECT_EQ(at.left, client.right - 32);
    EXPECT_EQ(at.top, 1);
    EXPECT_EQ(at.right - at.left, 16);
    EXPECT_EQ(at.bottom - at.top, client.bottom);
}

TEST_F(QuantityCalcWindow, TheButtonKeepsItsPlaceInAWiderEdit) {
    MoveWindow(window, 10, 10, 150, 22, TRUE);
    RECT client = {};
    GetClientRect(window, &client);
    EXPECT_EQ(place_in_parent(editor->get_Button()).left, client.right - 32);
}

TEST_F(QuantityCalcWindow, TheTextEndsBeforeTheButton) {
    EXPECT_EQ(HIWORD(send(EM_GETMARGINS)), 34);
}

TEST_F(QuantityCalcWindow, EnablingReachesTheButtonAndTheBackground) {
    const auto colour = [&](int index) {
        if (IsAppThemed()) {
            const HTHEME theme = OpenThemeData(window, L"Edit");
            const COLORREF result = GetThemeSysColor(theme, index);
            CloseThemeData(theme);
            return result;
        }
        return GetSysColor(index);
    };
    ASSERT_NE(colour(COLOR_WINDOW), colour(COLOR_BTNFACE));
    EXPECT_EQ(editor->get_BackColor(), colour(COLOR_WINDOW));
    EnableWindow(window, FALSE);
    EXPECT_FALSE(IsWindowEnabled(editor->get_Button()));
    EXPECT_EQ(editor->get_BackColor(), colour(COLOR_BTNFACE));
    EnableWindow(window, TRUE);
    EXPECT_TRUE(IsWindowEnabled(editor->get_Button()));
    EXPECT_EQ(editor->get_BackColor(), colour(COLOR_WINDOW));
}

// The button as it draws itself now.
std::vector<COLORREF> drawn(HWND button) {
    const HDC screen = GetDC(button);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 16, 16);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    SendMessageW(button, WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory), 0);
    std::vector<COLORREF> pixels;
    for (int i = 0; i < 256; ++i) {
        pixels.push_back(GetPixel(memory, i % 16, i / 16));
    }
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(button, screen);
    return pixels;
}

TEST_F(QuantityCalcWindow, TheButtonShowsItsPictureAndAnotherUnderTheMouse) {
    const auto at_rest = drawn(editor->get_Button());
    EXPECT_GT(std::set(at_rest.begin(), at_rest.end()).size(), 3u);
    SendMessageW(editor->get_Button(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    const auto hot = drawn(editor->get_Button());
    EXPECT_GT(std::set(hot.begin(), hot.end()).size(), 3u);
    EXPECT_NE(hot, at_rest);
}

TEST_F(QuantityCalcWindow, AnErasedEditDrawsItsButtonAndItsSpinAgain) {
    MoveWindow(editor->get_Spin(), 20, 2, 16, 16, TRUE);
    UpdateWindow(window);
    UpdateWindow(editor->get_Button());
    UpdateWindow(editor->get_Spin());
    ASSERT_FALSE(GetUpdateRect(editor->get_Spin(), nullptr, FALSE));
    const HDC dc = GetDC(window);
    send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc));
    ReleaseDC(window, dc);
    EXPECT_TRUE(GetUpdateRect(editor->get_Button(), nullptr, FALSE));
    EXPECT_TRUE(GetUpdateRect(editor->get_Spin(), nullptr, FALSE));
}

TEST_F(QuantityCalcWindow, TheButtonIsDrawnAgainAfterMessagesThatDrawTheEdit) {
    UpdateWindow(editor->get_Button());
    message_spy spy(editor->get_Button());
    const HDC dc = GetDC(window);
    const auto drawn_after = [&](UINT message, WPARAM wParam) {
        spy.heard.clear();
        send(message, wParam);
        return spy.count(WM_ERASEBKGND);
    };
    EXPECT_EQ(drawn_after(49750, 0), 1);
    EXPECT_EQ(drawn_after(OCM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc)), 1);
    EXPECT_EQ(drawn_after(0x118, 0), 1);
    EXPECT_EQ(drawn_after(OCM_COMMAND, MAKEWPARAM(209, EN_CHANGE)), 1);
    EXPECT_EQ(drawn_after(WM_NULL, 0), 0);
    ReleaseDC(window, dc);
}

TEST_F(QuantityCalcWindow, AReleasedButtonOfTheMouseTakesTheFocusAndPutsTheCaretUnderIt) {
    SetWindowTextW(window, L"123456");
    const LRESULT third = send(EM_POSFROMCHAR, 3);
    SetFocus(other);
    send(WM_LBUTTONUP, 0, MAKELPARAM(LOWORD(third), 8));
    EXPECT_EQ(GetFocus(), window);
    EXPECT_EQ(selection(), std::pair(3ul, 3ul));
}

TEST_F(QuantityCalcWindow, AReleaseInTheFocusedEditLeavesTheSelection) {
    SetFocus(window);
    SetWindowTextW(window, L"123456");
    send(EM_SETSEL, 1, 4);
    send(WM_LBUTTONUP, 0, MAKELPARAM(5, 8));
    EXPECT_EQ(selection(), std::pair(1ul, 4ul));
}

TEST_F(QuantityCalcWindow, AClickBringsItsFramedWindowToTheFront) {
    const HWND elsewhere = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 600, 40, 60, 60, nullptr,
                                           nullptr, nullptr, nullptr);
    SetActiveWindow(elsewhere);
    ASSERT_EQ(GetActiveWindow(), elsewhere);
    send(WM_LBUTTONUP, 0, MAKELPARAM(5, 8));
    EXPECT_EQ(GetActiveWindow(), parent);
    EXPECT_EQ(GetFocus(), window);
    DestroyWindow(elsewhere);
}

// An edit that asks to be drawn while its children are still being made must not ask for the whole screen.
TEST_F(QuantityCalcWindow, AnEditThatIsErasedBeforeItHasChildrenLeavesOtherWindowsAlone) {
    CQuantityCalc childless{&host};
    UpdateWindow(other);
    ASSERT_FALSE(GetUpdateRect(other, nullptr, FALSE));
    LRESULT result = 0;
    childless.ProcessWindowMessage(nullptr, WM_ERASEBKGND, 0, 0, result, 0);
    EXPECT_FALSE(GetUpdateRect(other, nullptr, FALSE));
}

TEST_F(QuantityCalcWindow, ADrawnEditComesToRest) {
    SetWindowTextW(window, L"1500");
    for (const HWND drawn : {parent, window}) {
        RedrawWindow(drawn, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
    int served = 0;
    constexpr int many = 1000;
    MSG message = {};
    while (served < many && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
        ++served;
    }
    EXPECT_LT(served, many);
}

// A frame with two documents; the edit is in the first, the second is active.
class QuantityInDocument : public QuantityCalcWindow {
protected:
    QuantityInDocument() {
        CLIENTCREATESTRUCT request = {nullptr, 100};
        client = CreateWindowExW(0, L"MDICLIENT", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 40, 400,
                                 60, parent, nullptr, GetModuleHandleW(nullptr), &request);
        WNDCLASSW description = {};
        description.lpfnWndProc = &DefMDIChildProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = L"OrderDeckDocument";
        RegisterClassW(&description);
        for (HWND& document : documents) {
            document = CreateWindowExW(WS_EX_MDICHILD, description.lpszClassName, L"", WS_CHILD | WS_VISIBLE,
                                       0, 0, 150, 50, client, nullptr, description.hInstance, nullptr);
        }
        SetParent(window, documents[0]);
        SendMessageW(client, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(documents[1]), 0);
    }
    ~QuantityInDocument() override { DestroyWindow(client); }
    HWND active() const { return reinterpret_cast<HWND>(SendMessageW(client, WM_MDIGETACTIVE, 0, 0)); }

    HWND client = nullptr;
    HWND documents[2] = {};
};

TEST_F(QuantityInDocument, AClickActivatesItsDocument) {
    ASSERT_EQ(active(), documents[1]);
    send(WM_LBUTTONUP, 0, MAKELPARAM(5, 8));
    EXPECT_EQ(active(), documents[0]);
    EXPECT_EQ(GetFocus(), window);
}

}  // namespace
}  // namespace number_editors_tests
