// Ways into an edit other than its keys. None makes a letter or a number out of range the quantity.
#include <windows.h>

#include <imm.h>

#include "tests/number_editors/editor_window_fixture.h"

namespace number_editors_tests {
namespace {

using editors::CQuantityCalc;

class ForeignText : public editor_window_test<CQuantityCalc> {
protected:
    ForeignText() : editor_window_test<CQuantityCalc>(ES_NUMBER) {
        SetFocus(window);
        SetWindowTextW(window, L"12");
        host.calls.clear();
    }

    static void copy(const CString& what) {
        OpenClipboard(reflecting_window());
        EmptyClipboard();
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (what.size() + 1) * sizeof(wchar_t));
        std::copy_n(what.c_str(), what.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
        GlobalUnlock(memory);
        SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
    void select_all() const { send(EM_SETSEL, 0, -1); }
    // Neither text nor value is anything but 12, and nobody was told of another.
    void expect_twelve(const CString& what) {
        EXPECT_EQ(editor->get_Editor().get_AcceptedText(), L"12") << what;
        EXPECT_EQ(editor->get_Editor().get_AcceptedValue(), 12.0) << what;
        for (const CString& call : host.calls) {
            EXPECT_TRUE(call == L"text 12" || call == L"value 12") << what << call;
        }
        host.calls.clear();
    }
    void leave_and_come_back() const {
        SetFocus(other);
        EXPECT_EQ(text(), L"12");
        SetFocus(window);
    }

    const std::vector<CString> bad{L"abc", L"1a", L"0", L"-5", L"1.5", L"2K", L"1000000001", L"９"};
};

TEST_F(ForeignText, APasteOfWhatIsNoQuantityIsNotAccepted) {
    for (const CString& each : bad) {
        copy(each);
        select_all();
        send(WM_PASTE);
        expect_twelve(each);
        leave_and_come_back();
    }
}

TEST_F(ForeignText, APasteOfAQuantityIsAccepted) {
    copy(L"250");
    select_all();
    send(WM_PASTE);
    EXPECT_EQ(editor->get_Editor().get_AcceptedValue(), 250.0);
    EXPECT_EQ(host.calls, (std::vector<CString>{L"text 250", L"value 250"}));
}

TEST_F(ForeignText, ReplacedTextThatIsNoQuantityIsNotAccepted) {
    for (const CString& each : bad) {
        select_all();
        send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(each.c_str()));
        expect_twelve(each);
        leave_and_come_back();
    }
}

TEST_F(ForeignText, ATextThatIsSetAndIsNoQuantityIsNotAccepted) {
    for (const CString& each : bad) {
        send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(each.c_str()));
        expect_twelve(each);
        leave_and_come_back();
    }
}

TEST_F(ForeignText, AnUndoThatBringsBackWhatIsNoQuantityIsNotAccepted) {
    select_all();
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"7x"));
    select_all();
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"12"));
    send(EM_EMPTYUNDOBUFFER);
    send(EM_SETSEL, 0, 1);
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
    EXPECT_EQ(editor->get_Editor().get_AcceptedText(), L"2");
    send(EM_UNDO);
    EXPECT_EQ(editor->get_Editor().get_AcceptedText(), text()) << "an undo is a change like any other";
    EXPECT_EQ(text(), L"12");
    send(EM_EMPTYUNDOBUFFER);
    host.calls.clear();
    send(EM_SETSEL, 2, 2);
    send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"x"));
    send(EM_UNDO);
    send(EM_UNDO);
    EXPECT_EQ(text(), L"12x");
    expect_twelve(L"undo");
}

TEST_F(ForeignText, LettersOfTheKeyboardAndOfAnInputMethodAreNotTaken) {
    select_all();
    type(L"x");
    send(WM_IME_CHAR, L'量', 1);
    send(WM_IME_CHAR, L'k', 1);
    pump();
    EXPECT_EQ(text(), L"12");
    expect_twelve(L"keys");
}

TEST_F(ForeignText, AComposedTextIsNotTheQuantity) {
    const HIMC context = ImmGetContext(window);
    const CString composed = L"五百";
    if (context != nullptr) {
        ImmSetCompositionStringW(context, SCS_SETSTR, const_cast<wchar_t*>(composed.c_str()),
                                 static_cast<DWORD>(composed.size() * sizeof(wchar_t)), nullptr, 0);
        ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
        ImmReleaseContext(window, context);
    }
    send(WM_IME_STARTCOMPOSITION);
    send(WM_IME_COMPOSITION, 0, GCS_RESULTSTR);
    send(WM_IME_ENDCOMPOSITION);
    pump();
    expect_twelve(L"composition");
    leave_and_come_back();
}

TEST_F(ForeignText, AClearedTextIsEmptyAndKeepsTheValue) {
    select_all();
    send(WM_CLEAR);
    EXPECT_EQ(text(), L"");
    EXPECT_EQ(editor->GetValue(), 12.0);
    select_all();
    send(WM_CUT);
    SetFocus(other);
    EXPECT_EQ(text(), L"");
    EXPECT_EQ(editor->GetValue(), 12.0);
}

}  // namespace
}  // namespace number_editors_tests
