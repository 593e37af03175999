#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "centre/symbol_record.h"
#include "centre_fixture.h"
#include "com/class_object.h"
#include "services/disconnect_confirmer.h"
#include "services/on_command.h"
#include "services/symbol_mapping.h"

namespace host {
namespace {

using ::testing::ElementsAre;

VARIANT variant(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
}

TEST(HostOnCommand, MenusAreLockedFromTheFirstActionToTheLast) {
    std::vector<bool> told;
    const auto command = make<on_command>([&](bool locked) { told.push_back(locked); });
    EXPECT_EQ(command->Execute(4, variant(VT_EMPTY)), S_OK);
    EXPECT_EQ(command->Execute(4, variant(VT_EMPTY)), S_OK);
    EXPECT_EQ(command->Execute(5, variant(VT_I4)), S_OK);
    EXPECT_THAT(told, ElementsAre(true));
    EXPECT_EQ(command->Execute(5, variant(VT_I4)), S_OK);
    EXPECT_THAT(told, ElementsAre(true, false));
    EXPECT_EQ(command->Execute(5, variant(VT_I4)), E_UNEXPECTED);
    EXPECT_EQ(command->Execute(4, variant(VT_I4)), E_INVALIDARG);
    EXPECT_EQ(command->Execute(5, variant(VT_EMPTY)), E_INVALIDARG);
    EXPECT_EQ(command->Execute(6, variant(VT_EMPTY)), E_NOTIMPL);
}

class HostConfirmer : public ::testing::Test {
protected:
    void rest_an_order() {
        order_request request;
        request.profile = "Paper";
        request.account = "A";
        request.instrument_id = 6;
        request.action = action::buy;
        request.category = category::limit;
        request.quantity = 3;
        request.limit_price = 6000.25;
        request.time_in_force = time_in_force::gtc;
        m_world.paper->place(request, {"A"});
    }
    HRESULT confirm(bool answer) {
        const auto confirmer = make<disconnect_confirmer>(
            *m_world.paper, [&](HWND owner, const std::string& profile, const std::vector<order>& live) {
                m_owner = owner;
                m_asked.emplace_back(profile, live.size());
                return answer;
            });
        return confirmer->Confirm(0x456, &m_world.instant());
    }

    paper_world m_world;
    HWND m_owner = nullptr;
    std::vector<std::pair<std::string, std::size_t>> m_asked;
};

TEST_F(HostConfirmer, WithoutLiveOrdersNobodyIsAsked) {
    EXPECT_EQ(confirm(false), S_OK);
    EXPECT_TRUE(m_asked.empty());
}

TEST_F(HostConfirmer, TheQuestionIsAboutTheLiveOrdersAndTheAnswerDecides) {
    rest_an_order();
    EXPECT_EQ(confirm(false), S_FALSE);
    EXPECT_EQ(m_owner, reinterpret_cast<HWND>(0x456));
    EXPECT_THAT(m_asked, ElementsAre(std::pair(std::string("Paper"), std::size_t{1})));
    EXPECT_EQ(confirm(true), S_OK);
}

TEST_F(HostConfirmer, OrdersOfOtherProfilesAreNotAskedAbout) {
    rest_an_order();
    const auto confirmer = make<disconnect_confirmer>(
        *m_world.paper, [](HWND, const std::string&, const std::vector<order>&) { return false; });
    EXPECT_EQ(confirmer->Confirm(0, &m_world.remote()), S_OK);
    EXPECT_EQ(confirmer->Confirm(0, nullptr), E_POINTER);
}

TEST(HostSymbolMapping, TheProfileIsNamedOnItsOwner) {
    std::vector<std::pair<HWND, std::string>> shown;
    const auto mapping = make<symbol_mapping_service>(
        [&](HWND owner, const std::string& profile) { shown.emplace_back(owner, profile); });
    EXPECT_EQ(mapping->ShowDialog(0x789, bstr("下單")), S_OK);
    EXPECT_THAT(shown, ElementsAre(std::pair(reinterpret_cast<HWND>(0x789), std::string("下單"))));
}

TEST(HostClassRegistry, AClassIsFoundWhileTheRegistryLives) {
    const CLSID clsid{0x11a0c8c5, 0x5a2a, 0x4ef4, {0x8a, 0x43, 0x0d, 0x7f, 0x4c, 0x0f, 0x6b, 0x19}};
    IUnknown* made = nullptr;
    {
        class_registry registry;
        registry.add(clsid, [] { return ref<IUnknown>(make<on_command>([](bool) {}).get()); });
        ASSERT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, __uuidof(IOnCommand),
                                   reinterpret_cast<void**>(&made)),
                  S_OK);
        made->Release();
        EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, __uuidof(IOD_LookupImpl),
                                   reinterpret_cast<void**>(&made)),
                  E_NOINTERFACE);
    }
    EXPECT_EQ(
        CoCreateInstance(clsid, nullptr, CLSCTX_ALL, __uuidof(IOnCommand), reinterpret_cast<void**>(&made)),
        REGDB_E_CLASSNOTREG);
}

}  // namespace
}  // namespace host
