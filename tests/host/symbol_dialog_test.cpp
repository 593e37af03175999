#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "centre_fixture.h"
#include "com/class_object.h"
#include "propds2/property_sheet.h"
#include "symbols/page.h"
#include "symbols/resource.h"

namespace host {
namespace {

using ::testing::ElementsAre;

instrument make_one(int id, std::string name, std::string description, std::string feed) {
    instrument one;
    one.id = id;
    one.kind = instrument_kind::stock;
    one.name = std::move(name);
    one.description = std::move(description);
    one.exchange = "X" + std::to_string(id);
    one.feed = std::move(feed);
    return one;
}

symbol_store make_store() {
    return symbol_store({make_one(1, "ABC", "Delta", "Main"), make_one(2, "AB", "Charlie", "Main"),
                         make_one(3, "XAB", "Bravo", "Main"), make_one(4, "ZZZ", "Alpha", "Main"),
                         make_one(5, "AB", "Echo", "Other")});
}

// The names of the list of a window, top to bottom.
std::vector<std::string> names(HWND panel, int column = 0) {
    const HWND list = GetDlgItem(panel, IDC_SYMBOL_LIST);
    std::vector<std::string> all;
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        wchar_t text[64] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 64;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        all.push_back(to_utf8(text));
    }
    return all;
}

void type(HWND panel, const wchar_t* text) {
    SetDlgItemTextW(panel, IDC_SYMBOL_TEXT, text);
}

void press_in_search_line(HWND panel, WPARAM key) {
    SendDlgItemMessageW(panel, IDC_SYMBOL_TEXT, WM_KEYDOWN, key, 1);
}

void click_header(HWND panel, int column) {
    NMLISTVIEW notice{};
    notice.hdr = {GetDlgItem(panel, IDC_SYMBOL_LIST), IDC_SYMBOL_LIST, static_cast<UINT>(LVN_COLUMNCLICK)};
    notice.iSubItem = column;
    SendMessageW(panel, WM_NOTIFY, IDC_SYMBOL_LIST, reinterpret_cast<LPARAM>(&notice));
}

class HostSymbolPanel : public ::testing::Test {
protected:
    void SetUp() override {
        m_parent =
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 700, 400, nullptr, nullptr, nullptr, nullptr);
    }
    void TearDown() override {
        m_panel.reset();
        DestroyWindow(m_parent);
    }
    HWND open(const symbol_panel_start& start, const symbol_filter::takes& takes = nullptr) {
        m_panel = std::make_unique<symbol_panel>(m_parent, RECT{0, 0, 700, 400}, m_store, takes, start,
                                                 [this] { ++m_changes; });
        return m_panel->handle();
    }
    int chosen() const { return m_panel->chosen() == nullptr ? 0 : m_panel->chosen()->id; }

    symbol_store m_store = make_store();
    HWND m_parent = nullptr;
    std::unique_ptr<symbol_panel> m_panel;
    int m_changes = 0;
};

TEST_F(HostSymbolPanel, ItBeginsWithTheFeedTheTextAndThePresentChoice) {
    HWND panel = open({"Main", "", 3});
    EXPECT_THAT(names(panel), ElementsAre("ABC", "AB", "XAB", "ZZZ"));
    EXPECT_EQ(chosen(), 3);
    panel = open({"Main", "ab", 0});
    EXPECT_THAT(names(panel), ElementsAre("AB", "ABC", "XAB"));
    EXPECT_EQ(chosen(), 2);
    panel = open({"Unknown", "", 0});
    EXPECT_THAT(names(panel), ElementsAre("ABC", "AB", "XAB", "ZZZ", "AB"));
}

TEST_F(HostSymbolPanel, EveryColumnIsShown) {
    const HWND panel = open({"Other", "", 0});
    EXPECT_THAT(names(panel, 0), ElementsAre("AB"));
    EXPECT_THAT(names(panel, 1), ElementsAre("Echo"));
    EXPECT_THAT(names(panel, 2), ElementsAre("X5"));
    EXPECT_THAT(names(panel, 3), ElementsAre("Stock"));
    EXPECT_THAT(names(panel, 4), ElementsAre("Other"));
}

TEST_F(HostSymbolPanel, EachKeyNarrowsTheListAndChoosesTheBestMatch) {
    const HWND panel = open({"Main", "", 4});
    type(panel, L"b");
    EXPECT_EQ(chosen(), 1);
    type(panel, L"xa");
    EXPECT_THAT(names(panel), ElementsAre("XAB"));
    EXPECT_EQ(chosen(), 3);
    const int before = m_changes;
    type(panel, L"nothing like it");
    EXPECT_THAT(names(panel), ElementsAre());
    EXPECT_EQ(chosen(), 0);
    EXPECT_GT(m_changes, before);
}

TEST_F(HostSymbolPanel, TheArrowsOfTheSearchLineMoveInTheList) {
    const HWND panel = open({"Main", "ab", 0});
    press_in_search_line(panel, VK_DOWN);
    EXPECT_EQ(chosen(), 1);
    press_in_search_line(panel, VK_DOWN);
    press_in_search_line(panel, VK_DOWN);
    EXPECT_EQ(chosen(), 3);
    press_in_search_line(panel, VK_UP);
    EXPECT_EQ(chosen(), 1);
}

TEST_F(HostSymbolPanel, AnotherFeedShowsItsOwnSymbols) {
    const HWND panel = open({"Main", "ab", 0});
    SendDlgItemMessageW(panel, IDC_SYMBOL_FEED, CB_SETCURSEL, 2, 0);
    SendMessageW(panel, WM_COMMAND, MAKEWPARAM(IDC_SYMBOL_FEED, CBN_SELCHANGE), 0);
    EXPECT_EQ(chosen(), 5);
    SendDlgItemMessageW(panel, IDC_SYMBOL_FEED, CB_SETCURSEL, 0, 0);
    SendMessageW(panel, WM_COMMAND, MAKEWPARAM(IDC_SYMBOL_FEED, CBN_SELCHANGE), 0);
    EXPECT_THAT(names(panel, 4), ElementsAre("Main", "Other", "Main", "Main"));
}

TEST_F(HostSymbolPanel, AColumnSortsAndSortsBackAndKeepsTheChosenSymbol) {
    const HWND panel = open({"Main", "", 2});
    click_header(panel, 1);
    EXPECT_THAT(names(panel, 1), ElementsAre("Alpha", "Bravo", "Charlie", "Delta"));
    EXPECT_EQ(chosen(), 2);
    click_header(panel, 1);
    EXPECT_THAT(names(panel, 1), ElementsAre("Delta", "Charlie", "Bravo", "Alpha"));
    EXPECT_EQ(chosen(), 2);
    click_header(panel, 0);
    EXPECT_THAT(names(panel), ElementsAre("AB", "ABC", "XAB", "ZZZ"));
    // What is typed afterwards stays sorted.
    type(panel, L"b");
    EXPECT_THAT(names(panel), ElementsAre("AB", "ABC", "XAB"));
}

TEST_F(HostSymbolPanel, WhatTheFilterHidesIsNotOffered) {
    const HWND panel = open({"Main", "", 0}, [](const instrument& one) { return one.id != 2; });
    EXPECT_THAT(names(panel), ElementsAre("ABC", "XAB", "ZZZ"));
}

// Hides one name, and keeps what it was asked.
class name_filter : public object<IOD_LookupFilter> {
public:
    STDMETHODIMP IsFiltered(BSTR name, BSTR feed, LONG category, BSTR exchange,
                            VARIANT_BOOL* out) noexcept override {
        asked.push_back(bstr_text(name) + "|" + bstr_text(feed) + "|" + std::to_string(category) + "|" +
                        bstr_text(exchange));
        *out = bstr_text(name) == "AB" ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }

    std::vector<std::string> asked;
};

class HostPropertySheet : public ::testing::Test {
protected:
    HostPropertySheet() {
        m_classes.add(GUID_SymbolPage, [] { return ref<IUnknown>(make<symbol_page>()->unknown()); });
        m_choice->Prepare();
        m_choice->put_DataFeed(bstr("Main"));
    }
    HRESULT create(std::vector<IUnknown*> objects) {
        return m_sheet->Create(0x80, bstr("選擇商品"), static_cast<LONG>(objects.size()), objects.data(), 1,
                               &GUID_SymbolPage);
    }

    // Shows the sheet; act gets its window once it is there and has to end it.
    LONG show(std::function<void(HWND)> act) {
        s_act = std::move(act);
        const UINT_PTR timer = SetTimer(nullptr, 0, 10, &on_timer);
        LONG result = -7;
        EXPECT_EQ(m_sheet->ShowModal(0, &result), S_OK);
        KillTimer(nullptr, timer);
        return result;
    }
    static HWND page_of(HWND sheet) { return FindWindowExW(sheet, nullptr, L"#32770", nullptr); }

    symbol_store m_store = make_store();
    ref<symbol_choice> m_choice = make<symbol_choice>(m_store);
    ref<property_sheet> m_sheet = make<property_sheet>();

private:
    static BOOL CALLBACK find_sheet(HWND window, LPARAM found) {
        wchar_t text[32] = L"";
        GetWindowTextW(window, text, 32);
        if (IsWindowVisible(window) != FALSE && std::wstring(text) == L"選擇商品") {
            *reinterpret_cast<HWND*>(found) = window;
        }
        return TRUE;
    }
    static void CALLBACK on_timer(HWND, UINT, UINT_PTR, DWORD) {
        HWND sheet = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &find_sheet, reinterpret_cast<LPARAM>(&sheet));
        if (sheet != nullptr && s_act) {
            std::exchange(s_act, nullptr)(sheet);
        }
    }

    inline static std::function<void(HWND)> s_act;
    class_registry m_classes;
};

TEST_F(HostPropertySheet, OkPicksTheChosenRowAndCancelPicksNothing) {
    ASSERT_EQ(create({m_choice->unknown()}), S_OK);
    LONG id = -7;
    EXPECT_EQ(show([](HWND sheet) { SendMessageW(sheet, WM_COMMAND, IDCANCEL, 0); }), 1);
    EXPECT_EQ(m_choice->get_SymbolId(&id), E_UNEXPECTED);
    EXPECT_EQ(show([](HWND sheet) {
                  type(page_of(sheet), L"xab");
                  SendMessageW(sheet, WM_COMMAND, IDOK, 0);
              }),
              0);
    EXPECT_EQ(m_choice->get_SymbolId(&id), S_OK);
    EXPECT_EQ(id, 3);
}

TEST_F(HostPropertySheet, WithNoRowOkIsDisabledAndDoesNothing) {
    ASSERT_EQ(create({m_choice->unknown()}), S_OK);
    EXPECT_EQ(show([](HWND sheet) {
                  EXPECT_TRUE(IsWindowEnabled(GetDlgItem(sheet, IDOK)));
                  type(page_of(sheet), L"nothing like it");
                  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet, IDOK)));
                  SendMessageW(sheet, WM_COMMAND, IDOK, 0);
                  type(page_of(sheet), L"");
                  EXPECT_TRUE(IsWindowEnabled(GetDlgItem(sheet, IDOK)));
                  SendMessageW(sheet, WM_COMMAND, IDCANCEL, 0);
              }),
              1);
}

TEST_F(HostPropertySheet, ThePageGrowsWithTheSheetAndTheTabKeyStartsAtTheSearchLine) {
    ASSERT_EQ(create({m_choice->unknown()}), S_OK);
    show([](HWND sheet) {
        RECT before{};
        GetClientRect(page_of(sheet), &before);
        RECT window{};
        GetWindowRect(sheet, &window);
        SetWindowPos(sheet, nullptr, 0, 0, window.right - window.left + 60, window.bottom - window.top + 40,
                     SWP_NOMOVE | SWP_NOZORDER);
        RECT after{};
        GetClientRect(page_of(sheet), &after);
        EXPECT_EQ(after.right, before.right + 60);
        EXPECT_EQ(after.bottom, before.bottom + 40);
        EXPECT_EQ(GetNextDlgTabItem(sheet, nullptr, FALSE), GetDlgItem(page_of(sheet), IDC_SYMBOL_TEXT));
        EXPECT_EQ(GetNextDlgTabItem(sheet, GetDlgItem(page_of(sheet), IDC_SYMBOL_LIST), FALSE),
                  GetDlgItem(sheet, IDOK));
        SendMessageW(sheet, WM_COMMAND, IDCANCEL, 0);
    });
}

TEST_F(HostPropertySheet, TheFilterAmongTheObjectsIsAskedForEverySymbol) {
    const auto filter = make<name_filter>();
    ASSERT_EQ(create({m_choice->unknown(), filter->unknown()}), S_OK);
    std::vector<std::string> shown;
    show([&](HWND sheet) {
        shown = names(page_of(sheet));
        SendMessageW(sheet, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_THAT(shown, ElementsAre("ABC", "XAB", "ZZZ"));
    EXPECT_EQ(filter->asked.size(), 5u);
    EXPECT_EQ(filter->asked.front(), "ABC|Main|2|X1");
}

TEST_F(HostPropertySheet, WhatIsNoSheetOfOnePageIsRefused) {
    LONG result = -7;
    EXPECT_EQ(m_sheet->ShowModal(0, &result), E_UNEXPECTED);
    IUnknown* object = m_choice->unknown();
    const GUID pages[2] = {GUID_SymbolPage, GUID_SymbolPage};
    EXPECT_EQ(m_sheet->Create(0, nullptr, 1, &object, 1, pages), E_INVALIDARG);
    EXPECT_EQ(m_sheet->Create(0x80, nullptr, 1, &object, 2, pages), E_INVALIDARG);
    EXPECT_EQ(m_sheet->Create(0x80, nullptr, 1, &object, 1, nullptr), E_INVALIDARG);
    // A page without its data has nothing to show.
    const auto stranger = make<name_filter>();
    EXPECT_EQ(create({stranger->unknown()}), E_INVALIDARG);
    EXPECT_EQ(m_sheet->ShowModal(0, &result), E_UNEXPECTED);
    EXPECT_EQ(query<IQVPropertyContext>(m_sheet->unknown())->put_SettingsRoot(bstr("anywhere")), S_OK);
}

}  // namespace
}  // namespace host
