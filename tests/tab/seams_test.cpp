// The interfaces between root, bar and tab: their operations stand in their order, the destructor last.
#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "charting/orderdeck/interface/IManageContent.h"
#include "charting/orderdeck/interface/IOD_ProfileDataChange.h"
#include "charting/orderdeck/interface/IPersist.h"
#include "charting/orderdeck/interface/ITab.h"
#include "charting/orderdeck/interface/ITabCtrl.h"
#include "charting/orderdeck/interface/ITradeInfoProperties.h"
#include "tests/support/slot.h"

namespace OV_OrderDeck {
namespace {

using test::slot;

static_assert(std::has_virtual_destructor_v<ITab> && std::has_virtual_destructor_v<IManageContent>);
static_assert(std::has_virtual_destructor_v<ITradeInfoProperties> && std::has_virtual_destructor_v<IPersist>);
static_assert(std::has_virtual_destructor_v<IOD_ProfileDataChange> &&
              std::has_virtual_destructor_v<ITabCtrl>);

void expect_in_order(const std::vector<std::ptrdiff_t>& slots) {
    for (std::size_t place = 0; place < slots.size(); ++place) {
        EXPECT_EQ(static_cast<std::ptrdiff_t>(place), slots[place]);
    }
}

TEST(seams, operations_of_a_tab_stand_in_their_order) {
    expect_in_order({slot(&ITab::get_Name), slot(&ITab::put_Id), slot(&ITab::get_Id), slot(&ITab::SetContent),
                     slot(&ITab::get_GradientColors), slot(&ITab::get_Control), slot(&ITab::get_Profile)});
}

TEST(seams, operations_of_its_content_stand_in_their_order) {
    expect_in_order({slot(&IManageContent::OnContentReady), slot(&IManageContent::Refresh)});
}

TEST(seams, operations_of_its_symbol_and_account_stand_in_their_order) {
    expect_in_order({slot(&ITradeInfoProperties::get_SymbolName), slot(&ITradeInfoProperties::put_SymbolName),
                     slot(&ITradeInfoProperties::get_SymbolId), slot(&ITradeInfoProperties::put_SymbolId),
                     slot(&ITradeInfoProperties::get_SymbolInfo), slot(&ITradeInfoProperties::put_SymbolInfo),
                     slot(&ITradeInfoProperties::get_Account), slot(&ITradeInfoProperties::put_Account)});
}

TEST(seams, events_of_a_profile_stand_in_their_order) {
    expect_in_order({slot(&IOD_ProfileDataChange::OnQuote), slot(&IOD_ProfileDataChange::OnConnectionState),
                     slot(&IOD_ProfileDataChange::OnTradingAllowed),
                     slot(&IOD_ProfileDataChange::OnStatusText)});
}

TEST(seams, operations_of_the_bar_stand_in_their_order) {
    expect_in_order({slot(&ITabCtrl::AddTab), slot(&ITabCtrl::RemoveTab), slot(&ITabCtrl::RemoveAllTabs),
                     slot(&ITabCtrl::get_TabInfos), slot(&ITabCtrl::get_Tab), slot(&ITabCtrl::get_CurTab),
                     slot(&ITabCtrl::get_TabCount), slot(&ITabCtrl::get_Hwnd), slot(&ITabCtrl::SelectTab),
                     slot(&ITabCtrl::Show), slot(&ITabCtrl::Update), slot(&ITabCtrl::SetFocus),
                     slot(&ITabCtrl::Teardown)});
}

TEST(seams, operations_of_what_is_remembered_stand_in_their_order) {
    expect_in_order({slot(&IPersist::Serialize), slot(&IPersist::Deserialize)});
}

}  // namespace
}  // namespace OV_OrderDeck
