#include "tests/root/root_fixture.h"

namespace {

using test::root_test;
using testing::ElementsAre;
using testing::IsEmpty;

class DriverTest : public root_test {
protected:
    DriverTest() {
        alpha = add_profile(L"Alpha");
        alpha->outer_id = L"id-alpha";
        alpha->trading->accounts = {L"A1", L"A2"};
        beta = add_profile(L"Beta");
        beta->outer_id = L"id-beta";
        EXPECT_EQ(create(), S_OK);
    }

    com_ptr<test::FakeProfile> alpha;
    com_ptr<test::FakeProfile> beta;
    const _bstr_t alpha_id = L"id-alpha";
    const _bstr_t beta_id = L"id-beta";
    const _bstr_t unknown_id = L"nobody";
};

TEST_F(DriverTest, ASymbolGoesToThePanelOfTheOuterIdAndComesBack) {
    OD_SSymbolInfo info{};
    info.id = 7;
    info.Name = SysAllocString(L"TXF");
    info.Category = 2;
    ASSERT_EQ(root->put_SymbolInfo(alpha_id, &info), S_OK);
    SysFreeString(info.Name);
    EXPECT_EQ(host.count("ManualTrading(\"Alpha\").SetSymbol"), 1);
    EXPECT_EQ(host.count("ManualTrading(\"Beta\").SetSymbol"), 0);
    OD_SSymbolInfo back{};
    ASSERT_EQ(root->get_SymbolInfo(alpha_id, &back), S_OK);
    EXPECT_EQ(back.id, 7);
    EXPECT_STREQ(back.Name, L"TXF");
    EXPECT_EQ(back.Category, 2);
    SysFreeString(back.Name);
    for (BSTR text : {back.DataFeed, back.Root, back.Description, back.Exchange, back.ExchangeTZI}) {
        SysFreeString(text);
    }
}

TEST_F(DriverTest, AnAccountGoesToThePanelAndComesBack) {
    ASSERT_EQ(root->put_Account(alpha_id, _bstr_t(L"A2")), S_OK);
    BSTR account = SysAllocString(L"old");
    ASSERT_EQ(root->get_Account(alpha_id, &account), S_OK);
    EXPECT_STREQ(account, L"A2");
    SysFreeString(account);
}

TEST_F(DriverTest, AnUnknownOuterIdIsSOkAndDoesNothing) {
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    host.clear();
    OD_SSymbolInfo info{};
    info.id = 5;
    BSTR account = SysAllocString(L"old");
    EXPECT_EQ(root->put_SymbolInfo(unknown_id, &info), S_OK);
    EXPECT_EQ(root->get_SymbolInfo(unknown_id, &info), S_OK);
    EXPECT_EQ(root->put_Account(unknown_id, _bstr_t(L"A2")), S_OK);
    EXPECT_EQ(root->get_Account(unknown_id, &account), S_OK);
    EXPECT_EQ(root->put_ActiveTab(unknown_id), S_OK);
    EXPECT_EQ(info.id, 5);
    EXPECT_STREQ(account, L"old");
    SysFreeString(account);
    EXPECT_THAT(host.calls(), IsEmpty());
}

TEST_F(DriverTest, ANullInfoOrOutPointerIsRefusedBeforeAnythingElse) {
    EXPECT_EQ(root->put_SymbolInfo(alpha_id, nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_SymbolInfo(alpha_id, nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_Account(alpha_id, nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_ActiveTab(nullptr), E_INVALIDARG);
    std::vector<std::wstring> functions;
    for (const reported_assertion& each : reports.assertions()) {
        EXPECT_EQ(each.description, L"");
        functions.push_back(each.function);
    }
    EXPECT_THAT(functions,
                ElementsAre(L"put_SymbolInfo", L"get_SymbolInfo", L"get_Account", L"get_ActiveTab"));
    take_assertions();
    EXPECT_EQ(host.count("Center.Prepare"), 0);
}

TEST_F(DriverTest, TheActiveTabIsSelectedAndToldByOuterId) {
    ASSERT_EQ(root->put_ActiveTab(beta_id), S_OK);
    EXPECT_EQ(host.count("Bar.SelectTab(2)"), 1);
    host.clear();
    BSTR id = SysAllocString(L"old");
    ASSERT_EQ(root->get_ActiveTab(&id), S_OK);
    EXPECT_STREQ(id, L"id-beta");
    SysFreeString(id);
    EXPECT_THAT(host.calls(), ElementsAre("Profile(\"Beta\").get_OuterID()"));
}

TEST_F(DriverTest, TheActiveTabOfABarWithoutTabsIsANullPointer) {
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    center->profiles->fire(eTM_CTOE_DeletedAll, {});
    BSTR id = SysAllocString(L"old");
    EXPECT_EQ(root->get_ActiveTab(&id), E_POINTER);
    EXPECT_EQ(id, nullptr);
}

TEST_F(DriverTest, ANullOuterIdIsTheEmptyOne) {
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    const auto empty = add_profile(L"Empty");
    empty->outer_id = L"";
    center->profiles->fire(eTM_CTOE_Added, {empty});
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    EXPECT_EQ(host.count("Bar.SelectTab(3)"), 1);
}

}  // namespace
