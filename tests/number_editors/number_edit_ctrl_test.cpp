#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditCtrl.h"

#include <windows.h>

#include <commctrl.h>
#include <olectl.h>

#include <type_traits>

#include "tests/number_editors/editor_window_fixture.h"
#include "tests/support/message_spy.h"

namespace number_editors_tests {
namespace {

using editors::CNaturalNumbersEditorCtrl;
using editors::CNumberEditCtrl;
using editors::CQuantityCalc;
using editors::EEditType;

static_assert(std::is_base_of_v<CNaturalNumbersEditorCtrl, CQuantityCalc>);
static_assert(std::is_base_of_v<CNumberEditCtrl, CNaturalNumbersEditorCtrl>);
static_assert(std::is_base_of_v<frame::subclassed_window, CNumberEditCtrl>);
static_assert(std::has_virtual_destructor_v<CNumberEditCtrl>);

// What is asked of the system for the next child window.
class creation_record {
public:
    creation_record() {
        created = {};
        m_hook = SetWindowsHookExW(WH_CBT, &creation_record::hook, nullptr, GetCurrentThreadId());
    }
    ~creation_record() { UnhookWindowsHookEx(m_hook); }
    creation_record(const creation_record&) = delete;
    creation_record& operator=(const creation_record&) = delete;

    static inline std::vector<CREATESTRUCTW> created;

private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam) {
        if (code == HCBT_CREATEWND) {
            created.push_back(*reinterpret_cast<const CBT_CREATEWNDW*>(lParam)->lpcs);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    HHOOK m_hook;
};

class NumberEditCtrl : public editor_window_test<CNumberEditCtrl> {
protected:
    void be_quantity() { editor->SetParams(1.0, 1.0, 1000000000.0, EEditType::Integer); }
    void spin(int delta, UINT_PTR id = 10003, UINT code = static_cast<UINT>(UDN_DELTAPOS)) {
        NMUPDOWN notice = {};
        notice.hdr = {editor->get_Spin(), id, code};
        notice.iDelta = delta;
        send(WM_NOTIFY, id, reinterpret_cast<LPARAM>(&notice));
    }
    // Whether the spin has to be drawn again.
    bool spin_is_stale() const {
        // As wide as it can be seen.
        return GetUpdateRect(editor->get_Spin(), nullptr, FALSE) != FALSE;
    }
};

TEST_F(NumberEditCtrl, TheSpinIsAChildWithTheIdTenThousandAndThree) {
    const HWND made = editor->get_Spin();
    ASSERT_TRUE(IsWindow(made));
    wchar_t name[40] = {};
    GetClassNameW(made, name, 40);
    EXPECT_STREQ(name, L"msctls_updown32");
    EXPECT_EQ(GetParent(made), window);
    EXPECT_EQ(GetDlgCtrlID(made), 10003);
    EXPECT_NE(GetWindowLongPtrW(made, GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(NumberEditCtrl, TheSpinIsMadeWithARightSideThatItsLeftDoesNotMove) {
    const HWND third = make(0, 200);
    CNumberEditCtrl another{&host};
    RECT client = {};
    GetClientRect(third, &client);
    {
        const creation_record record;
        another.SubclassWindow(third);
    }
    const int size = GetSystemMetrics(SM_CXHSCROLL);
    ASSERT_EQ(creation_record::created.size(), 1u);
    const CREATESTRUCTW& made = creation_record::created[0];
    EXPECT_EQ(made.x, client.right - size);
    EXPECT_EQ(made.y, (client.bottom - size) / 2);
    EXPECT_EQ(made.cx, 2 * size - client.right);
    EXPECT_EQ(made.cy, size);
    DestroyWindow(third);
}

TEST_F(NumberEditCtrl, TheRightMarginIsTheSpinsSizeAndTwo) {
    EXPECT_EQ(HIWORD(send(EM_GETMARGINS)), GetSystemMetrics(SM_CXHSCROLL) + 2);
}

TEST_F(NumberEditCtrl, TheEditLeavesItsChildrenOutAndTakesLettersStill) {
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    EXPECT_NE(style & WS_CLIPCHILDREN, 0);
    EXPECT_EQ(style & ES_NUMBER, 0);
}

TEST_F(NumberEditCtrl, ASecondWindowAndNoWindowAreReported) {
    editor->SubclassWindow(other);
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"m_hWnd == 0"});
    reports.clear();
    CNumberEditCtrl another{&host};
    EXPECT_FALSE(another.SubclassWindow(nullptr));
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"::IsWindow(hWnd)"});
}

TEST_F(NumberEditCtrl, AnUnexpectedMapIdIsReported) {
    LRESULT result = 0;
    EXPECT_FALSE(editor->ProcessWindowMessage(window, WM_MOUSEWHEEL, 0, 0, result, 3));
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"0"});
}

TEST_F(NumberEditCtrl, TheWheelSpinsByItsSignAndLeavesTheCaret) {
    be_quantity();
    SetFocus(window);
    SetWindowTextW(window, L"10");
    send(EM_SETSEL, 1, 1);
    send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(WHEEL_DELTA * 3)));
    EXPECT_EQ(text(), L"11");
    EXPECT_EQ(selection(), std::pair(1ul, 1ul));
    send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
    EXPECT_EQ(text(), L"10");
    send(WM_MOUSEWHEEL, 0);
    EXPECT_EQ(text(), L"10");
}

TEST_F(NumberEditCtrl, ArrowKeysSpinAndTheCaretEndsWhereItWas) {
    be_quantity();
    SetFocus(window);
    SetWindowTextW(window, L"98");
    send(EM_SETSEL, 1, 1);
    send(WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(text(), L"99");
    EXPECT_EQ(selection(), std::pair(1ul, 1ul)) << "one to the right, and back by the edit itself";
    send(WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(text(), L"98");
    EXPECT_EQ(selection(), std::pair(1ul, 1ul));
    send(WM_KEYDOWN, VK_LEFT, 1);
    EXPECT_EQ(selection(), std::pair(0ul, 0ul));
    EXPECT_EQ(text(), L"98");
}

TEST_F(NumberEditCtrl, AnArrowKeyAtTheEndOfTheRangeOnlyMovesTheCaret) {
    be_quantity();
    SetFocus(window);
    SetWindowTextW(window, L"1");
    send(EM_SETSEL, 0, 0);
    host.calls.clear();
    send(WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(text(), L"1");
    EXPECT_EQ(selection(), std::pair(1ul, 1ul));
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(NumberEditCtrl, TheSpinsNoticeCountsTheOtherWayRound) {
    be_quantity();
    SetFocus(window);
    SetWindowTextW(window, L"10");
    spin(-1);
    EXPECT_EQ(text(), L"11");
    spin(4);
    EXPECT_EQ(text(), L"10");
    spin(1, 10004);
    spin(1, 10003, static_cast<UINT>(NM_CLICK));
    EXPECT_EQ(text(), L"10") << "neither another child nor another notice";
}

TEST_F(NumberEditCtrl, AChangeOfTheTextIsAcceptedAndTold) {
    be_quantity();
    SetWindowTextW(window, L"12");
    EXPECT_EQ(host.calls, (std::vector<CString>{L"text 12", L"value 12"}));
    EXPECT_EQ(editor->GetValue(), 12.0);
}

TEST_F(NumberEditCtrl, AChangeInAHiddenEditIsAcceptedAndNotTold) {
    be_quantity();
    ShowWindow(window, SW_HIDE);
    SetWindowTextW(window, L"12");
    EXPECT_TRUE(host.calls.empty());
    EXPECT_EQ(editor->get_Editor().get_AcceptedValue(), 12.0);
}

TEST_F(NumberEditCtrl, NoticesOfAnotherEditAreNotItsOwn) {
    be_quantity();
    SetWindowTextW(window, L"12");
    host.calls.clear();
    for (const int code : {EN_UPDATE, EN_SETFOCUS, EN_KILLFOCUS}) {
        send(OCM_COMMAND, MAKEWPARAM(209, static_cast<WORD>(code)), reinterpret_cast<LPARAM>(other));
    }
    EXPECT_TRUE(host.calls.empty());
    EXPECT_FALSE(editor->get_Editor().IsFocused());
}

TEST_F(NumberEditCtrl, TheMessageAfterWMUSERTellsTheHostAgain) {
    be_quantity();
    SetWindowTextW(window, L"12");
    host.calls.clear();
    send(WM_USER + 1);
    EXPECT_EQ(host.calls, (std::vector<CString>{L"text 12", L"value 12"}));
}

TEST_F(NumberEditCtrl, TheFocusShowsThePlainNumberAndTheTimerMovesTheCaretToItsEnd) {
    be_quantity();
    editor->SetValue(1500.0);
    EXPECT_EQ(text(), L"1.5K");
    SetFocus(window);
    EXPECT_TRUE(editor->get_Editor().IsFocused());
    EXPECT_EQ(text(), L"1500");
    EXPECT_TRUE(pump_until([&] { return selection() == std::pair(4ul, 4ul); }));
    SetFocus(other);
    EXPECT_EQ(text(), L"1.5K");
    EXPECT_FALSE(editor->get_Editor().IsFocused());
}

TEST_F(NumberEditCtrl, OnlyItsOwnTimerMovesTheCaret) {
    SetWindowTextW(window, L"1500");
    send(EM_SETSEL, 1, 2);
    send(WM_TIMER, 126);
    EXPECT_EQ(selection(), std::pair(1ul, 2ul));
    send(WM_TIMER, 125);
    EXPECT_EQ(selection(), std::pair(4ul, 4ul));
}

TEST_F(NumberEditCtrl, LeavingAnInvalidTextBringsTheLastValueBack) {
    be_quantity();
    editor->SetValue(1500.0);
    SetFocus(window);
    SetWindowTextW(window, L"abc");
    SetFocus(other);
    EXPECT_EQ(text(), L"1.5K");
    EXPECT_EQ(editor->GetValue(), 1500.0);
}

TEST_F(NumberEditCtrl, AnErasedEditDrawsItsSpinAgain) {
    MoveWindow(editor->get_Spin(), 90, 2, 16, 16, TRUE);
    UpdateWindow(window);
    UpdateWindow(editor->get_Spin());
    ASSERT_FALSE(spin_is_stale());
    const HDC dc = GetDC(window);
    EXPECT_EQ(send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc)), 1);
    ReleaseDC(window, dc);
    EXPECT_TRUE(spin_is_stale());
}

TEST_F(NumberEditCtrl, TheSpinIsDrawnAgainAfterMessagesThatDrawTheEdit) {
    MoveWindow(editor->get_Spin(), 90, 2, 16, 16, TRUE);
    UpdateWindow(editor->get_Spin());
    message_spy spy(editor->get_Spin());
    const HDC dc = GetDC(window);
    const auto paints_after = [&](UINT message, WPARAM wParam) {
        spy.heard.clear();
        send(message, wParam);
        return spy.count(WM_PAINT);
    };
    EXPECT_EQ(paints_after(49750, 0), 1);
    EXPECT_EQ(paints_after(OCM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc)), 1);
    EXPECT_EQ(paints_after(0x118, 0), 1);
    EXPECT_EQ(paints_after(OCM_COMMAND, MAKEWPARAM(209, EN_CHANGE)), 1);
    EXPECT_EQ(paints_after(WM_NULL, 0), 0);
    ReleaseDC(window, dc);
}

// Lets the set-up be called without a window.
class bare_editor final : public CNumberEditCtrl {
public:
    using CNumberEditCtrl::CNumberEditCtrl;
    using CNumberEditCtrl::Init;
};

TEST_F(NumberEditCtrl, ASetUpWithoutAWindowIsReported) {
    bare_editor bare{&host};
    bare.Init();
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"::IsWindow(m_hWnd)"});
    EXPECT_EQ(bare.get_Spin(), nullptr);
}

class NaturalNumbers : public editor_window_test<CNaturalNumbersEditorCtrl> {};

TEST_F(NaturalNumbers, TakeDigitsOnlyAndMoveInOnes) {
    EXPECT_NE(GetWindowLongPtrW(window, GWL_STYLE) & ES_NUMBER, 0);
    editor->SetParams(1.0, 0.0, 100.0, EEditType::Integer);
    SetFocus(window);
    type(L"1x2-.K3");
    EXPECT_EQ(text(), L"123");
    EXPECT_EQ(editor->get_Editor().get_AcceptedValue(), 12.0) << "the last that was in the range";
    SetWindowTextW(window, L"5");
    send(WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(text(), L"6");
}

}  // namespace
}  // namespace number_editors_tests
