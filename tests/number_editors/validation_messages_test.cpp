#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/ValidationMessages.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/number_editors/fake_editor.h"

namespace {

using namespace WTLControls::NumberEditors;

TEST(ValidationMessages, HaveTheirDefaultsWithoutASource) {
    const auto texts = load_validation_messages(&number_editors_tests::no_text);
    EXPECT_EQ(texts, (validation_messages{
                         {61712, L"Please enter an integer."},
                         {61713, L"Please enter a number."},
                         {61714, L"Please enter an integer between %i and %i."},
                         {61715, L"Please enter a number between %f and %f."},
                         {61719, L"Please enter a positive integer."},
                         {65209, L"Invalid property value"},
                     }));
}

TEST(ValidationMessages, AreAskedForInOrderOnce) {
    std::vector<UINT> asked;
    load_validation_messages([&](UINT id) {
        asked.push_back(id);
        return std::optional<CString>();
    });
    EXPECT_EQ(asked, (std::vector<UINT>{61712, 61713, 61714, 61715, 61719, 65209}));
}

TEST(ValidationMessages, EachTextOfTheSourceReplacesItsDefault) {
    const auto texts = load_validation_messages(
        [](UINT id) { return id == 61713 ? std::optional<CString>(L"Eine Zahl!") : std::nullopt; });
    EXPECT_EQ(texts.at(61713), L"Eine Zahl!");
    EXPECT_EQ(texts.at(61712), L"Please enter an integer.");
}

TEST(ValidationMessages, APercentSignTakesTheNextCharacterWithIt) {
    const auto texts =
        load_validation_messages([](UINT) { return std::optional<CString>(L"%2 bis %s, 50%% und 100%"); });
    EXPECT_EQ(texts.at(61714), L"%i bis %i, 50%i und 100%");
    EXPECT_EQ(texts.at(61715), L"%f bis %f, 50%f und 100%");
    EXPECT_EQ(texts.at(61712), L"%2 bis %s, 50%% und 100%") << "a text without numbers stays";
    EXPECT_EQ(texts.at(65209), L"%2 bis %s, 50%% und 100%");
}

TEST(ValidationMessages, ATextOfTheSourceIsCutAt256Characters) {
    const auto texts =
        load_validation_messages([](UINT) { return std::optional<CString>(CString(300, L'x')); });
    EXPECT_EQ(texts.at(61712), CString(256, L'x'));
}

TEST(ValidationMessages, IntegersFillTheFirstTwoForms) {
    EXPECT_EQ(fill_integers(L"%i to %i.", -5, 1000000000), L"-5 to 1000000000.");
    EXPECT_EQ(fill_integers(L"%i, %i, %i", 1, 2), L"1, 2, %i");
    EXPECT_EQ(fill_integers(L"at least %i", 1, 2), L"at least 1");
    EXPECT_EQ(fill_integers(L"none", 1, 2), L"none");
}

TEST(ValidationMessages, NothingElseInAMessageIsAFormat) {
    EXPECT_EQ(fill_integers(L"%s %n %i", 1, 2), L"%s %n 1");
    EXPECT_EQ(fill_doubles(L"%i %f", 1.0, 2.0), L"%i 1.000000");
}

TEST(ValidationMessages, DoublesHaveSixDecimalsInTheLocalesForm) {
    {
        const number_locale_scope locale(english());
        EXPECT_EQ(fill_doubles(L"%f - %f", 0.5, 250000.0), L"0.500000 - 250000.000000");
    }
    const number_locale_scope locale(german());
    EXPECT_EQ(fill_doubles(L"%f - %f", 0.5, 250000.0), L"0,500000 - 250000,000000");
}

TEST(ValidationMessages, AFilledTextIsCutAt256Characters) {
    EXPECT_EQ(fill_integers(CString(255, L'x') + L"%i", 123, 4), CString(255, L'x') + L"1");
}

}  // namespace
