#include "tests/profile/command_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CreateNewProfileCmd : public test::command_test {
protected:
    CreateNewProfileCmd() { profiles->plugins = {L"Zeta", L"Alpha", L"模擬"}; }

    HRESULT execute(VARTYPE vt, UINT value) {
        VARIANT argument;
        VariantInit(&argument);
        V_VT(&argument) = vt;
        V_UINT(&argument) = value;
        return command(14)->ExecuteEx(argument);
    }
    HRESULT execute() { return execute(VT_UINT, 0x00140064); }
};

TEST_F(CreateNewProfileCmd, OffersThePluginsInTheHostsOrderAtThePointOnTheMainFrame) {
    EXPECT_EQ(execute(), S_OK);
    ASSERT_EQ(desktop.menus().size(), 1U);
    const auto menu = desktop.menus().front();
    EXPECT_EQ(menu.owner, frame);
    EXPECT_EQ(menu.at.x, 100);
    EXPECT_EQ(menu.at.y, 20);
    ASSERT_EQ(menu.items.size(), 3U);
    EXPECT_EQ(menu.items[0].id, 1U);
    EXPECT_EQ(menu.items[0].text, L"Zeta");
    EXPECT_EQ(menu.items[1].id, 2U);
    EXPECT_EQ(menu.items[1].text, L"Alpha");
    EXPECT_EQ(menu.items[2].id, 3U);
    EXPECT_EQ(menu.items[2].text, L"模擬");
}

TEST_F(CreateNewProfileCmd, APointLeftOfAndAboveTheMainScreenIsKept) {
    execute(VT_UINT, 0xFFF6FFFF);
    ASSERT_EQ(desktop.menus().size(), 1U);
    EXPECT_EQ(desktop.menus()[0].at.x, -1);
    EXPECT_EQ(desktop.menus()[0].at.y, -10);
}

TEST_F(CreateNewProfileCmd, AddsTheChosenOneUnderItsOwnName) {
    desktop.answer_menu(3);
    EXPECT_EQ(execute(), S_OK);
    EXPECT_THAT(host.calls(),
                ElementsAre("Profiles.get_AvailablePlugins()", "Profiles.Add(\"模擬\", \"模擬\")"));
}

TEST_F(CreateNewProfileCmd, ADismissedMenuAddsNothing) {
    EXPECT_EQ(execute(), S_OK);
    EXPECT_EQ(host.count("Add("), 0);
}

TEST_F(CreateNewProfileCmd, AnIdThatWasNotOfferedAddsNothing) {
    desktop.answer_menu(4);
    EXPECT_EQ(execute(), S_OK);
    EXPECT_EQ(host.count("Add("), 0);
    EXPECT_THAT(reports.assertions(), IsEmpty());
}

TEST_F(CreateNewProfileCmd, AnyOtherTypeOfArgumentIsRefusedBeforeTheHostIsAsked) {
    for (const VARTYPE vt : {VT_EMPTY, VT_I4, VT_UI4, VT_INT, VT_BSTR}) {
        EXPECT_EQ(execute(vt, 0), E_INVALIDARG) << vt;
    }
    EXPECT_THAT(host.calls(), IsEmpty());
    EXPECT_EQ(execute(static_cast<VARTYPE>(23), 0), S_OK);
}

TEST_F(CreateNewProfileCmd, NoListOfPluginsIsReportedAndGivesEPointer) {
    host.fail("Profiles.get_AvailablePlugins", E_FAIL, 1);
    EXPECT_EQ(execute(), E_POINTER);
    host.leave_unwritten("Profiles.get_AvailablePlugins");
    EXPECT_EQ(execute(), E_POINTER);
    EXPECT_EQ(reports.assertions().size(), 2U);
    EXPECT_THAT(desktop.menus(), IsEmpty());
}

TEST_F(CreateNewProfileCmd, AnEmptyListOfPluginsIsReportedAndGivesEFail) {
    profiles->plugins.clear();
    EXPECT_EQ(execute(), E_FAIL);
    EXPECT_EQ(reports.assertions().size(), 1U);
    EXPECT_THAT(desktop.menus(), IsEmpty());
}

TEST_F(CreateNewProfileCmd, AMenuThatCannotBeMadeIsReportedAndGivesEFail) {
    desktop.refuse_menus(true);
    EXPECT_EQ(execute(), E_FAIL);
    EXPECT_EQ(reports.assertions().size(), 1U);
    EXPECT_EQ(host.count("Add("), 0);
}

TEST_F(CreateNewProfileCmd, AFailedAddIsReportedWithItsResultAndGivesSOk) {
    desktop.answer_menu(1);
    host.fail("Profiles.Add", E_ACCESSDENIED);
    EXPECT_EQ(execute(), S_OK);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(E_ACCESSDENIED));
}

TEST_F(CreateNewProfileCmd, AnythingButSOkOfTheAddIsReportedWithItsResult) {
    desktop.answer_menu(1);
    host.fail("Profiles.Add", S_FALSE);
    EXPECT_EQ(execute(), S_OK);
    EXPECT_THAT(test::results_of(reports.assertions()), ElementsAre(S_FALSE));
}

}  // namespace
