// The two texts of a number: the plain one under the focus and the one for readers.
#include <algorithm>

#include "tests/number_editors/fake_editor.h"
#include "unicomp/FormatUtil/interface/NumberFormat.h"

namespace number_editors_tests {
namespace {

class EditorForms : public editor_test {
protected:
    void use_price(LONG code) {
        price = std::make_shared<CPriceToString>(code);
        editor.put_Price(price, true);
    }

    std::shared_ptr<CPriceToString> price;
};

TEST_F(EditorForms, AValueIsShownPlainWhereTheHostHasNoTextOfItsOwn) {
    host.display = false;
    editor.SetValue(1234.5);
    EXPECT_EQ(window.text, L"1234.5");
    EXPECT_EQ(editor.get_AcceptedValue(), 1234.5);
    EXPECT_EQ(host.calls, (calls{L"7 text 1234.5", L"7 value 1234.5"}));
}

TEST_F(EditorForms, AnUnfocusedValueGetsTheHostsTextAfterThePlainOne) {
    be_quantity();
    editor.SetValue(1500.0);
    EXPECT_EQ(window.calls, (calls{L"text 1500", L"text <1500>"}));
    EXPECT_EQ(editor.get_AcceptedValue(), 1500.0);
    EXPECT_EQ(editor.get_AcceptedText(), L"1500");
    EXPECT_EQ(host.calls, (calls{L"7 text 1500", L"7 value 1500"}));
}

TEST_F(EditorForms, AFocusedValueStaysPlain) {
    be_quantity();
    editor.OnSetFocus();
    editor.SetValue(1500.0);
    EXPECT_EQ(window.text, L"1500");
}

TEST_F(EditorForms, AnEqualTextIsNotWrittenAgain) {
    host.display = false;
    editor.SetValue(15.0);
    forget();
    editor.SetValue(15.0);
    EXPECT_TRUE(window.calls.empty());
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorForms, AValueOutOfRangeIsToldAndNotShown) {
    be_quantity();
    editor.SetValue(12.0);
    forget();
    editor.SetValue(0.0);
    EXPECT_EQ(window.calls,
              calls{L"balloon Invalid property value|Please enter an integer between 1 and 1000000000.|16"});
    EXPECT_EQ(editor.get_AcceptedValue(), 12.0);
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(EditorForms, WithoutARuleEveryValueIsShown) {
    host.display = false;
    editor.SetValue(-3000000000.0);
    EXPECT_EQ(window.text, L"-3000000000");
}

TEST_F(EditorForms, AValueThatIsNoIntegerIsNotAccepted) {
    be_quantity();
    editor.SetValue(12.0);
    editor.SetValue(2.5);
    EXPECT_EQ(editor.get_AcceptedValue(), 12.0);
    EXPECT_EQ(window.text, L"<12>") << "the text for readers is that of the accepted value";
}

TEST_F(EditorForms, TheFocusBringsThePlainNumberAndTheCaretToItsEndLater) {
    be_quantity();
    window.text = L"1.5K";
    window.on_update = nullptr;
    editor.SetValue(1500.0);
    window.on_update = [this] { editor.OnUpdate(); };
    window.text = L"1.5K";
    forget();
    editor.OnSetFocus();
    EXPECT_TRUE(editor.IsFocused());
    EXPECT_EQ(window.calls, (calls{L"text 1500", L"caret timer"}));
    EXPECT_EQ(window.from, 0);
    editor.OnCaretTimer();
    EXPECT_EQ(window.from, 4);
    EXPECT_EQ(window.to, 4);
}

TEST_F(EditorForms, TheCaretMovesLaterOnlyForAbbreviatedTexts) {
    be_quantity();
    editor.SetValue(15.0);
    for (const auto& [text, moves] :
         std::vector<std::pair<CString, bool>>{{L"15", false}, {L"0.1M", true}, {L"2K", true}}) {
        window.text = text;
        forget();
        editor.OnSetFocus();
        EXPECT_EQ(std::count(window.calls.begin(), window.calls.end(), L"caret timer"), moves ? 1 : 0)
            << text;
        editor.OnKillFocus();
    }
}

TEST_F(EditorForms, AnEmptyTextHasNoForms) {
    be_quantity();
    editor.OnSetFocus();
    editor.OnKillFocus();
    EXPECT_EQ(window.text, L"");
    EXPECT_EQ(window.calls, calls{L"hide balloon"});
    EXPECT_EQ(host.calls, calls{L"7 text "});
}

TEST_F(EditorForms, AnEmptyTextThatIsNotAllowedGetsTheLastValueUnderTheFocus) {
    be_quantity();
    window.enter(L"12");
    editor.put_AllowEmpty(false);
    window.text = L"";
    editor.OnSetFocus();
    EXPECT_EQ(window.text, L"12");
}

TEST_F(EditorForms, LeavingAValidTextHidesTheBalloonAcceptsTellsAndShows) {
    be_quantity();
    editor.OnSetFocus();
    window.text = L"0250";
    forget();
    editor.OnKillFocus();
    EXPECT_EQ(window.calls, (calls{L"hide balloon", L"text <250>"}));
    EXPECT_EQ(host.calls, (calls{L"7 text 0250", L"7 value 250"}));
    EXPECT_EQ(editor.get_AcceptedText(), L"0250");
    EXPECT_FALSE(editor.IsFocused());
}

TEST_F(EditorForms, LeavingAnInvalidTextBringsTheLastValueBack) {
    be_quantity();
    editor.OnSetFocus();
    window.enter(L"250");
    window.enter(L"2x");
    forget();
    editor.OnKillFocus();
    EXPECT_EQ(window.calls, (calls{L"text 250", L"text <250>"}));
    EXPECT_EQ(editor.get_AcceptedValue(), 250.0);
    EXPECT_FALSE(editor.IsFocused());
}

TEST_F(EditorForms, LeavingAnEmptyTextKeepsItAndTheValue) {
    be_quantity();
    window.enter(L"250");
    editor.OnSetFocus();
    window.enter(L"");
    editor.OnKillFocus();
    EXPECT_EQ(window.text, L"");
    EXPECT_EQ(editor.GetValue(), 250.0);
}

TEST_F(EditorForms, TheFocusIsGoneThoughTheHostFails) {
    be_quantity();
    window.enter(L"1500");
    editor.OnSetFocus();
    host.fails = E_FAIL;
    editor.OnKillFocus();
    EXPECT_FALSE(editor.IsFocused());
    EXPECT_EQ(window.text, L"<1500>");
}

TEST_F(EditorForms, TheFocusIsGoneThoughTheTextIsNoNumber) {
    editor.OnSetFocus();
    window.text = L"abc";
    EXPECT_THROW(editor.OnKillFocus(), _com_error);
    EXPECT_FALSE(editor.IsFocused());
}

TEST_F(EditorForms, APricesTextIsPlainUnderTheFocusAndGroupedWithoutIt) {
    use_price(2);
    editor.SetValue(12345.5);
    EXPECT_EQ(window.text, L"12,345.50");
    EXPECT_EQ(editor.get_AcceptedValue(), 12345.5) << "by the edit's own notice";
    editor.OnSetFocus();
    EXPECT_EQ(window.text, L"12345.50");
    editor.SetValue(12346.0);
    EXPECT_EQ(window.text, L"12346.00");
    editor.OnKillFocus();
    EXPECT_EQ(window.text, L"12,346.00");
}

TEST_F(EditorForms, SettingAPriceTouchesNoValueItself) {
    use_price(2);
    window.on_update = nullptr;
    editor.SetValue(12.5);
    EXPECT_EQ(window.text, L"12.50");
    EXPECT_EQ(editor.get_AcceptedValue(), 0.0);
}

TEST_F(EditorForms, APricesRangeIsNotAskedForInItsText) {
    be_quantity();
    use_price(2);
    editor.SetValue(0.25);
    EXPECT_EQ(window.text, L"0.25");
    EXPECT_EQ(window.calls, calls{L"text 0.25"});
}

TEST_F(EditorForms, AnInvalidPriceIsReplacedByTheLastOne) {
    use_price(2);
    editor.SetValue(12.5);
    editor.OnSetFocus();
    window.enter(L"abc");
    EXPECT_EQ(editor.get_AcceptedValue(), 12.5);
    editor.OnKillFocus();
    EXPECT_EQ(window.text, L"12.50");
}

TEST_F(EditorForms, APriceThatIsNotForTextsStillFormsTheNumber) {
    be_quantity();
    editor.put_Price(std::make_shared<CPriceToString>(2), false);
    host.display = false;
    editor.SetValue(1234.5);
    EXPECT_EQ(window.text, L"1,234.50");
    editor.OnSetFocus();
    editor.SetValue(1235.5);
    EXPECT_EQ(window.text, L"1235.50");
    editor.SetValue(0.5);
    EXPECT_EQ(window.text, L"1235.50") << "the range holds";
}

// As a panel has its quantity.
class quantity_host final : public editors::INumberEditorHost {
public:
    void OnFormatChange(int, editors::eFormats) override {}
    void OnStringChanged(int, const _bstr_t& text) override { told = platform::text_of(text); }
    bool UsesDisplayText(int) override { return true; }
    CString GetDisplayText(double value) override {
        return local_format::CNumberFormat::QuantityToText(static_cast<LONG>(value));
    }
    CString told;
};

TEST_F(EditorForms, AQuantityIsAbbreviatedForReadersAndTypedInFull) {
    quantity_host panel;
    editors::CNumberEditor quantity{window, &panel, &no_text};
    window.on_update = [&] { quantity.OnUpdate(); };
    quantity.SetParams(1.0, 1.0, 1000000000.0, editors::EEditType::Integer);
    quantity.SetValue(1500.0);
    EXPECT_EQ(window.text, L"1.5K");
    quantity.OnSetFocus();
    EXPECT_EQ(window.text, L"1500");
    window.enter(L"100000");
    quantity.OnKillFocus();
    EXPECT_EQ(window.text, L"0.1M");
    EXPECT_EQ(quantity.GetValue(), 100000.0);
    EXPECT_EQ(panel.told, L"100000");
    quantity.SetValue(1250.0);
    EXPECT_EQ(window.text, L"1,250");
    EXPECT_EQ(quantity.GetValue(), 1250.0);
}

}  // namespace
}  // namespace number_editors_tests
