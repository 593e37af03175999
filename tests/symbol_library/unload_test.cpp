// What the component leaves behind when its host lets it go.
#include <gtest/gtest.h>

#include <stdlib.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>

#include "OrderDeck.h"
#include "platform/com_ptr.h"
#include "tests/support/child_process.h"
#include "tests/support/diagnostics_recorder.h"

namespace {

constexpr CLSID bar_class = {0x44b37a4c, 0x17ef, 0x4301, {0xb0, 0x5a, 0xa5, 0x4b, 0x61, 0x1d, 0xb7, 0xc2}};

// The program lies two folders below the component's neighbour.
std::wstring component_path() {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring folder(program);
    for (int level = 0; level < 3; ++level) {
        folder.resize(folder.find_last_of(L'\\'));
    }
    return folder + L"\\bin\\OrderDeck.dll";
}

// The component, from its loading to its end.
class component {
public:
    component() : m_handle(LoadLibraryW(component_path().c_str())) { EXPECT_NE(m_handle, nullptr); }
    ~component() {
        EXPECT_EQ(find<decltype(DllCanUnloadNow)>("DllCanUnloadNow")(), S_OK);
        FreeLibrary(m_handle);
        EXPECT_EQ(GetModuleHandleW(L"OrderDeck.dll"), nullptr);
    }
    component(const component&) = delete;
    component& operator=(const component&) = delete;

    template <class Interface>
    com_ptr<Interface> make(REFCLSID clsid) const {
        com_ptr<IClassFactory> factory;
        com_ptr<Interface> made;
        EXPECT_EQ(find<decltype(DllGetClassObject)>("DllGetClassObject")(
                      clsid, __uuidof(IClassFactory), static_cast<void**>(platform::receive(factory))),
                  S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(Interface),
                                          static_cast<void**>(platform::receive(made))),
                  S_OK);
        return made;
    }
    HINSTANCE instance() const { return m_handle; }

private:
    template <class Function>
    Function* find(const char* name) const {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_handle, name)));
    }

    HMODULE m_handle;
};

LONG WINAPI hosts_filter(EXCEPTION_POINTERS*) {
    return EXCEPTION_CONTINUE_SEARCH;
}

void hosts_handler(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, std::uintptr_t) {}

class Unload : public testing::Test {
protected:
    Unload() { CoInitialize(nullptr); }
    ~Unload() override { CoUninitialize(); }

    static bool is_registered(HINSTANCE instance, const wchar_t* name) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof(description);
        return GetClassInfoExW(instance, name, &description) != FALSE;
    }
};

TEST_F(Unload, AfterALookupThatReportedNothingLeavesTheHandlersOfTheHost) {
    const diagnostics_recorder reports;
    const auto first_filter = SetUnhandledExceptionFilter(&hosts_filter);
    const auto first_handler = _set_invalid_parameter_handler(&hosts_handler);
    {
        const component dll;
        const auto lookup = dll.make<IOD_LookupImpl>(__uuidof(LookupImpl));
        ASSERT_EQ(lookup->Initialize(0, _bstr_t(L"OrderDeck Quotes"), VARIANT_TRUE, nullptr), S_OK);
        OD_SSymbolInfo info{};
        OD_LookupResult result = eODLR_Canceled;
        ASSERT_EQ(lookup->GetSymbolInfo(_bstr_t(L"zbz6"), 1, nullptr, &info, &result), S_OK);
        EXPECT_EQ(result, eODLR_Selected);
        for (const BSTR text :
             {info.DataFeed, info.Name, info.Root, info.Description, info.Exchange, info.ExchangeTZI}) {
            SysFreeString(text);
        }
        const auto present = SetUnhandledExceptionFilter(&hosts_filter);
        SetUnhandledExceptionFilter(present);
        EXPECT_NE(present, &hosts_filter) << "the worker's stands before the host's";
        EXPECT_TRUE(reports.steps().empty());
    }
    EXPECT_EQ(SetUnhandledExceptionFilter(first_filter), &hosts_filter);
    EXPECT_EQ(_set_invalid_parameter_handler(first_handler), &hosts_handler);
}

TEST_F(Unload, TakesTheWindowClassesBackAndTheNextOneMayLieElsewhere) {
    const HWND parent = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 800, 100, nullptr, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(parent, nullptr);
    std::set<HINSTANCE> places;
    for (int turn = 0; turn < 3; ++turn) {
        HINSTANCE instance = nullptr;
        {
            const component dll;
            instance = dll.instance();
            const auto bar = dll.make<ISWUnifyAccess>(bar_class);
            HWND window = nullptr;
            ASSERT_EQ(bar->Create(parent, nullptr, &window), S_OK);
            EXPECT_TRUE(is_registered(instance, L"OrderDeck.MessageTarget"));
            EXPECT_TRUE(is_registered(instance, L"OrderDeckRangeBar"));
            EXPECT_EQ(bar->Destroy(), S_OK);
            EXPECT_FALSE(IsWindow(window));
        }
        EXPECT_FALSE(is_registered(instance, L"OrderDeck.MessageTarget"));
        EXPECT_FALSE(is_registered(instance, L"OrderDeckRangeBar"));
        // With its place taken the next one goes elsewhere.
        EXPECT_NE(VirtualAlloc(instance, 1, MEM_RESERVE, PAGE_NOACCESS), nullptr);
        places.insert(instance);
    }
    EXPECT_EQ(places.size(), 3u);
    DestroyWindow(parent);
    for (const HINSTANCE place : places) {
        VirtualFree(place, 0, MEM_RELEASE);
    }
}

TEST_F(Unload, OfABarThatNobodyOpenedTakesTheWindowClassesBackToo) {
    HINSTANCE instance = nullptr;
    {
        const component dll;
        instance = dll.instance();
        EXPECT_EQ(dll.make<ISWUnifyAccess>(bar_class)->UpdateLayout(), OLE_E_BLANK);
        EXPECT_TRUE(is_registered(instance, L"OrderDeck.MessageTarget"));
    }
    EXPECT_FALSE(is_registered(instance, L"OrderDeck.MessageTarget"));
}

std::atomic<bool> reporting{false};

// The first call of the diagnostics library never comes back.
void never_come_back() {
    reporting = true;
    for (;;) {
        Sleep(INFINITE);
    }
}

CHILD_MAIN(ends_inside_a_report) {
    static diagnostics_recorder& recorder = *new diagnostics_recorder;
    recorder.at_each_step(&never_come_back);
    static const component& dll = *new component;
    std::thread([] {
        dll.make<IOD_LookupImpl>(__uuidof(LookupImpl))->Initialize(0, nullptr, VARIANT_FALSE, nullptr);
    }).detach();
    while (!reporting) {
        std::this_thread::yield();
    }
    ExitProcess(5);
}

// The thread that ends with the process has the client's lock in its hands.
TEST_F(Unload, AtTheProcesssEndWaitsForNoReport) {
    test_support::child_process child("ends_inside_a_report");
    EXPECT_EQ(child.wait(), 5);
}

}  // namespace
