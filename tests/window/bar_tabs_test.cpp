#include <windows.h>

#include <commctrl.h>

#include "tests/window/bar_fixture.h"

namespace {

using namespace OV_OrderDeck;
using window_tests::fake_tab;
using texts = std::vector<CString>;

class BarTabs : public window_tests::bar_test {};

TEST_F(BarTabs, AreSortedByNameWithCase) {
    add(L"B");
    add(L"A");
    add(L"b");
    add(L"AA");
    EXPECT_EQ(names(), (texts{L"A", L"AA", L"B", L"b"}));
}

TEST_F(BarTabs, OfEqualNamesTheNewerStandsInFront) {
    const auto first = add(L"A");
    const auto second = add(L"A");
    EXPECT_EQ(names(), (texts{L"A", L"A"}));
    bar->SelectTab(second->id);
    EXPECT_EQ(TabCtrl_GetCurSel(strip()), 0);
}

TEST_F(BarTabs, IdsAreNeverZeroAndNeverUsedAgain) {
    const auto first = add(L"A");
    const LONG before = first->id;
    EXPECT_GT(before, 0);
    ASSERT_TRUE(bar->RemoveTab(before));
    const auto second = add(L"A");
    EXPECT_EQ(second->id, before + 1);
    EXPECT_EQ(bar->get_Tab(second->id), second);
    EXPECT_FALSE(bar->get_Tab(before));
}

TEST_F(BarTabs, TheFirstImageTellsTheConnection) {
    add(L"A", eTM_CC_Disconnected);
    add(L"B", eTM_CC_Connected);
    add(L"C", eTM_CC_Connecting);
    EXPECT_EQ(images(), (std::vector<int>{0, 1, 0}));
}

TEST_F(BarTabs, ThreeImagesOfSixteenPixelsTellTheStates) {
    const HIMAGELIST list = TabCtrl_GetImageList(strip());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(ImageList_GetImageCount(list), 3);
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(list, &width, &height);
    EXPECT_EQ(width, 16);
    EXPECT_EQ(height, 16);
}

TEST_F(BarTabs, ANullTabIsReportedAndRefused) {
    try {
        bar->AddTab({}, true);
        FAIL() << "nothing raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_POINTER);
    }
    EXPECT_EQ(asserted().size(), 1u);
    EXPECT_EQ(bar->get_TabCount(), 0);
}

TEST_F(BarTabs, ASilentAddShowsNothing) {
    bar->AddTab(boost::make_shared<fake_tab>(host, L"A", eTM_CC_Connected), true);
    EXPECT_FALSE(IsWindowVisible(strip()));
    bar->Show(true);
    EXPECT_TRUE(IsWindowVisible(strip()));
}

TEST_F(BarTabs, RemovingTheCurrentOneSelectsTheLeftmost) {
    add(L"A");
    const auto second = add(L"B");
    add(L"C");
    bar->SelectTab(second->id);
    EXPECT_TRUE(bar->RemoveTab(second->id));
    EXPECT_EQ(names(), (texts{L"A", L"C"}));
    EXPECT_EQ(current(), L"A");
}

TEST_F(BarTabs, RemovingAnUnknownOneChangesNothing) {
    add(L"A");
    EXPECT_FALSE(bar->RemoveTab(0));
    EXPECT_FALSE(bar->RemoveTab(123456));
    EXPECT_EQ(bar->get_TabCount(), 1);
    EXPECT_TRUE(asserted().empty());
}

TEST_F(BarTabs, RemovingAllLeavesShowingToTheCaller) {
    add(L"A");
    add(L"B");
    EXPECT_TRUE(bar->RemoveAllTabs());
    EXPECT_EQ(bar->get_TabCount(), 0);
    EXPECT_TRUE(bar->get_TabInfos().empty());
    EXPECT_TRUE(IsWindowVisible(strip()));
    bar->Show(true);
    EXPECT_FALSE(IsWindowVisible(strip()));
}

TEST_F(BarTabs, WithNoneOnlyTheSetUpButtonIsToBeSeen) {
    bar->Show(true);
    EXPECT_TRUE(IsWindowVisible(setup_button()));
    EXPECT_FALSE(IsWindowVisible(strip()));
    EXPECT_FALSE(IsWindowVisible(panel()));
    const auto tab = add(L"A");
    EXPECT_FALSE(IsWindowVisible(setup_button()));
    EXPECT_TRUE(IsWindowVisible(strip()));
    EXPECT_TRUE(IsWindowVisible(panel()));
    bar->RemoveTab(tab->id);
    EXPECT_TRUE(IsWindowVisible(setup_button()));
    EXPECT_FALSE(IsWindowVisible(strip()));
    EXPECT_FALSE(IsWindowVisible(panel()));
}

TEST_F(BarTabs, HiddenTheBarShowsNothingOfItself) {
    bar->Show(true);
    bar->Show(false);
    EXPECT_FALSE(IsWindowVisible(setup_button()));
    add(L"A");
    bar->Show(false);
    EXPECT_FALSE(IsWindowVisible(strip()));
    EXPECT_FALSE(IsWindowVisible(panel()));
    EXPECT_FALSE(IsWindowVisible(setup_button()));
}

TEST_F(BarTabs, ShowingBringsEveryFieldOfTheCurrentTabUpToDateInOrder) {
    const auto tab = add(L"A");
    tab->asked.clear();
    bar->Show(true);
    const std::vector<unsigned> all = {0x80,   0x100,  0x200,  0x400,   0x800,  0x1000,
                                       0x2000, 0x4000, 0x8000, 0x10000, 0x20000};
    std::vector<unsigned> fields;
    for (const unsigned bit : tab->asked) {
        if (fields.empty() || fields.back() != bit) {
            fields.push_back(bit);
        }
    }
    // Setting the starting quantity reaches the quantity field in between.
    fields.erase(std::remove(fields.begin(), fields.end(), 0x200u), fields.end());
    std::vector<unsigned> expected = all;
    expected.erase(std::remove(expected.begin(), expected.end(), 0x200u), expected.end());
    EXPECT_EQ(fields, expected);
}

TEST_F(BarTabs, ARenamedTabMovesKeepsItsIdAndStaysCurrentWithARedMark) {
    const auto first = add(L"A", eTM_CC_Connected);
    add(L"M", eTM_CC_Connected);
    bar->SelectTab(first->id);
    const LONG id = first->id;
    first->name = L"Z";
    bar->Update(id, UpdateMask::Name);
    EXPECT_EQ(names(), (texts{L"M", L"Z"}));
    EXPECT_EQ(images(), (std::vector<int>{1, 0}));
    EXPECT_EQ(current(), L"Z");
    EXPECT_EQ(bar->get_Tab(id), first);
    bar->Update(id, UpdateMask::ConnectionState);
    EXPECT_EQ(images(), (std::vector<int>{1, 1}));
}

TEST_F(BarTabs, ARenamedTabThatWasNotCurrentDoesNotBecomeCurrent) {
    const auto first = add(L"A");
    const auto second = add(L"M");
    bar->SelectTab(second->id);
    first->name = L"Z";
    bar->Update(first->id, UpdateMask::Name);
    EXPECT_EQ(current(), L"M");
}

TEST_F(BarTabs, AnUnchangedNameKeepsPlaceAndMark) {
    const auto first = add(L"A", eTM_CC_Connected);
    bar->Update(first->id, UpdateMask::Name);
    EXPECT_EQ(images(), (std::vector<int>{1}));
}

TEST_F(BarTabs, TheMarkFollowsTheConnectionAndStaysForAnUnknownState) {
    const auto tab = add(L"A");
    const std::pair<int, int> rows[] = {{512, 2}, {768, 1}, {256, 0}, {768, 1}, {1024, 1}, {0, 1}};
    for (const auto& [state, image] : rows) {
        tab->become(static_cast<ETM_ConnectionChanged>(state));
        bar->Update(tab->id, UpdateMask::ConnectionState);
        EXPECT_EQ(images(), std::vector<int>{image}) << state;
    }
}

TEST_F(BarTabs, AConnectionUpdateWithoutAProfileIsReportedAndRaised) {
    const auto tab = add(L"A");
    tab->profile.reset();
    EXPECT_THROW(bar->Update(tab->id, UpdateMask::ConnectionState), _com_error);
    EXPECT_EQ(asserted().size(), 1u);
}

TEST_F(BarTabs, AHiddenTabChangesTheStripAndNotThePanel) {
    const auto first = add(L"A");
    const auto second = add(L"B");
    bar->SelectTab(first->id);
    second->name = L"C";
    second->become(eTM_CC_Connected);
    second->asked.clear();
    first->asked.clear();
    bar->Update(second->id, UpdateMask::Everything);
    EXPECT_EQ(names(), (texts{L"A", L"C"}));
    EXPECT_EQ(images(), (std::vector<int>{0, 1}));
    EXPECT_TRUE(second->asked.empty());
    EXPECT_TRUE(first->asked.empty());
}

TEST_F(BarTabs, ARepaintAloneAsksNoField) {
    const auto tab = add(L"A");
    tab->asked.clear();
    bar->Update(tab->id, UpdateMask::Repaint);
    EXPECT_TRUE(tab->asked.empty());
    bar->Update(tab->id, UpdateMask::Prices);
    EXPECT_EQ(tab->asked, (std::vector<unsigned>{0x400, 0x800}));
}

TEST_F(BarTabs, AnUpdateOfAnUnknownTabIsReportedAndRaised) {
    try {
        bar->Update(987654, UpdateMask::AllFields);
        FAIL() << "nothing raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_FAIL);
    }
    EXPECT_EQ(asserted(), std::vector<std::wstring>{L"0"});
}

TEST_F(BarTabs, SelectingShowsTheFieldsOfTheNewTabInTheSamePanel) {
    const auto first = add(L"A");
    const auto second = add(L"B");
    second->symbol->value = L"OTHER";
    const HWND before = panel();
    bar->SelectTab(first->id);
    EXPECT_EQ(text(203), L"SYM");
    bar->SelectTab(second->id);
    EXPECT_EQ(bar->get_CurTab(), second);
    EXPECT_EQ(text(203), L"OTHER");
    EXPECT_EQ(panel(), before);
}

TEST_F(BarTabs, SelectingAnUnknownOrTheCurrentTabDoesNothing) {
    const auto tab = add(L"A");
    tab->asked.clear();
    bar->SelectTab(tab->id);
    bar->SelectTab(555555);
    EXPECT_TRUE(tab->asked.empty());
}

TEST_F(BarTabs, WithoutATabThereIsNoFieldAndNoCurrentTab) {
    EXPECT_FALSE(bar->get_CurTab());
    EXPECT_FALSE(bar->get_Control(eODUE_Buy));
    const auto tab = add(L"A");
    EXPECT_EQ(bar->get_CurTab(), tab);
    EXPECT_EQ(bar->get_Control(eODUE_Buy), tab->fields[eODUE_Buy]);
}

TEST_F(BarTabs, TheFocusGoesToAFieldOfTheCurrentTabOnly) {
    const auto first = add(L"A");
    const auto second = add(L"B");
    bar->SelectTab(first->id);
    bar->SetFocus(first->id, eODUE_Quantity);
    EXPECT_EQ(GetFocus(), item(209));
    bar->SetFocus(second->id, eODUE_Account);
    EXPECT_EQ(GetFocus(), item(209));
    EXPECT_THROW(bar->SetFocus(424242, eODUE_Account), _com_error);
    EXPECT_THROW(bar->SetFocus(first->id, static_cast<OD_UpdateEntity>(3)), std::out_of_range);
}

TEST_F(BarTabs, AfterTeardownThereIsNoWindowAndAnUpdateDoesNothing) {
    const auto tab = add(L"A");
    const HWND window = bar->get_Hwnd();
    bar->Teardown();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(bar->get_Hwnd(), nullptr);
    EXPECT_TRUE(bar->get_TabInfos().empty());
    EXPECT_EQ(bar->get_TabCount(), 0);
    EXPECT_NO_THROW(bar->Update(tab->id, UpdateMask::AllFields));
    EXPECT_EQ(tab.use_count(), 1);
}

TEST_F(BarTabs, EndWithTheBar) {
    const auto tab = add(L"A");
    EXPECT_EQ(tab.use_count(), 2);
    bar.reset();
    EXPECT_EQ(tab.use_count(), 1);
}

}  // namespace
