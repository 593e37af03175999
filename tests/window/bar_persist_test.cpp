#include <windows.h>

#include <commctrl.h>

#include "platform/registry.h"
#include "platform/utf8.h"
#include "tests/support/failing_registry.h"
#include "tests/support/own_names.h"
#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;

class BarPersist : public window_tests::bar_test {
protected:
    void SetUp() override {
        path = L"Software\\OrderDeck Tests\\bar " + platform::from_utf8(test_support::own_name());
        HKEY existing = nullptr;
        ASSERT_NE(RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &existing), ERROR_SUCCESS);
        ASSERT_EQ(key.Create(HKEY_CURRENT_USER, path), ERROR_SUCCESS);
    }
    void TearDown() override {
        key.Close();
        platform::registry_key::DeleteTree(HKEY_CURRENT_USER, path);
    }

    // Empty when there is no such value.
    CString stored() const {
        wchar_t text[300] = {};
        DWORD type = 0;
        DWORD bytes = sizeof(text) - sizeof(wchar_t);
        return key.QueryValue(L"Current Tab Name", type, reinterpret_cast<BYTE*>(text), bytes) ==
                           ERROR_SUCCESS &&
                       type == REG_SZ
                   ? CString(text)
                   : CString();
    }

    CString path;
    platform::registry_key key;
};

TEST_F(BarPersist, TheCurrentTabsNameIsWritten) {
    add(L"A");
    const auto second = add(L"B");
    bar->SelectTab(second->id);
    bar->Serialize(path);
    EXPECT_EQ(stored(), L"B");
}

TEST_F(BarPersist, WithNoTabTheNameIsDeleted) {
    ASSERT_EQ(key.SetString(L"Current Tab Name", L"B"), ERROR_SUCCESS);
    bar->Serialize(path);
    EXPECT_EQ(stored(), L"");
    EXPECT_TRUE(asserted().empty());
}

TEST_F(BarPersist, AMissingKeyIsReportedWhenWriting) {
    add(L"A");
    bar->Serialize(path + L" absent");
    EXPECT_EQ(asserted(),
              std::vector<std::wstring>{L"key.Open(HKEY_CURRENT_USER, szSubKey) == ERROR_SUCCESS"});
}

TEST_F(BarPersist, ANameThatCannotBeWrittenIsReported) {
    add(L"A");
    failing_registry registry;
    registry.fail("set_value", ERROR_ACCESS_DENIED);
    bar->Serialize(path);
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"lRes == 0L"});
}

TEST_F(BarPersist, TheKeyIsOpenedForReadingAndWritingBothTimes) {
    add(L"A");
    failing_registry registry;
    bar->Serialize(path);
    bar->Deserialize(path);
    const CString opened = L"open_key " + path + L" 2001f";
    EXPECT_EQ(std::count(registry.calls().begin(), registry.calls().end(), opened), 2);
}

TEST_F(BarPersist, TheStoredTabIsSelectedWithItsFields) {
    add(L"A");
    const auto second = add(L"B");
    second->symbol->value = L"OTHER";
    ASSERT_EQ(key.SetString(L"Current Tab Name", L"B"), ERROR_SUCCESS);
    bar->Deserialize(path);
    EXPECT_EQ(bar->get_CurTab(), second);
    EXPECT_EQ(text(203), L"OTHER");
}

TEST_F(BarPersist, ANameThatIsGoneSelectsTheLeftmostAndStaysStored) {
    add(L"A");
    const auto second = add(L"B");
    bar->SelectTab(second->id);
    ASSERT_EQ(key.SetString(L"Current Tab Name", L"Gone"), ERROR_SUCCESS);
    bar->Deserialize(path);
    EXPECT_EQ(current(), L"A");
    EXPECT_EQ(stored(), L"Gone");
}

TEST_F(BarPersist, WithNothingStoredADefaultNameIsLookedFor) {
    add(L"A");
    add(L"Interactive Brokers");
    bar->Deserialize(path);
    EXPECT_EQ(current(), L"Interactive Brokers");
    EXPECT_TRUE(asserted().empty());
}

TEST_F(BarPersist, AnEmptyOrUnreadableNameCountsAsNone) {
    add(L"A");
    add(L"Interactive Brokers");
    ASSERT_EQ(key.SetString(L"Current Tab Name", L""), ERROR_SUCCESS);
    bar->Deserialize(path);
    EXPECT_EQ(current(), L"Interactive Brokers");
    ASSERT_EQ(key.SetString(L"Current Tab Name", CString(400, L'A')), ERROR_SUCCESS);
    bar->SelectTab(bar->get_TabInfos().begin()->first);
    bar->Deserialize(path);
    EXPECT_EQ(current(), L"Interactive Brokers");
    ASSERT_EQ(key.SetDWORD(L"Current Tab Name", 65), ERROR_SUCCESS);
    bar->SelectTab(bar->get_TabInfos().begin()->first);
    bar->Deserialize(path);
    EXPECT_EQ(current(), L"Interactive Brokers");
}

TEST_F(BarPersist, AMissingKeyIsNoErrorWhenReading) {
    add(L"B");
    add(L"A");
    bar->Deserialize(path + L" absent");
    EXPECT_EQ(current(), L"A");
    EXPECT_TRUE(asserted().empty());
}

TEST_F(BarPersist, WithoutTabsReadingSelectsNothing) {
    bar->Deserialize(path);
    pump();
    EXPECT_EQ(bar->get_CurTab(), nullptr);
    EXPECT_TRUE(asserted().empty());
}

// A strip that was selected late draws properly after a trip through its first tab; the trip comes from
// the message loop.
TEST_F(BarPersist, TheTripThroughTheFirstTabIsPosted) {
    add(L"A");
    const auto second = add(L"B");
    ASSERT_EQ(key.SetString(L"Current Tab Name", L"B"), ERROR_SUCCESS);
    static std::vector<int> selections;
    selections.clear();
    const auto spy = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                        DWORD_PTR) -> LRESULT {
        if (message == TCM_SETCURSEL) {
            selections.push_back(static_cast<int>(wParam));
        }
        return DefSubclassProc(window, message, wParam, lParam);
    };
    SetWindowSubclass(strip(), spy, 1, 0);
    bar->Deserialize(path);
    EXPECT_EQ(selections, std::vector<int>{1});
    EXPECT_TRUE(pump_until([] { return selections.size() == 3; }));
    EXPECT_EQ(selections, (std::vector<int>{1, 0, 1}));
    EXPECT_EQ(bar->get_CurTab(), second);
    RemoveWindowSubclass(strip(), spy, 1);
}

TEST_F(BarPersist, NothingPostedRunsAfterTheBarIsGone) {
    add(L"A");
    bar->Deserialize(path);
    bar.reset();
    pump();
    EXPECT_TRUE(asserted().empty());
    EXPECT_TRUE(reports.traces().empty());
}

}  // namespace
