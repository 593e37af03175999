#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/PropertyValidator.h"

#include <gtest/gtest.h>

#include "tests/number_editors/fake_editor.h"

namespace {

using namespace WTLControls::NumberEditors;
using number_editors_tests::calls;
using number_editors_tests::fake_editor_window;

class PropertyValidator : public testing::Test {
protected:
    PropertyValidator() { use(EEditType::Integer, Check::Number | Check::Range, 1.0, 1000.0); }

    void use(EEditType type, DWORD checks, double min, double max, EFeedback feedback = EFeedback::Balloon) {
        SValidationRule rule;
        rule.type = type;
        rule.checks = checks;
        rule.feedback = feedback;
        rule.window = &window;
        rule.min = min;
        rule.max = max;
        validator.SetRule(5, rule);
    }
    HRESULT check(const CString& text, bool show = false) {
        window.text = text;
        window.calls.clear();
        return validator.Validate(5, show);
    }

    number_locale_scope locale{english()};
    fake_editor_window window;
    CPropertyValidator validator{&number_editors_tests::no_text};
};

TEST_F(PropertyValidator, ARuleStartsAsABalloonWithTheIconSixteen) {
    const SValidationRule rule;
    EXPECT_EQ(rule.feedback, EFeedback::Balloon);
    EXPECT_EQ(rule.icon, 16u);
    EXPECT_EQ(static_cast<int>(EFeedback::Beep), 1);
    EXPECT_EQ(static_cast<int>(EFeedback::Box), 2);
    EXPECT_EQ(static_cast<int>(EFeedback::Balloon), 3);
    EXPECT_EQ(static_cast<int>(EEditType::Integer), 1);
    EXPECT_EQ(static_cast<int>(EEditType::Double), 2);
}

TEST_F(PropertyValidator, TheChecksAreBitsZeroEightAndSixteen) {
    EXPECT_EQ(Check::Number, 0x1u);
    EXPECT_EQ(Check::Positive, 0x100u);
    EXPECT_EQ(Check::Range, 0x10000u);
}

TEST_F(PropertyValidator, AControlWithoutARuleIsFine) {
    window.text = L"abc";
    EXPECT_EQ(validator.Validate(6, true), S_OK);
    EXPECT_EQ(validator.ValidateValue(6, -1e9), S_OK);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(PropertyValidator, AnEmptyTextIsFine) {
    EXPECT_EQ(check(L"", true), S_OK);
    EXPECT_TRUE(window.calls.empty());
}

TEST_F(PropertyValidator, ZerosInFrontAndGroupsDoNotMatter) {
    EXPECT_EQ(check(L"007"), S_OK);
    EXPECT_EQ(check(L"1,000"), S_OK);
    EXPECT_EQ(check(L" 12 "), S_OK);
}

TEST_F(PropertyValidator, ATextThatComesBackAsAnotherIsNoInteger) {
    EXPECT_EQ(check(L"1.5"), E_FAIL);
    EXPECT_EQ(check(L"1.0"), S_OK) << "decimals that are all zeros are none";
    EXPECT_EQ(check(L"2."), S_OK);
}

TEST_F(PropertyValidator, ATextThatIsNoNumberIsRefused) {
    EXPECT_EQ(check(L"abc"), E_FAIL);
    EXPECT_EQ(check(L"12a"), E_FAIL);
    EXPECT_EQ(check(L"1.5K"), E_FAIL);
    EXPECT_EQ(check(L"99999999999"), E_FAIL);
}

TEST_F(PropertyValidator, ADoubleKeepsItsDecimals) {
    use(EEditType::Double, Check::Number | Check::Range, 0.0, 10.0);
    EXPECT_EQ(check(L"1.50"), S_OK);
    EXPECT_EQ(check(L"0.25"), S_OK);
    EXPECT_EQ(check(L"1.5x"), E_FAIL);
}

TEST_F(PropertyValidator, TheEndsOfTheRangeBelongToIt) {
    EXPECT_EQ(check(L"0"), E_FAIL);
    EXPECT_EQ(check(L"1"), S_OK);
    EXPECT_EQ(check(L"1000"), S_OK);
    EXPECT_EQ(check(L"1001"), E_FAIL);
}

TEST_F(PropertyValidator, WithoutTheRangesBitTheRangeIsNotAskedFor) {
    use(EEditType::Integer, Check::Number, 1.0, 10.0);
    EXPECT_EQ(check(L"5000"), S_OK);
}

TEST_F(PropertyValidator, PositiveIsAskedForOnlyWithItsBitAndOfIntegers) {
    use(EEditType::Integer, Check::Number | Check::Positive, 0.0, 0.0);
    EXPECT_EQ(check(L"-1", true), E_FAIL);
    EXPECT_EQ(window.calls, calls{L"balloon Invalid property value|Please enter a positive integer.|16"});
    EXPECT_EQ(check(L"0"), S_OK);
    use(EEditType::Integer, Check::Number, 0.0, 0.0);
    EXPECT_EQ(check(L"-1"), S_OK);
    use(EEditType::Double, Check::Number | Check::Positive, 0.0, 0.0);
    EXPECT_EQ(check(L"-1"), S_OK);
}

TEST_F(PropertyValidator, ARefusalIsShownOnlyWhenAskedFor) {
    check(L"abc", false);
    EXPECT_TRUE(window.calls.empty());
    check(L"abc", true);
    EXPECT_EQ(window.calls.size(), 1u);
}

TEST_F(PropertyValidator, WhatIsNoNumberHasTheMessageOfItsType) {
    check(L"abc", true);
    EXPECT_EQ(window.calls, calls{L"balloon Invalid property value|Please enter an integer.|16"});
    use(EEditType::Double, Check::Number, 0.0, 0.0);
    check(L"abc", true);
    EXPECT_EQ(window.calls, calls{L"balloon Invalid property value|Please enter a number.|16"});
}

TEST_F(PropertyValidator, ARangeIsToldInIntegersOrInDoubles) {
    use(EEditType::Integer, Check::Range, 1.9, 10.9);
    check(L"50", true);
    EXPECT_EQ(window.calls,
              calls{L"balloon Invalid property value|Please enter an integer between 1 and 10.|16"});
    use(EEditType::Double, Check::Range, 0.5, 2.25);
    check(L"50", true);
    EXPECT_EQ(window.calls,
              calls{L"balloon Invalid property value|Please enter a number between 0.500000 and "
                    L"2.250000.|16"});
}

TEST_F(PropertyValidator, PositiveIsToldBeforeTheRange) {
    use(EEditType::Integer, Check::Positive | Check::Range, 1.0, 10.0);
    check(L"-1", true);
    EXPECT_EQ(window.calls, calls{L"balloon Invalid property value|Please enter a positive integer.|16"});
}

TEST_F(PropertyValidator, AValueOutOfRangeIsAlwaysTold) {
    EXPECT_EQ(validator.ValidateValue(5, 1000.0), S_OK);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_EQ(validator.ValidateValue(5, 1000.5), E_FAIL);
    EXPECT_EQ(window.calls,
              calls{L"balloon Invalid property value|Please enter an integer between 1 and 1000.|16"});
}

TEST_F(PropertyValidator, AValueBelowZeroIsToldToBePositive) {
    use(EEditType::Integer, Check::Positive, 0.0, 0.0);
    EXPECT_EQ(validator.ValidateValue(5, -0.5), E_FAIL);
    EXPECT_EQ(window.calls, calls{L"balloon Invalid property value|Please enter a positive integer.|16"});
}

TEST_F(PropertyValidator, ABeepGivesTheFocusBack) {
    use(EEditType::Integer, Check::Range, 1.0, 10.0, EFeedback::Beep);
    EXPECT_EQ(validator.Report(5, Check::Range), 0);
    EXPECT_EQ(window.calls, (calls{L"beep 16", L"focus"}));
    window.calls.clear();
    window.exists = false;
    EXPECT_EQ(validator.Report(5, Check::Range), 0);
    EXPECT_EQ(window.calls, calls{L"beep 16"});
}

TEST_F(PropertyValidator, ABoxGivesTheFocusBackOrBeepsForAWindowThatIsGone) {
    use(EEditType::Integer, Check::Range, 1.0, 10.0, EFeedback::Box);
    const CString box = L"box Invalid property value|Please enter an integer between 1 and 10.|16";
    EXPECT_EQ(validator.Report(5, Check::Range), 0);
    EXPECT_EQ(window.calls, (calls{box, L"focus"}));
    window.calls.clear();
    window.exists = false;
    EXPECT_EQ(validator.Report(5, Check::Range), ERROR_INVALID_HANDLE);
    EXPECT_EQ(window.calls, (calls{box, L"beep 48"}));
}

TEST_F(PropertyValidator, ABalloonLeavesTheFocusAndBeepsForAWindowThatIsGone) {
    EXPECT_EQ(validator.Report(5, Check::Number), 0);
    EXPECT_EQ(window.calls, calls{L"balloon Invalid property value|Please enter an integer.|16"});
    window.calls.clear();
    window.exists = false;
    EXPECT_EQ(validator.Report(5, Check::Number), ERROR_INVALID_HANDLE);
    EXPECT_EQ(window.calls, calls{L"beep 48"});
}

TEST_F(PropertyValidator, OnlyTheFirst256CharactersAreRead) {
    const CString blanks(255, L' ');
    EXPECT_EQ(check(blanks + L"7x"), S_OK);
    EXPECT_EQ(check(blanks + L"x7"), E_FAIL);
}

}  // namespace
