// The smallest host of the order bar: a window with one trading profile that is always connected and quotes
// one future. Every order that arrives stands in the line above the bar. What it is told here by constants a
// real host asks its brokers for; which further classes a host may offer is in docs/embedding.md.
#include <windows.h>

#include <comdef.h>
#include <commctrl.h>
#include <ole2.h>

#include <string>

#include "OrderDeck.h"

namespace {

constexpr wchar_t outer_id[] = L"demo-1";
constexpr double tick = 0.25;
constexpr UINT fill_message = WM_USER + 221;
HWND order_line = nullptr;

// The objects below live as long as the program: nobody's last Release deletes one.
template <class First, class... Rest>
class object : public First, public Rest... {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool is_first = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, __uuidof(First));
        *out = is_first ? static_cast<First*>(this) : nullptr;
        ((IsEqualIID(iid, __uuidof(Rest)) ? void(*out = static_cast<Rest*>(this)) : void()), ...);
        return *out == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
};

// An object with events. One listener is enough: the bar listens once to the collection of profiles and once
// to each profile.
template <class Events, class... Interfaces>
class event_source : public object<Interfaces..., IConnectionPointContainer, IConnectionPoint> {
public:
    STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** point) override {
        *point = IsEqualIID(events, __uuidof(Events)) ? this : nullptr;
        return *point == nullptr ? CONNECT_E_NOCONNECTION : S_OK;
    }
    STDMETHODIMP Advise(IUnknown* events, DWORD* cookie) override {
        *cookie = 1;
        return listener != nullptr ? CONNECT_E_ADVISELIMIT : events->QueryInterface(IID_PPV_ARGS(&listener));
    }
    STDMETHODIMP Unadvise(DWORD) override {
        if (listener == nullptr) {
            return CONNECT_E_NOCONNECTION;
        }
        listener->Release();
        listener = nullptr;
        return S_OK;
    }
    STDMETHODIMP GetConnectionInterface(IID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }

protected:
    Events* listener = nullptr;
};

HRESULT give_text(const wchar_t* text, BSTR* out) {
    return (*out = SysAllocString(text)) == nullptr ? E_OUTOFMEMORY : S_OK;
}

// An array of one element.
HRESULT give_array(VARTYPE type, void* element, SAFEARRAY** out) {
    LONG first = 0;
    *out = SafeArrayCreateVector(type, first, 1);
    return *out == nullptr ? E_OUTOFMEMORY : SafeArrayPutElement(*out, &first, element);
}

// The one profile with its order entry. Its broker answers at once.
class profile : public event_source<ITC_TradingProfileDataChange, ITC_TradingProfile, ITC_ManualTrading> {
public:
    STDMETHODIMP get_Name(BSTR* name) override { return give_text(L"Demo", name); }
    STDMETHODIMP get_PluginName(BSTR* name) override { return give_text(L"Demo broker", name); }
    STDMETHODIMP get_OuterID(BSTR* id) override { return give_text(outer_id, id); }
    STDMETHODIMP get_ManualTrading(ITC_ManualTrading** orders) override {
        *orders = this;
        return S_OK;
    }
    STDMETHODIMP Connect() override { return change_state(eTM_CC_Connected); }
    STDMETHODIMP Disconnect() override { return change_state(eTM_CC_Disconnected); }
    STDMETHODIMP ShowSettings(ULONGLONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_HaveSettings(VARIANT_BOOL* have) override {
        *have = VARIANT_FALSE;
        return S_OK;
    }
    STDMETHODIMP get_ConnectionState(ETM_ConnectionChanged* state) override {
        *state = m_state;
        return S_OK;
    }

    STDMETHODIMP SetAccount(BSTR account) override {
        m_account = account;
        return S_OK;
    }
    STDMETHODIMP GetAccounts(SAFEARRAY** accounts) override {
        return give_array(VT_BSTR, _bstr_t(L"DEMO-1").GetBSTR(), accounts);
    }
    STDMETHODIMP GetTimeInForces(MTPA_OrdrCtgry, SAFEARRAY** codes) override {
        LONG day = eMTPA_TIF_Day;
        return give_array(VT_I4, &day, codes);
    }
    STDMETHODIMP SetSymbol(SManualSymbol* symbol, BSTR) override {
        m_symbol = symbol->Name == nullptr ? L"" : symbol->Name;
        return S_OK;
    }
    // A real host routes the order here; this one shows it.
    STDMETHODIMP PlaceOrder(MTPA_OrdrActn action, MTPA_OrdrCtgry category, LONG quantity, double stop,
                            double limit, LONG, VARIANT*) override {
        constexpr const wchar_t* categories[] = {L" market", L" stop", L" limit", L" stop limit"};
        const std::wstring text = (action == eMTPA_OA_Buy ? L"Buy " : L"Sell ") + std::to_wstring(quantity) +
                                  L" " + m_symbol + categories[category - eMTPA_OC_Market] + L", stop " +
                                  std::to_wstring(stop) + L", limit " + std::to_wstring(limit) + L", " +
                                  m_account;
        SetWindowTextW(order_line, text.c_str());
        return S_OK;
    }

    void quote(double bid) {
        if (listener != nullptr && m_state == eTM_CC_Connected) {
            listener->OnQuote(bid, bid + tick);
        }
    }

private:
    HRESULT change_state(ETM_ConnectionChanged state) {
        m_state = state;
        return listener == nullptr ? S_OK : listener->OnConnectionState(state);
    }

    ETM_ConnectionChanged m_state = eTM_CC_Connected;
    std::wstring m_account;
    std::wstring m_symbol;
};
profile demo;

// The trading centre, its collection of profiles, and the class object by which the bar finds it.
class centre : public event_source<ITC_ItemsChanged, ITC_TradingCenter, ITC_TradingProfileS, IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** out) override {
        return QueryInterface(iid, out);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    STDMETHODIMP Prepare(LONG) override { return S_OK; }
    STDMETHODIMP get_TradingProfiles(ITC_TradingProfileS** all) override {
        *all = this;
        return S_OK;
    }
    STDMETHODIMP get_MasterCounter(LONG* masters) override {
        *masters = 1;
        return S_OK;
    }
    STDMETHODIMP get_Items(SAFEARRAY** items) override {
        VARIANT item{};
        item.vt = VT_UNKNOWN;
        item.punkVal = static_cast<ITC_TradingProfile*>(&demo);
        return give_array(VT_VARIANT, &item, items);
    }
    STDMETHODIMP get_AvailablePlugins(SAFEARRAY** names) override {
        *names = SafeArrayCreateVector(VT_BSTR, 0, 0);
        return S_OK;
    }
    STDMETHODIMP Add(BSTR, BSTR) override { return E_NOTIMPL; }
};
centre only_centre;

// The bar; null before it is docked.
ISWUnifyAccess* bar = nullptr;
IOD_BrokerProfiles* bar_profiles = nullptr;
IOD_OrderDeckDriver* bar_driver = nullptr;
HWND bar_window = nullptr;

// The component lies beside this program.
HRESULT load_bar() {
    const DWORD places = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
    const HMODULE library = LoadLibraryExW(L"OrderDeck.dll", nullptr, places);
    if (library == nullptr) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    const auto get = reinterpret_cast<decltype(&DllGetClassObject)>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    IClassFactory* classes = nullptr;
    HRESULT hr = get(__uuidof(OrderDeckObj), IID_PPV_ARGS(&classes));
    if (SUCCEEDED(hr)) {
        hr = classes->CreateInstance(nullptr, IID_PPV_ARGS(&bar));
        classes->Release();
    }
    return hr;
}

// Puts a symbol that the host knows all about into the tab. With the symbol tables of docs/embedding.md the
// user types one.
void set_symbol() {
    _bstr_t name(L"ESZ6");
    OD_SSymbolInfo future{};
    future.id = 1;
    future.Name = name.GetBSTR();
    future.Category = 2;
    future.PriceScaleCode = 2;
    future.MinMovement = tick * 100;
    future.BigPointValue = 50;
    bar_driver->put_SymbolInfo(_bstr_t(outer_id).GetBSTR(), &future);
}

HRESULT dock_bar(HWND window) {
    if (HRESULT hr = load_bar(); FAILED(hr) || FAILED(hr = bar->Create(window, nullptr, &bar_window))) {
        return hr;
    }
    bar->QueryInterface(IID_PPV_ARGS(&bar_profiles));
    bar->QueryInterface(IID_PPV_ARGS(&bar_driver));
    SendMessageW(bar_window, fill_message, 1, 0);  // Asks for the tabs.
    set_symbol();
    return S_OK;
}

void lay_out(int width, int height) {
    RECT units{0, 0, 0, 48};
    MapDialogRect(bar_window, &units);
    MoveWindow(order_line, 0, 0, width, height - units.bottom, TRUE);
    MoveWindow(bar_window, 0, height - units.bottom, width, units.bottom, TRUE);
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            lay_out(LOWORD(lparam), HIWORD(lparam));
            return 0;
        case WM_TIMER:
            demo.quote(6021.25 + tick * static_cast<double>(GetTickCount() / 1000 % 8));
            return 0;
        case WM_CLOSE:
            // S_FALSE: the user wants to stay connected.
            if (bar_profiles->OnClose() != S_FALSE) {
                bar->Destroy();
                PostQuitMessage(0);
            }
            return 0;
        default:
            return DefWindowProcW(window, message, wparam, lparam);
    }
}

HWND make_window() {
    WNDCLASSW frame{};
    frame.lpfnWndProc = DefWindowProcW;
    frame.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    frame.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    frame.lpszClassName = L"MinimalHost";
    RegisterClassW(&frame);
    const DWORD style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    const HWND window = CreateWindowW(L"MinimalHost", L"Minimal host", style, CW_USEDEFAULT, CW_USEDEFAULT,
                                      1280, 220, nullptr, nullptr, nullptr, nullptr);
    order_line = CreateWindowW(L"STATIC", L"No order yet", WS_CHILD | WS_VISIBLE | SS_NOPREFIX, 0, 0, 0, 0,
                               window, nullptr, nullptr, nullptr);
    return window;
}

int run(int show) {
    DWORD class_cookie = 0;
    CoRegisterClassObject(CLSID_TradingCenter, static_cast<IClassFactory*>(&only_centre),
                          CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &class_cookie);
    const HWND window = make_window();
    if (const HRESULT hr = dock_bar(window); FAILED(hr)) {
        const std::wstring text = L"The order bar can't be loaded: " + std::to_wstring(hr);
        MessageBoxW(window, text.c_str(), L"Minimal host", MB_ICONERROR);
        return 1;
    }
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    ShowWindow(window, show);
    SetTimer(window, 1, 1000, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageW(bar_window, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    bar_driver->Release();
    bar_profiles->Release();
    bar->Release();
    CoRevokeClassObject(class_cookie);
    return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int show) {
    InitCommonControls();
    OleInitialize(nullptr);
    const int result = run(show);
    OleUninitialize();
    return result;
}
