// How the user hears on the screen that a value is refused.
#include <windows.h>

#include <commctrl.h>

#include "tests/number_editors/editor_window_fixture.h"
#include "tests/support/message_spy.h"
#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/NumberEditCtrl.h"

namespace number_editors_tests {
namespace {

using editors::CNumberEditCtrl;
using editors::EEditType;

class EditorBalloon : public editor_window_test<CNumberEditCtrl> {
protected:
    EditorBalloon() {
        editor->SetParams(1.0, 1.0, 1000000000.0, EEditType::Integer);
        SetFocus(window);
        SetWindowTextW(window, L"5");
    }
    editors::CPropertyValidator& validator() { return editor->get_Editor().get_Validator(); }
    LONG id() const { return GetDlgCtrlID(window); }
};

const wchar_t refusal[] = L"Please enter an integer between 1 and 1000000000.";

TEST_F(EditorBalloon, TheEditsOwnShowsTitleTextAndIconAndGoesWhenAValidTextIsLeft) {
    struct {
        CString title;
        CString text;
        INT icon = 0;
    } shown;
    message_spy spy(window);
    spy.answers[EM_SHOWBALLOONTIP] = [&](WPARAM, LPARAM lParam) {
        const auto& balloon = *reinterpret_cast<const EDITBALLOONTIP*>(lParam);
        EXPECT_EQ(balloon.cbStruct, sizeof(EDITBALLOONTIP));
        shown = {balloon.pszTitle, balloon.pszText, balloon.ttiIcon};
        return TRUE;
    };
    editor->SetValue(0.0);
    EXPECT_EQ(shown.title, L"Invalid property value");
    EXPECT_EQ(shown.text, refusal);
    EXPECT_EQ(shown.icon, 16);
    EXPECT_EQ(editor->get_Balloon().get_Tip(), nullptr) << "one balloon is enough";
    EXPECT_EQ(spy.count(EM_HIDEBALLOONTIP), 0);
    SetFocus(other);
    EXPECT_EQ(spy.count(EM_HIDEBALLOONTIP), 1);
}

TEST_F(EditorBalloon, ATipStandsInWhereEditsHaveNone) {
    message_spy spy(window);
    spy.answers[EM_SHOWBALLOONTIP] = [](WPARAM, LPARAM) { return FALSE; };
    editor->SetValue(0.0);
    const HWND tip = editor->get_Balloon().get_Tip();
    ASSERT_TRUE(IsWindow(tip));
    EXPECT_TRUE(IsWindowVisible(tip));
    wchar_t shown[200] = {};
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = parent;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = shown;
    SendMessageW(tip, TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ(shown, refusal);
    SetFocus(other);
    EXPECT_FALSE(IsWindowVisible(tip));
    editor.reset();
    EXPECT_FALSE(IsWindow(tip)) << "ends with the editor";
}

// Presses OK in the box that is open, and keeps what it said.
class box_answerer {
public:
    box_answerer() { m_timer = SetTimer(nullptr, 0, 10, &box_answerer::answer); }
    ~box_answerer() { KillTimer(nullptr, m_timer); }
    box_answerer(const box_answerer&) = delete;
    box_answerer& operator=(const box_answerer&) = delete;

    static inline CString text;
    static inline HWND owner = nullptr;

private:
    static void CALLBACK answer(HWND, UINT, UINT_PTR, DWORD) {
        const HWND box = FindWindowW(L"#32770", L"Invalid property value");
        if (box != nullptr) {
            owner = GetWindow(box, GW_OWNER);
            text = text_of(GetDlgItem(box, 0xFFFF));
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        }
    }
    UINT_PTR m_timer;
};

TEST_F(EditorBalloon, ABoxOverTheOwnerTellsARefusalAndGivesTheFocusBack) {
    const LONG control = id();
    editors::SValidationRule rule = *validator().FindRule(control);
    rule.feedback = editors::EFeedback::Box;
    validator().SetRule(control, rule);
    const box_answerer answerer;
    EXPECT_EQ(validator().Report(control, editors::Check::Range), 0);
    EXPECT_EQ(box_answerer::text, refusal);
    EXPECT_EQ(box_answerer::owner, parent);
    EXPECT_EQ(GetFocus(), window);
}

TEST_F(EditorBalloon, ARefusalIsToldByABeepWhenItsEditIsGone) {
    const LONG control = id();
    DestroyWindow(window);
    EXPECT_EQ(validator().Report(control, editors::Check::Range), ERROR_INVALID_HANDLE);
    EXPECT_EQ(editor->get_Balloon().get_Tip(), nullptr);
}

}  // namespace
}  // namespace number_editors_tests
