#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/QuantityCalc.h"

#include <TradingCenter.h>

#include <cstring>

#include "tests/number_editors/editor_window_fixture.h"
#include "tests/support/fake_services.h"

namespace number_editors_tests {
namespace {

using editors::CQuantityCalc;

// Records `QuantityCalculator.Calculate(owner, quantity, category)`.
class fake_calculator : public test::FakeRunnable<IQuantityCalculator> {
public:
    explicit fake_calculator(test::fake_host host)
        : FakeRunnable<IQuantityCalculator>(std::move(host), "QuantityCalculator") {}

    LONG answer = 0;
    std::function<void()> while_open;

    STDMETHODIMP Calculate(ULONGLONG hOwner, LONG quantity, LONG category, LONG* pQuantity) override {
        const auto told = m_host.enter(
            "QuantityCalculator", {}, "Calculate",
            std::to_string(hOwner) + ", " + std::to_string(quantity) + ", " + std::to_string(category));
        if (while_open) {
            while_open();
        }
        if (told.write) {
            *pQuantity = answer;
        }
        return told.hr;
    }
};

class QuantityCalc : public editor_window_test<CQuantityCalc> {
protected:
    QuantityCalc()
        : editor_window_test<CQuantityCalc>(ES_NUMBER),
          calculator(platform::make_com<fake_calculator>(services)) {
        editor->put_Images(211);
    }
    void register_calculator() {
        registered = std::make_unique<test::fake_class>(services, CLSID_QuantityCalculator, L"", [this] {
            return com_ptr<IUnknown>(static_cast<IQuantityCalculator*>(calculator.get()));
        });
    }
    void press_button() const {
        SendMessageW(editor->get_Button(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(editor->get_Button(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    std::string calculated(LONG quantity, LONG category) const {
        return "QuantityCalculator.Calculate(" + std::to_string(reinterpret_cast<ULONG_PTR>(window)) + ", " +
               std::to_string(quantity) + ", " + std::to_string(category) + ")";
    }

    test::fake_host services;
    com_ptr<fake_calculator> calculator;
    std::unique_ptr<test::fake_class> registered;
};

TEST_F(QuantityCalc, TheClassAndItsInterfaceHaveTheirIds) {
    CLSID clsid = {};
    CLSIDFromString(L"{C5E6FF5F-787F-4624-BA5C-72D87E45EDD7}", &clsid);
    EXPECT_TRUE(IsEqualGUID(clsid, CLSID_QuantityCalculator));
    IID iid = {};
    CLSIDFromString(L"{259AA236-315F-45AC-B8DC-3C84DEFF0176}", &iid);
    EXPECT_TRUE(IsEqualGUID(iid, __uuidof(IQuantityCalculator)));
}

// A pointer to a virtual operation holds one more than its offset in the table.
TEST_F(QuantityCalc, TheCalculationIsTheFourthOperationOfItsInterface) {
    const auto calculate = &IQuantityCalculator::Calculate;
    std::size_t offset = 0;
    std::memcpy(&offset, &calculate, sizeof offset);
    EXPECT_EQ((offset - 1) / sizeof(void*) + 1, 4U);
}

TEST_F(QuantityCalc, AQuantityIsADigitsOnlyIntegerFromOneToAThousandMillion) {
    EXPECT_NE(GetWindowLongPtrW(window, GWL_STYLE) & ES_NUMBER, 0);
    const editors::SValidationRule* const rule =
        editor->get_Editor().get_Validator().FindRule(GetDlgCtrlID(window));
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->type, editors::EEditType::Integer);
    EXPECT_EQ(rule->min, 1.0);
    EXPECT_EQ(rule->max, 1000000000.0);
    EXPECT_EQ(editor->get_Editor().get_Step(), 1.0);
    EXPECT_TRUE(editor->get_Editor().get_AllowEmpty());
}

TEST_F(QuantityCalc, ItMovesInHundredsForStocks) {
    SetFocus(window);
    SetWindowTextW(window, L"1");
    send(WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(text(), L"2");
    editor->put_Mode(2);
    send(WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(text(), L"102");
    editor->put_Mode(3);
    send(WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(text(), L"103");
}

TEST_F(QuantityCalc, TheLargestQuantityDoesNotMove) {
    editor->put_Mode(2);
    SetFocus(window);
    SetWindowTextW(window, L"1000000000");
    send(WM_KEYDOWN, VK_UP, 1);
    EXPECT_EQ(text(), L"1000000000");
}

TEST_F(QuantityCalc, TheButtonAsksTheCalculatorWithTheValueAndTheCategory) {
    register_calculator();
    calculator->answer = 700;
    editor->put_Mode(2);
    SetWindowTextW(window, L"300");
    host.calls.clear();
    press_button();
    EXPECT_EQ(services.take(), (std::vector<std::string>{"Class.CreateInstance()", "QuantityCalculator.Run()",
                                                         calculated(300, 2)}));
    EXPECT_EQ(text(), L"700");
    EXPECT_EQ(editor->get_Editor().get_AcceptedValue(), 700.0);
    EXPECT_EQ(host.calls.front(), L"text 700");
    EXPECT_EQ(GetFocus(), window);
    EXPECT_TRUE(asserted().empty());
}

TEST_F(QuantityCalc, TheKeyF4PressesTheButton) {
    register_calculator();
    calculator->answer = 25;
    SetFocus(window);
    SetWindowTextW(window, L"300");
    send(WM_KEYDOWN, VK_F4, 1);
    EXPECT_EQ(services.count("Calculate"), 1);
    EXPECT_EQ(text(), L"25");
}

TEST_F(QuantityCalc, ACalculatorThatFailsChangesNothing) {
    register_calculator();
    calculator->answer = 700;
    services.fail("QuantityCalculator.Calculate", E_ABORT);
    SetWindowTextW(window, L"300");
    press_button();
    EXPECT_EQ(text(), L"300");
    services.forget_faults();
    services.fail_and_write("QuantityCalculator.Calculate", E_FAIL);
    press_button();
    EXPECT_EQ(text(), L"300");
    EXPECT_TRUE(asserted().empty());
}

TEST_F(QuantityCalc, AnAnswerOutOfRangeIsNotTaken) {
    register_calculator();
    SetWindowTextW(window, L"300");
    for (const LONG answer : {0, -5, 1000000001}) {
        calculator->answer = answer;
        press_button();
        EXPECT_EQ(editor->GetValue(), 300.0) << answer;
    }
}

TEST_F(QuantityCalc, ACalculatorThatCannotBeMadeIsReported) {
    SetWindowTextW(window, L"300");
    press_button();
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"((HRESULT)0L) == hRes"});
    EXPECT_EQ(text(), L"300");
}

TEST_F(QuantityCalc, ACalculatorThatDoesNotRunOrIsAnotherIsReported) {
    register_calculator();
    services.fail("QuantityCalculator.Run", E_OUTOFMEMORY);
    press_button();
    services.forget_faults();
    calculator->query_result = E_NOINTERFACE;
    press_button();
    EXPECT_EQ(asserted(), (std::vector<std::wstring>(2, L"((HRESULT)0L) == hRes")));
    EXPECT_EQ(reports.assertions()[0].hresult, E_OUTOFMEMORY);
    EXPECT_EQ(reports.assertions()[1].hresult, E_NOINTERFACE);
    EXPECT_EQ(services.count("Calculate"), 0);
}

TEST_F(QuantityCalc, AnEditThatGoesWhileTheCalculatorIsOpenIsLeftAlone) {
    register_calculator();
    calculator->answer = 700;
    calculator->while_open = [this] { DestroyWindow(window); };
    SetWindowTextW(window, L"300");
    host.calls.clear();
    press_button();
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(QuantityCalc, OnlyTheButtonsClickOpensTheCalculator) {
    register_calculator();
    send(WM_COMMAND, MAKEWPARAM(10003, BN_SETFOCUS));
    send(WM_COMMAND, MAKEWPARAM(10004, BN_CLICKED));
    EXPECT_EQ(services.count("Calculate"), 0);
}

}  // namespace
}  // namespace number_editors_tests
