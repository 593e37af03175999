#include "tests/root/root_fixture.h"
#include "tests/support/safe_arrays.h"

namespace {

using test::root_test;
using testing::ElementsAre;
using testing::IsEmpty;

class MenuTest : public root_test {
protected:
    MenuTest() { EXPECT_EQ(create(), S_OK); }

    // The names of the commands, "-" for one without a name.
    std::vector<CString> lines() {
        SAFEARRAY* items = nullptr;
        EXPECT_EQ(root->get_Commands(&items), S_OK);
        EXPECT_EQ(SafeArrayGetDim(items), 1U);
        VARTYPE type = VT_EMPTY;
        EXPECT_EQ(SafeArrayGetVartype(items, &type), S_OK);
        EXPECT_EQ(type, VT_VARIANT);
        LONG high = -1;
        SafeArrayGetUBound(items, 1, &high);
        std::vector<CString> names;
        for (LONG index = 0; index <= high; ++index) {
            _variant_t item;
            EXPECT_EQ(SafeArrayGetElement(items, &index, &item), S_OK);
            EXPECT_EQ(item.vt, VT_UNKNOWN);
            const auto command = platform::query<IOD_ProfileCmd>(item.punkVal);
            _bstr_t name;
            EXPECT_EQ(command->get_Name(name.GetAddress()), S_OK);
            names.push_back(name.length() == 0 ? CString(L"-") : platform::text_of(name));
        }
        SafeArrayDestroy(items);
        return names;
    }
};

TEST_F(MenuTest, WithNoProfileThereIsTheEditorAlone) {
    EXPECT_THAT(lines(), ElementsAre(L"設定經紀商..."));
}

TEST_F(MenuTest, TwoProfilesStandSortedByNameBeforeASeparatorAndTheEditor) {
    add_profile(L"Beta");
    add_profile(L"Alpha");
    EXPECT_THAT(lines(), ElementsAre(L"連線 Alpha", L"連線 Beta", L"-", L"設定經紀商..."));
}

TEST_F(MenuTest, AConnectedProfileOffersToDisconnect) {
    add_profile(L"Alpha")->state = eTM_CC_Connected;
    EXPECT_THAT(lines(), ElementsAre(L"斷線 Alpha", L"-", L"設定經紀商..."));
}

TEST_F(MenuTest, ASecondProfileOfOneNameIsReportedAndTheFirstStaysListed) {
    add_profile(L"Alpha");
    const auto second = add_profile(L"Alpha");
    second->outer_id = L"another";
    second->state = eTM_CC_Connected;
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    take_assertions();
    EXPECT_THAT(lines(), ElementsAre(L"連線 Alpha", L"-", L"設定經紀商..."));
    EXPECT_THAT(take_assertions(), ElementsAre("isOK"));
}

TEST_F(MenuTest, ANullOutPointerIsRefusedBeforeAnythingIsFilled) {
    add_profile(L"Alpha");
    EXPECT_EQ(root->get_Commands(nullptr), E_INVALIDARG);
    EXPECT_EQ(root->get_StatusLineString(nullptr), E_INVALIDARG);
    EXPECT_EQ(host.count("Center.Prepare"), 0);
}

TEST_F(MenuTest, AListThatFailsFirstAndSucceedsThenGivesNoMenu) {
    host.fail("Profiles.get_Items", E_ABORT, 1);
    SAFEARRAY* items = reinterpret_cast<SAFEARRAY*>(&items);
    EXPECT_EQ(root->get_Commands(&items), S_OK);
    EXPECT_EQ(items, nullptr);
}

TEST_F(MenuTest, TheStatusLineOfAnEmptyBarSaysThatThereIsNoBrokerAndFillsNothing) {
    add_profile(L"Alpha");
    EXPECT_EQ(status_line(), L"無經紀商");
    EXPECT_EQ(host.count("Center.Prepare"), 0);
}

TEST_F(MenuTest, TheStatusLineReadsPluginColonStateWithoutABlank) {
    const auto alpha = add_profile(L"Alpha");
    alpha->plugin = L"Paper";
    ASSERT_EQ(root->put_ActiveTab(nullptr), S_OK);
    EXPECT_EQ(status_line(), L"Paper:已斷線");
    alpha->fire_state(eTM_CC_Connecting);
    EXPECT_EQ(status_line(), L"Paper:已斷線");
    alpha->fire_state(eTM_CC_Connected);
    EXPECT_EQ(status_line(), L"Paper:已連線");
}

TEST_F(MenuTest, TheStatusLineReplacesTheOldText) {
    BSTR text = SysAllocString(L"old");
    EXPECT_EQ(root->get_StatusLineString(&text), S_OK);
    EXPECT_STREQ(text, L"無經紀商");
    SysFreeString(text);
}

}  // namespace
