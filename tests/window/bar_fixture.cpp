#include "tests/window/bar_fixture.h"

#include <commctrl.h>

#include "charting/orderdeck/src/window/WindowText.h"
#include "platform/win32/frame/module_instance.h"

namespace window_tests {

using namespace OV_OrderDeck;

namespace {

const wchar_t frame_class[] = L"OrderDeckTestFrame";

HWND make_frame() {
    WNDCLASSW description = {};
    description.lpfnWndProc = &DefWindowProcW;
    description.hInstance = frame::module_instance();
    description.lpszClassName = frame_class;
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    RegisterClassW(&description);
    const HWND window =
        CreateWindowExW(0, frame_class, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 20, 20,
                        1260, 200, nullptr, nullptr, frame::module_instance(), nullptr);
    SetForegroundWindow(window);
    return window;
}

// One for all tests: without a window manager Wine waits for two seconds at the end of each.
HWND shared_frame() {
    static const HWND window = make_frame();
    SetActiveWindow(window);
    return window;
}

}  // namespace

void fake_symbol::LookupWithDialog() {
    ++dialogs;
    value = found.c_str();
    if (in_dialog) {
        in_dialog();
    }
}

void fake_symbol::LookupByText(const CString& text, bool bAskConnect, bool bQuiet) {
    lookups.push_back({text, bAskConnect, bQuiet});
    value = found.c_str();
    if (in_dialog) {
        in_dialog();
    }
}

fake_tab::fake_tab(test::fake_host host, CString tab_name, ETM_ConnectionChanged state)
    : name(std::move(tab_name)),
      host_profile(platform::make_com<test::FakeProfile>(host, name)),
      symbol(boost::make_shared<fake_symbol>()),
      quotes(boost::make_shared<fake_quotes>()) {
    host_profile->state = state;
    profile = platform::make_com<CProfileWrap>(host_profile.get());
    for (const OD_UpdateEntity entity :
         {eODUE_OrderType, eODUE_Quantity, eODUE_FirstPrice, eODUE_SecondPrice, eODUE_Account,
          eODUE_TimeInForce, eODUE_GtdDate, eODUE_Buy, eODUE_Sell}) {
        fields[entity] = boost::make_shared<fake_field>();
        field(entity).value = L"";
    }
    fields[eODUE_Symbol] = symbol;
    fields[eODUE_AskBid] = quotes;
    symbol->value = L"SYM";
    field(eODUE_Quantity).value = L"10";
    field(eODUE_OrderType).items = {{1, L"市價單"}, {2, L"停止單"}, {3, L"限價單"}, {4, L"停止限價單"}};
    field(eODUE_OrderType).selected = 4;
    field(eODUE_Account).items = {{0, L"Paper 1"}, {1, L"Paper 2"}};
    field(eODUE_Account).selected = 0;
    field(eODUE_TimeInForce).items = {{1, L"DAY(當日有效)"}, {4, L"IOC(立即成交否則取消)"}};
    field(eODUE_TimeInForce).selected = 1;
    field(eODUE_Buy).value = L"買進 市價\n1";
    field(eODUE_Sell).value = L"賣出 市價\n1";
    _variant_t date;
    date.vt = VT_DATE;
    date.date = 46000.5;
    field(eODUE_GtdDate).value = date;
}

fake_field& fake_tab::field(OD_UpdateEntity entity) {
    return dynamic_cast<fake_field&>(*fields.at(entity));
}

void fake_tab::become(ETM_ConnectionChanged state) {
    host_profile->state = state;
    profile->get_ConnectionState(false);
}

void fake_tab::note_id(LONG told) {
    s_lowest_id = s_lowest_id == 0 ? told : std::min(s_lowest_id, told);
}

void fake_tab::put_Id(LONG new_id) {
    calls.emplace_back("id");
    id = new_id;
    note_id(new_id);
    if (when_told_id) {
        when_told_id(new_id);
    }
}

bool fake_tab::get_GradientColors(COLORREF& from, COLORREF& to) {
    if (when_coloured) {
        when_coloured();
    }
    if (gradient) {
        from = gradient->first;
        to = gradient->second;
    }
    return gradient.has_value();
}

boost::shared_ptr<IUnifyControl> fake_tab::get_Control(OD_UpdateEntity entity) {
    asked.push_back(entity);
    const auto found = fields.find(entity);
    return found != fields.end() ? found->second : boost::shared_ptr<IUnifyControl>();
}

bar_test::bar_test() : frame(shared_frame()), bar(boost::make_shared<COrderDeckWindow>(frame, owner)) {
    RECT client = {};
    GetClientRect(frame, &client);
    MoveWindow(bar->get_Hwnd(), 0, 0, client.right, 90, TRUE);
    pump();
}

bar_test::~bar_test() {
    bar.reset();
    SetFocus(frame);
    pump();
}

boost::shared_ptr<fake_tab> bar_test::add(const CString& name, ETM_ConnectionChanged state) {
    const auto tab = boost::make_shared<fake_tab>(host, name, state);
    EXPECT_NE(bar->AddTab(tab, false), 0);
    return tab;
}

std::vector<CString> bar_test::names() const {
    std::vector<CString> result;
    for (int i = 0; i < TabCtrl_GetItemCount(strip()); ++i) {
        wchar_t text[100] = {};
        TCITEMW tab = {};
        tab.mask = TCIF_TEXT;
        tab.pszText = text;
        tab.cchTextMax = 100;
        SendMessageW(strip(), TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tab));
        result.emplace_back(tab.pszText);
    }
    return result;
}

std::vector<int> bar_test::images() const {
    std::vector<int> result;
    for (int i = 0; i < TabCtrl_GetItemCount(strip()); ++i) {
        TCITEMW tab = {};
        tab.mask = TCIF_IMAGE;
        SendMessageW(strip(), TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&tab));
        result.push_back(tab.iImage);
    }
    return result;
}

CString bar_test::current() const {
    const int index = TabCtrl_GetCurSel(strip());
    return index == -1 ? CString() : names().at(static_cast<std::size_t>(index));
}

CString bar_test::text(int id) const {
    return window_text(item(id));
}

POINT bar_test::tab_centre(int index) const {
    RECT rect = {};
    TabCtrl_GetItemRect(strip(), index, &rect);
    POINT at = {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    ClientToScreen(strip(), &at);
    return at;
}

void bar_test::click(HWND window) const {
    RECT client = {};
    GetClientRect(window, &client);
    const LPARAM at = MAKELPARAM(client.right - 3, client.bottom / 2);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
}

void bar_test::pump() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool bar_test::pump_until(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 300000;
    while (!condition()) {
        const ULONGLONG now = GetTickCount64();
        if (now >= end) {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        pump();
    }
    return true;
}

std::vector<std::wstring> bar_test::asserted() const {
    std::vector<std::wstring> result;
    for (const reported_assertion& each : reports.assertions()) {
        result.push_back(each.description);
    }
    return result;
}

}  // namespace window_tests
