#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/QuantityCalc.h"

#include <TradingCenter.h>
#include <uxtheme.h>

#include <set>

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

TEST_F(QuantityCalc, TheButtonIsAChildWithTheSpinsIdNearTheRightEnd) {
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

TEST_F(QuantityCalc, TheButtonKeepsItsPlaceInAWiderEdit) {
    MoveWindow(window, 10, 10, 150, 22, TRUE);
    RECT client = {};
    GetClientRect(window, &client);
    EXPECT_EQ(place_in_parent(editor->get_Button()).left, client.right - 32);
}

TEST_F(QuantityCalc, TheTextEndsBeforeTheButton) {
    EXPECT_EQ(HIWORD(send(EM_GETMARGINS)), 34);
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

TEST_F(QuantityCalc, EnablingReachesTheButtonAndTheBackground) {
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

TEST_F(QuantityCalc, TheButtonShowsItsPictureAndAnotherUnderTheMouse) {
    const auto at_rest = drawn(editor->get_Button());
    EXPECT_GT(std::set(at_rest.begin(), at_rest.end()).size(), 3u);
    SendMessageW(editor->get_Button(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    const auto hot = drawn(editor->get_Button());
    EXPECT_GT(std::set(hot.begin(), hot.end()).size(), 3u);
    EXPECT_NE(hot, at_rest);
}

TEST_F(QuantityCalc, AnErasedEditDrawsItsButtonAgain) {
    UpdateWindow(window);
    UpdateWindow(editor->get_Button());
    const HDC dc = GetDC(window);
    send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc));
    ReleaseDC(window, dc);
    EXPECT_TRUE(GetUpdateRect(editor->get_Button(), nullptr, FALSE));
}

TEST_F(QuantityCalc, AReleasedButtonOfTheMouseTakesTheFocusAndPutsTheCaretUnderIt) {
    SetWindowTextW(window, L"123456");
    const LRESULT third = send(EM_POSFROMCHAR, 3);
    SetFocus(other);
    send(WM_LBUTTONUP, 0, MAKELPARAM(LOWORD(third), 8));
    EXPECT_EQ(GetFocus(), window);
    EXPECT_EQ(selection(), std::pair(3ul, 3ul));
}

TEST_F(QuantityCalc, AReleaseInTheFocusedEditLeavesTheSelection) {
    SetFocus(window);
    SetWindowTextW(window, L"123456");
    send(EM_SETSEL, 1, 4);
    send(WM_LBUTTONUP, 0, MAKELPARAM(5, 8));
    EXPECT_EQ(selection(), std::pair(1ul, 4ul));
}

TEST_F(QuantityCalc, AClickBringsItsFramedWindowToTheFront) {
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
TEST_F(QuantityCalc, AnEditThatIsErasedBeforeItHasChildrenLeavesOtherWindowsAlone) {
    CQuantityCalc childless{&host};
    UpdateWindow(other);
    ASSERT_FALSE(GetUpdateRect(other, nullptr, FALSE));
    LRESULT result = 0;
    childless.ProcessWindowMessage(nullptr, WM_ERASEBKGND, 0, 0, result, 0);
    EXPECT_FALSE(GetUpdateRect(other, nullptr, FALSE));
}

TEST_F(QuantityCalc, ADrawnEditComesToRest) {
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
class QuantityInDocument : public QuantityCalc {
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
