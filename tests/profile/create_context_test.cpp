// How the commands and the wrapper ask the system for the host's dialogs.
#include "tests/profile/command_fixture.h"
#include "tests/support/win32/told_import.h"

namespace {

using testing::ElementsAre;

class CreateContext : public test::command_test {
protected:
    // Class, context and interface of each object that is asked for, and "run" when one is run.
    std::vector<std::string> asked_by(LONG id) {
        using create = test::told_import<"CoCreateInstance", decltype(CoCreateInstance)>;
        using run = test::told_import<"OleRun", decltype(OleRun)>;
        std::vector<std::string> asked;
        const create told_create(
            [&](REFCLSID clsid, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* out) {
                EXPECT_EQ(outer, nullptr);
                asked.push_back(text_of(clsid) + " " + std::to_string(context) + " " + text_of(iid));
                return create::real(clsid, outer, context, iid, out);
            });
        const run told_run([&](LPUNKNOWN object) {
            asked.emplace_back("run");
            return run::real(object);
        });
        EXPECT_EQ(command(id)->Execute(), S_OK);
        return asked;
    }
    static std::string text_of(REFGUID guid) {
        wchar_t text[40] = {};
        StringFromGUID2(guid, text, 40);
        return test::narrow(text);
    }

    com_ptr<test::FakeDisconnectConfirmer> confirmer =
        platform::make_com<test::FakeDisconnectConfirmer>(host);
    com_ptr<test::FakeProfileEditor> editor = platform::make_com<test::FakeProfileEditor>(host);
    com_ptr<test::FakeSymbolMapping> mapping = platform::make_com<test::FakeSymbolMapping>(host);
    test::fake_class confirmer_class{host, CLSID_DisconnectConfirmer, L"DisconnectConfirmer",
                                     [this] { return com_ptr<IUnknown>(confirmer->GetUnknown()); }};
    test::fake_class editor_class{host, CLSID_ProfileEditor, L"ProfileEditor",
                                  [this] { return com_ptr<IUnknown>(editor->GetUnknown()); }};
    test::fake_class mapping_class{host, CLSID_SymbolMapping, L"SymbolMapping",
                                   [this] { return com_ptr<IUnknown>(mapping->GetUnknown()); }};
};

constexpr const char* iid_unknown = "{00000000-0000-0000-C000-000000000046}";

TEST_F(CreateContext, OfTheProfileEditorIsAnyAndItIsRun) {
    EXPECT_THAT(asked_by(13),
                ElementsAre(std::string("{F69B6F0C-191A-4B60-A610-D1F7B0BE298E} 23 ") + iid_unknown, "run"));
}

TEST_F(CreateContext, OfTheSymbolMappingIsAnyAndItIsAskedForItsInterfaceAtOnce) {
    EXPECT_THAT(asked_by(15), ElementsAre("{AE831E51-6BD2-48F9-97C8-C0368A01CCBB} 23 "
                                          "{F1DB3BCA-9128-4009-B8F3-65902A1CE160}"));
}

TEST_F(CreateContext, OfTheConfirmerIsAnyAndItIsRun) {
    profile->state = eTM_CC_Connected;
    wrap->OnConnectionState(eTM_CC_Connected);
    EXPECT_THAT(asked_by(10),
                ElementsAre(std::string("{F6F97E63-1E46-43C8-9FC1-EAF6399FFA2B} 23 ") + iid_unknown, "run"));
}

}  // namespace
