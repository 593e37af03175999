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
#include "tests/support/interface_order.h"

namespace OV_OrderDeck {
namespace {

using test::place;

static_assert(std::has_virtual_destructor_v<ITab> && std::has_virtual_destructor_v<IManageContent>);
static_assert(std::has_virtual_destructor_v<ITradeInfoProperties> && std::has_virtual_destructor_v<IPersist>);
static_assert(std::has_virtual_destructor_v<IOD_ProfileDataChange> &&
              std::has_virtual_destructor_v<ITabCtrl>);

void expect_in_order(const std::vector<std::size_t>& places) {
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(i + 1, places[i]);
    }
}

TEST(seams, operations_of_a_tab_stand_in_their_order) {
    expect_in_order({place(&ITab::get_Name), place(&ITab::put_Id), place(&ITab::get_Id),
                     place(&ITab::SetContent), place(&ITab::get_GradientColors), place(&ITab::get_Control),
                     place(&ITab::get_Profile)});
}

TEST(seams, operations_of_its_content_stand_in_their_order) {
    expect_in_order({place(&IManageContent::OnContentReady), place(&IManageContent::Refresh)});
}

TEST(seams, operations_of_its_symbol_and_account_stand_in_their_order) {
    expect_in_order({place(&ITradeInfoProperties::get_SymbolName),
                     place(&ITradeInfoProperties::put_SymbolName), place(&ITradeInfoProperties::get_SymbolId),
                     place(&ITradeInfoProperties::put_SymbolId), place(&ITradeInfoProperties::get_SymbolInfo),
                     place(&ITradeInfoProperties::put_SymbolInfo), place(&ITradeInfoProperties::get_Account),
                     place(&ITradeInfoProperties::put_Account)});
}

TEST(seams, events_of_a_profile_stand_in_their_order) {
    expect_in_order({place(&IOD_ProfileDataChange::OnQuote), place(&IOD_ProfileDataChange::OnConnectionState),
                     place(&IOD_ProfileDataChange::OnTradingAllowed),
                     place(&IOD_ProfileDataChange::OnStatusText)});
}

TEST(seams, operations_of_the_bar_stand_in_their_order) {
    expect_in_order({place(&ITabCtrl::AddTab), place(&ITabCtrl::RemoveTab), place(&ITabCtrl::RemoveAllTabs),
                     place(&ITabCtrl::get_TabInfos), place(&ITabCtrl::get_Tab), place(&ITabCtrl::get_CurTab),
                     place(&ITabCtrl::get_TabCount), place(&ITabCtrl::get_Hwnd), place(&ITabCtrl::SelectTab),
                     place(&ITabCtrl::Show), place(&ITabCtrl::Update), place(&ITabCtrl::SetFocus),
                     place(&ITabCtrl::Teardown)});
}

TEST(seams, operations_of_what_is_remembered_stand_in_their_order) {
    expect_in_order({place(&IPersist::Serialize), place(&IPersist::Deserialize)});
}

}  // namespace
}  // namespace OV_OrderDeck
