#include <random>

#include "tests/number_editors/fake_editor.h"

namespace number_editors_tests {
namespace {

class EditorSpin : public editor_test {
protected:
    EditorSpin() {
        be_quantity();
        editor.OnSetFocus();
    }
    void show(const CString& text, LONG caret) {
        window.enter(text);
        window.put_Selection(caret, caret);
    }
    void forget_but_last() {
        window.calls.clear();
        host.calls.erase(host.calls.begin(), host.calls.end() - 1);
    }
};

TEST_F(EditorSpin, TheMultiplierIsAHundredForStocksOnly) {
    for (const LONG category : {0, 1, 3, 4, 5, 6, -2, 200}) {
        EXPECT_EQ(editors::quantity_step_multiplier(category), 1) << category;
    }
    EXPECT_EQ(editors::quantity_step_multiplier(2), 100);
}

TEST_F(EditorSpin, OneStepGoesUpOrDownByTheSign) {
    show(L"10", 0);
    editor.Spin(1, 1, false);
    EXPECT_EQ(window.text, L"11");
    editor.Spin(5, 1, false);
    EXPECT_EQ(window.text, L"12");
    editor.Spin(-7, 1, false);
    EXPECT_EQ(window.text, L"11");
    editor.Spin(1, 100, false);
    EXPECT_EQ(window.text, L"111");
    EXPECT_EQ(host.calls.back(), L"7 value 111");
}

TEST_F(EditorSpin, NothingIsNoSpin) {
    show(L"10", 1);
    forget();
    editor.Spin(0, 1, true);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(window.from, 1);
}

TEST_F(EditorSpin, TheEndsOfTheRangeAreNotPassedAndNothingIsSaid) {
    show(L"1", 0);
    forget();
    editor.Spin(-1, 1, true);
    EXPECT_EQ(window.text, L"1");
    show(L"1000000000", 0);
    forget();
    editor.Spin(1, 100, true);
    EXPECT_EQ(window.text, L"1000000000");
    show(L"50", 0);
    forget();
    editor.Spin(-1, 100, true);
    EXPECT_EQ(window.text, L"50") << "neither clamped nor wrapped";
    EXPECT_TRUE(window.calls.empty());
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorSpin, AStepOntoTheEndOfTheRangeIsTaken) {
    show(L"999999900", 0);
    editor.Spin(1, 100, false);
    EXPECT_EQ(window.text, L"1000000000");
    show(L"101", 0);
    editor.Spin(-1, 100, false);
    EXPECT_EQ(window.text, L"1");
}

TEST_F(EditorSpin, TheStepIsThatOfTheParameters) {
    editor.SetParams(0.25, 0.0, 10.0, editors::EEditType::Double);
    show(L"1", 0);
    editor.Spin(1, 1, false);
    EXPECT_EQ(window.text, L"1.25");
}

TEST_F(EditorSpin, AnEmptyTextSpinsFromTheLastValue) {
    show(L"10", 0);
    window.enter(L"");
    editor.Spin(1, 1, false);
    EXPECT_EQ(window.text, L"11");
}

TEST_F(EditorSpin, ACaretMovesAlongWithAKey) {
    show(L"99", 2);
    editor.Spin(1, 1, true);
    EXPECT_EQ(window.text, L"100");
    EXPECT_EQ(window.from, 3);
    EXPECT_EQ(window.to, 3);
    editor.Spin(-1, 1, true);
    EXPECT_EQ(window.text, L"99");
    EXPECT_EQ(window.from, 2);
}

TEST_F(EditorSpin, ACaretAtTheStartStaysThere) {
    show(L"99", 0);
    editor.Spin(-1, 1, true);
    EXPECT_EQ(window.from, 0);
}

TEST_F(EditorSpin, ASelectionHasNoCaretToMove) {
    show(L"99", 0);
    window.put_Selection(0, 2);
    editor.Spin(1, 1, true);
    EXPECT_EQ(window.from, 0);
    EXPECT_EQ(window.to, 0) << "as the new text left it";
}

TEST_F(EditorSpin, TheWheelLeavesTheCaretAlone) {
    show(L"99", 1);
    editor.Spin(1, 1, false);
    EXPECT_EQ(window.from, 1);
    EXPECT_EQ(window.to, 1);
}

TEST_F(EditorSpin, ASpinWithoutTheFocusCountsFromTheValueBehindTheText) {
    window.enter(L"1500");
    editor.OnKillFocus();
    ASSERT_EQ(window.text, L"<1500>");
    editor.Spin(1, 100, false);
    EXPECT_EQ(window.text, L"<1600>");
}

// Any row of things that a user does keeps the accepted number in the range and equal to its text, and the
// host has heard of it.
TEST_F(EditorSpin, NoRowOfActionsLeavesTheRange) {
    std::mt19937 random(20260131);
    window.enter(L"1");
    const std::vector<CString> texts{
        L"",           L"0",   L"1",    L"12",  L"x",     L"1.5",  L"1,250", L"-4", L"1e3", L"1000000000",
        L"1000000001", L"007", L"1.5K", L" 3 ", L"99999", L"1500", L"12a",   L"+5", L"(5)"};
    for (int i = 0; i < 20000; ++i) {
        switch (random() % 5) {
            case 0:
                window.enter(texts[random() % texts.size()]);
                break;
            case 1:
                editor.Spin(random() % 2 == 0 ? 1 : -1, random() % 2 == 0 ? 1 : 100, random() % 2 == 0);
                break;
            case 2:
                editor.SetValue(static_cast<double>(random()) - 2e9);
                break;
            case 3:
                editor.OnSetFocus();
                break;
            default:
                editor.OnKillFocus();
        }
        const double value = editor.get_AcceptedValue();
        ASSERT_GE(value, 1.0);
        ASSERT_LE(value, 1000000000.0);
        const CString text = editor.get_AcceptedText();
        if (!text.empty()) {
            ASSERT_EQ(editor.ParseText(text), value);
            ASSERT_EQ(host.calls.back(), L"7 value " + editors::plain_number_text(value));
        }
        forget_but_last();
    }
}

}  // namespace
}  // namespace number_editors_tests
