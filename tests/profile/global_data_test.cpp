#include "charting/orderdeck/src/root/GlobalData.h"

#include "charting/orderdeck/src/root/ProfileCommands.h"
#include "tests/profile/profile_fixture.h"
#include "tests/support/last_words.h"
#include "tests/support/no_memory.h"

namespace {

using OV_OrderDeck::CGlobalData;
using OV_OrderDeck::CGlobalDataImpl;
using test::last_words;
using test::no_memory;
using testing::ElementsAre;

class GlobalData : public test::profile_test {
protected:
    template <class T>
    static ULONG references(const com_ptr<T>& object) {
        object->AddRef();
        return object->Release();
    }

    com_ptr<test::FakeOnCommand> sink = platform::make_com<test::FakeOnCommand>(host);
    com_ptr<test::FakeTradingCenter> center = platform::make_com<test::FakeTradingCenter>(host);
    com_ptr<test::FakeProfiles> profiles = center->profiles;
};

TEST_F(GlobalData, StartsEmpty) {
    CGlobalData global;
    EXPECT_EQ(global->get_Hwnd(), nullptr);
    EXPECT_FALSE(global->get_OnCommand());
    EXPECT_FALSE(global->get_Center());
    EXPECT_FALSE(global->get_Profiles());
}

TEST_F(GlobalData, KeepsWhatOneAccessorSetAsLongAsAnotherLives) {
    const CGlobalData keeper;
    const HWND window = desktop.make_window();
    CGlobalData()->put_Hwnd(window);
    CGlobalData()->put_OnCommand(sink.get());
    EXPECT_EQ(CGlobalData()->get_Hwnd(), window);
    EXPECT_EQ(CGlobalData()->get_OnCommand().get(), sink.get());
}

TEST_F(GlobalData, ForgetsWithTheLastAccessor) {
    CGlobalData()->put_Hwnd(desktop.make_window());
    EXPECT_EQ(CGlobalData()->get_Hwnd(), nullptr);
}

TEST_F(GlobalData, GettersCountAndSettersReleaseWhatTheyReplace) {
    CGlobalData global;
    const ULONG before = references(center);
    global->put_Center(center.get());
    EXPECT_EQ(references(center), before + 1);
    {
        const auto held = global->get_Center();
        EXPECT_EQ(references(center), before + 2);
    }
    global->put_Center(center.get());
    EXPECT_EQ(references(center), before + 1);
    global->put_Center(nullptr);
    EXPECT_EQ(references(center), before);
    EXPECT_FALSE(global->get_Center());
}

TEST_F(GlobalData, EndsWithTheProfilesThenTheCentreThenTheCommandSink) {
    {
        CGlobalData global;
        global->put_OnCommand(
            platform::make_com<last_words<test::FakeOnCommand>>(host, std::string("sink")).get());
        global->put_Center(
            platform::make_com<last_words<test::FakeTradingCenter>>(host, std::string("center")).get());
        global->put_Profiles(
            platform::make_com<last_words<test::FakeProfiles>>(host, std::string("profiles")).get());
    }
    EXPECT_THAT(host.calls(), ElementsAre("profiles", "center", "sink"));
}

template <class T>
bool is_a(const com_ptr<IUnknown>& command) {
    const auto line = platform::query<IOD_ProfileCmd>(command);
    return dynamic_cast<T*>(line.get()) != nullptr;
}

TEST_F(GlobalData, MakesTheCommandsOfAProfileByTheirIds) {
    CGlobalDataImpl data;
    EXPECT_TRUE(is_a<OV_OrderDeck::CToggleProfConnectCmd>(data.create_command(10, wrap)));
    EXPECT_TRUE(is_a<OV_OrderDeck::CEditProfCmd>(data.create_command(11, wrap)));
    EXPECT_TRUE(is_a<OV_OrderDeck::CSymbolMappingCmd>(data.create_command(15, wrap)));
}

TEST_F(GlobalData, MakesTheOtherCommandsByTheirIds) {
    CGlobalDataImpl data;
    data.put_Profiles(profiles.get());
    EXPECT_TRUE(is_a<OV_OrderDeck::CEmptyCmd>(data.create_command(12)));
    EXPECT_TRUE(is_a<OV_OrderDeck::CShowProfEditorCmd>(data.create_command(13)));
    EXPECT_TRUE(is_a<OV_OrderDeck::CCreateNewProfileCmd>(data.create_command(14)));
}

TEST_F(GlobalData, AnyOtherIdGivesNoCommand) {
    CGlobalDataImpl data;
    data.put_Profiles(profiles.get());
    for (const LONG id : {-1, 0, 9, 12, 13, 14, 16}) {
        EXPECT_FALSE(data.create_command(id, wrap)) << id;
    }
    for (const LONG id : {-1, 0, 9, 10, 11, 15, 16}) {
        EXPECT_FALSE(data.create_command(id)) << id;
    }
}

TEST_F(GlobalData, ACommandHoldsItsProfile) {
    CGlobalDataImpl data;
    const ULONG before = references(wrap);
    const auto command = data.create_command(10, wrap);
    EXPECT_EQ(references(wrap), before + 1);
    const auto line = platform::query<IOD_ProfileCmd>(command);
    EXPECT_EQ(dynamic_cast<OV_OrderDeck::CToggleProfConnectCmd*>(line.get())->m_pProfile.get(), wrap.get());
}

TEST_F(GlobalData, ACommandHoldsNothingElse) {
    EXPECT_EQ(sizeof(OV_OrderDeck::CProfileCommandBase<OV_OrderDeck::CProfileWrap>), sizeof(void*));
    EXPECT_EQ(sizeof(OV_OrderDeck::CProfileCommandBase<ITC_TradingProfileS>), sizeof(void*));
}

TEST_F(GlobalData, TheNewProfileCommandHoldsTheCollection) {
    CGlobalDataImpl data;
    data.put_Profiles(profiles.get());
    const auto line = platform::query<IOD_ProfileCmd>(data.create_command(14));
    EXPECT_EQ(dynamic_cast<OV_OrderDeck::CCreateNewProfileCmd*>(line.get())->m_pProfile.get(),
              static_cast<ITC_TradingProfileS*>(profiles.get()));
}

TEST_F(GlobalData, WithoutACollectionTheNewProfileCommandIsReportedAndRaisesEPointer) {
    CGlobalDataImpl data;
    EXPECT_EQ(test::thrown_result([&] { data.create_command(14); }), E_POINTER);
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L""));
}

TEST_F(GlobalData, ACommandThatCannotBeMadeIsReportedWithoutTextAndRaisesEPointer) {
    CGlobalDataImpl data;
    HRESULT hr = S_OK;
    {
        const no_memory none;
        hr = test::thrown_result([&] { data.create_command(10, wrap); });
    }
    EXPECT_EQ(hr, E_POINTER);
    EXPECT_THAT(test::descriptions_of(reports.assertions()), ElementsAre(L""));
}

}  // namespace
