// What a number editor takes for its value, and what its host hears.
#include "tests/number_editors/fake_editor.h"

namespace number_editors_tests {
namespace {

using editors::EEditType;

class EditorValue : public editor_test {};

TEST_F(EditorValue, AnEditorStartsEmptyWithItsWideRange) {
    EXPECT_EQ(editor.get_Step(), 1.0);
    EXPECT_EQ(editor.get_Min(), -2000000000.0);
    EXPECT_EQ(editor.get_Max(), 2000000000.0);
    EXPECT_EQ(editor.get_AcceptedValue(), 0.0);
    EXPECT_EQ(editor.get_AcceptedText(), L"");
    EXPECT_FALSE(editor.IsFocused());
    EXPECT_TRUE(editor.get_AllowEmpty());
    EXPECT_FALSE(editor.HasPrice());
    EXPECT_FALSE(editor.UsesPriceText());
    EXPECT_FALSE(editor.IsValidated());
    EXPECT_FALSE(editor.get_ShowErrors());
    EXPECT_EQ((editors::CNumberEditor{window, nullptr, &no_text}.get_Id()), 0);
}

TEST_F(EditorValue, TheBaseOfAHostHasNoTextOfItsOwn) {
    plain_host base;
    EXPECT_FALSE(base.UsesDisplayText(7));
    EXPECT_EQ(base.GetDisplayText(1500.0), L"");
    base.OnValueChanged(7, 1.0);
}

TEST_F(EditorValue, ParametersAreARuleForTheControl) {
    editor.SetParams(0.5, 1.0, 10.0, EEditType::Integer);
    EXPECT_EQ(editor.get_Step(), 0.5);
    EXPECT_EQ(editor.get_Min(), 1.0);
    EXPECT_EQ(editor.get_Max(), 10.0);
    EXPECT_TRUE(editor.IsValidated());
    const editors::SValidationRule* const rule = editor.get_Validator().FindRule(209);
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->type, EEditType::Integer);
    EXPECT_EQ(rule->checks, 0x10001u);
    EXPECT_EQ(rule->feedback, editors::EFeedback::Balloon);
    EXPECT_EQ(rule->icon, 16u);
    EXPECT_EQ(rule->window, &window);
    EXPECT_EQ(rule->min, 1.0);
    EXPECT_EQ(rule->max, 10.0);
    EXPECT_TRUE(asserted().empty());
}

TEST_F(EditorValue, ParametersPullTheValueIntoTheRange) {
    editor.SetParams(1.0, 5.0, 10.0, EEditType::Integer);
    EXPECT_EQ(editor.get_AcceptedValue(), 5.0);
    editor.SetParams(1.0, 1.0, 3.0, EEditType::Integer);
    EXPECT_EQ(editor.get_AcceptedValue(), 3.0);
}

TEST_F(EditorValue, ParametersShowTheValueUnlessEmptyIsAllowed) {
    be_quantity();
    EXPECT_EQ(window.text, L"");
    editor.put_AllowEmpty(false);
    host.display = false;
    editor.SetParams(1.0, 5.0, 10.0, EEditType::Integer);
    EXPECT_EQ(window.text, L"5");
}

TEST_F(EditorValue, ABadRangeIsReportedAtTheNextParameters) {
    editor.SetParams(1.0, 10.0, 5.0, EEditType::Integer);
    EXPECT_TRUE(asserted().empty());
    be_quantity();
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"m_dMaxValue > m_dMinValue"});
    EXPECT_EQ(editor.get_Max(), 1000000000.0) << "and goes on";
}

TEST_F(EditorValue, ABadStepIsReportedAndKept) {
    editor.SetParams(0.0, 1.0, 5.0, EEditType::Integer);
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"_step > 0"});
    EXPECT_EQ(editor.get_Step(), 0.0);
    EXPECT_TRUE(editor.IsValidated());
}

TEST_F(EditorValue, TheValueIsTheNumberInTheText) {
    be_quantity();
    window.enter(L"250");
    EXPECT_EQ(editor.GetValue(), 250.0);
    window.enter(L"0");
    EXPECT_EQ(editor.GetValue(), 0.0) << "refused, and in the text all the same";
    EXPECT_EQ(editor.get_AcceptedValue(), 250.0);
}

TEST_F(EditorValue, WithoutATextTheValueIsTheLastOne) {
    be_quantity();
    window.enter(L"250");
    window.enter(L"");
    EXPECT_EQ(editor.GetValue(), 250.0);
    EXPECT_EQ(editor.get_AcceptedText(), L"");
}

TEST_F(EditorValue, ATextForReadersStandsForTheLastValue) {
    be_quantity();
    editor.SetValue(1500.0);
    EXPECT_EQ(window.text, L"<1500>");
    EXPECT_EQ(editor.GetValue(), 1500.0);
}

TEST_F(EditorValue, ATextIsParsedInTheLocaleOrRaises) {
    EXPECT_EQ(editor.ParseText(L"1,234.5"), 1234.5);
    try {
        editor.ParseText(L"abc");
        FAIL() << "nothing raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), DISP_E_TYPEMISMATCH);
    }
}

TEST_F(EditorValue, APriceParsesFirstAndTheLocaleAfterIt) {
    editor.put_Price(std::make_shared<CPriceToString>('e'), false);
    EXPECT_EQ(editor.ParseText(L"12 1/2"), 12.5);
    EXPECT_EQ(editor.ParseText(L"1E3"), 1000.0) << "no price, yet a number";
}

TEST_F(EditorValue, WithoutARuleEveryTextIsValid) {
    window.text = L"abc";
    EXPECT_TRUE(editor.IsValid());
}

TEST_F(EditorValue, AnEmptyTextIsValidWhereItIsAllowed) {
    editor.put_Price(std::make_shared<CPriceToString>(2), false);
    EXPECT_TRUE(editor.IsValid());
    editor.put_AllowEmpty(false);
    EXPECT_FALSE(editor.IsValid());
}

TEST_F(EditorValue, APriceDecidesBeforeTheRule) {
    be_quantity();
    editor.put_Price(std::make_shared<CPriceToString>(2), false);
    window.text = L"0.5";
    EXPECT_TRUE(editor.IsValid());
    window.text = L"abc";
    EXPECT_FALSE(editor.IsValid());
}

TEST_F(EditorValue, TheRuleShowsItsRefusalsOnlyWhereErrorsAreShown) {
    be_quantity();
    window.text = L"0";
    EXPECT_FALSE(editor.IsValid());
    EXPECT_TRUE(window.calls.empty());
    editor.put_ShowErrors(true);
    EXPECT_FALSE(editor.IsValid());
    EXPECT_EQ(window.calls,
              calls{L"balloon Invalid property value|Please enter an integer between 1 and 1000000000.|16"});
}

TEST_F(EditorValue, AValidTextIsAcceptedAndToldWithItsNumber) {
    be_quantity();
    window.enter(L"007");
    EXPECT_EQ(editor.get_AcceptedValue(), 7.0);
    EXPECT_EQ(editor.get_AcceptedText(), L"007");
    EXPECT_EQ(host.calls, (calls{L"7 text 007", L"7 value 7"}));
}

TEST_F(EditorValue, AnEmptyTextIsToldWithoutANumber) {
    be_quantity();
    window.enter(L"12");
    forget();
    window.enter(L"");
    EXPECT_EQ(host.calls, calls{L"7 text "});
    EXPECT_EQ(editor.get_AcceptedValue(), 12.0);
}

TEST_F(EditorValue, ARefusedTextIsNeitherAcceptedNorTold) {
    be_quantity();
    window.enter(L"12");
    forget();
    for (const wchar_t* const text : {L"0", L"12a", L"-1", L"1.5", L"1000000001", L"９"}) {
        window.enter(text);
        EXPECT_EQ(editor.get_AcceptedText(), L"12") << text;
        EXPECT_EQ(editor.get_AcceptedValue(), 12.0) << text;
    }
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorValue, AHiddenEditAcceptsAndTellsNobody) {
    be_quantity();
    window.visible = false;
    window.enter(L"12");
    EXPECT_EQ(editor.get_AcceptedValue(), 12.0);
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorValue, AnEditorWithoutAHostTellsNobody) {
    editors::CNumberEditor lonely{window, nullptr, &no_text};
    window.on_update = [&] { lonely.OnUpdate(); };
    window.enter(L"12");
    lonely.TellHost();
    EXPECT_EQ(lonely.get_AcceptedText(), L"12");
    lonely.OnSetFocus();
    lonely.OnKillFocus();
    EXPECT_EQ(window.text, L"12");
}

TEST_F(EditorValue, WhatAHostThrowsIsLoggedAndTheValueIsNotTold) {
    be_quantity();
    host.fails = E_FAIL;
    window.enter(L"12");
    EXPECT_EQ(host.calls, calls{L"7 text 12"});
    ASSERT_EQ(reports.traces().size(), 1u);
    EXPECT_EQ(reports.traces()[0].find(L"HRESULT - 80004005; FILE - "), 0u);
}

TEST_F(EditorValue, TellingRepeatsWhatWasAccepted) {
    be_quantity();
    window.enter(L"12");
    forget();
    editor.TellHost();
    EXPECT_EQ(host.calls, (calls{L"7 text 12", L"7 value 12"}));
}

TEST_F(EditorValue, ANewTextThatPadsTheOldOneWithZerosKeepsTheCaretAtItsEnd) {
    be_quantity();
    window.enter(L"12");
    window.enter(L"12500");
    EXPECT_EQ(window.from, 2);
    EXPECT_EQ(window.to, 2);
}

TEST_F(EditorValue, AnyOtherNewTextLeavesTheCaret) {
    be_quantity();
    const auto caret_after = [&](const CString& before, const CString& text) {
        window.enter(before);
        window.text = text;
        window.from = window.to = 5;
        editor.OnUpdate();
        return window.from;
    };
    EXPECT_EQ(caret_after(L"12", L"125"), 5) << "one longer";
    EXPECT_EQ(caret_after(L"12", L"12505"), 5) << "not all zeros";
    EXPECT_EQ(caret_after(L"12", L"31200"), 5) << "another start";
    EXPECT_EQ(caret_after(L"12", L"12"), 5) << "the same";
    EXPECT_EQ(caret_after(L"12", L"12000"), 2);
}

}  // namespace
}  // namespace number_editors_tests
