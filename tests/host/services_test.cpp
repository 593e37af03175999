#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "centre/symbol_record.h"
#include "centre_fixture.h"
#include "com/class_object.h"
#include "services/disconnect_confirmer.h"
#include "services/lookup_service.h"
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

class HostLookup : public ::testing::Test {
protected:
    void SetUp() override { m_lookup->Initialize(0, bstr("OrderDeck Paper"), VARIANT_FALSE, nullptr); }
    void TearDown() override { clear_symbol(m_record); }

    OD_LookupResult m_result = eODLR_NotSupported;
    OD_SSymbolInfo m_record{};
    const instrument* m_choice = nullptr;
    int m_asked = 0;
    ref<lookup_service> m_lookup = make<lookup_service>([this](HWND) {
        ++m_asked;
        return m_choice;
    });
};

TEST_F(HostLookup, ANameGivesTheWholeRecordWithoutRegardToCase) {
    ASSERT_EQ(m_lookup->GetSymbolInfo(bstr("zbz6"), 0, nullptr, &m_record, &m_result), S_OK);
    EXPECT_EQ(m_result, eODLR_Selected);
    EXPECT_EQ(bstr_text(m_record.Name), "ZBZ6");
    EXPECT_EQ(bstr_text(m_record.DataFeed), "OrderDeck Quotes");
    EXPECT_EQ(bstr_text(m_record.Root), "ZB");
    EXPECT_EQ(bstr_text(m_record.Description), "30-Year T-Bond Dec 26");
    EXPECT_EQ(bstr_text(m_record.Exchange), "CBOT");
    EXPECT_EQ(bstr_text(m_record.ExchangeTZI), "America/Chicago");
    EXPECT_EQ(m_record.id, 8);
    EXPECT_EQ(m_record.Category, 1);
    EXPECT_EQ(m_record.Currency, 1);
    EXPECT_EQ(m_record.Expiry, 46377.0);
    EXPECT_EQ(m_record.PriceScaleCode, 'k');
    EXPECT_EQ(m_record.MinMovement, 1.0);
    EXPECT_EQ(m_record.BigPointValue, 1000.0);
    EXPECT_EQ(m_record.PutOrCall, VARIANT_FALSE);
    EXPECT_EQ(m_asked, 0);
}

TEST_F(HostLookup, AnUnknownNameEndsInNothingOrInTheMenu) {
    EXPECT_EQ(m_lookup->GetSymbolInfo(bstr("ZB"), 1, nullptr, &m_record, &m_result), S_OK);
    EXPECT_EQ(m_result, eODLR_NotFound);
    EXPECT_EQ(m_asked, 0);
    EXPECT_EQ(m_lookup->GetSymbolInfo(bstr("ZB"), 0, nullptr, &m_record, &m_result), S_OK);
    EXPECT_EQ(m_result, eODLR_Canceled);
    EXPECT_EQ(m_asked, 1);
    m_choice = find_instrument(16);
    EXPECT_EQ(m_lookup->GetSymbolInfo(bstr("ESZ6"), 2, nullptr, &m_record, &m_result), S_OK);
    EXPECT_EQ(m_result, eODLR_Selected);
    EXPECT_EQ(m_record.id, 16);
    EXPECT_EQ(m_record.PutOrCall, VARIANT_TRUE);
    EXPECT_EQ(m_record.StrikePrice, 420.0);
}

TEST_F(HostLookup, IdsAndRequestsAreExact) {
    EXPECT_EQ(m_lookup->GetSymbolInfoById(3, &m_record, &m_result), S_OK);
    EXPECT_EQ(m_result, eODLR_Selected);
    EXPECT_EQ(bstr_text(m_record.Name), "MSFT");
    clear_symbol(m_record);
    EXPECT_EQ(m_lookup->GetSymbolInfoById(99, &m_record, &m_result), S_OK);
    EXPECT_EQ(m_result, eODLR_NotFound);
    const bstr name("EURUSD");
    OD_SSymbolReq request{};
    request.Name = name;
    EXPECT_EQ(m_lookup->GetSymbolInfoByReq(&request, &m_record, &m_result), S_OK);
    EXPECT_EQ(m_record.id, 13);
}

TEST_F(HostLookup, PluginsOfThisApplicationAreSupported) {
    VARIANT_BOOL supported = VARIANT_FALSE;
    EXPECT_EQ(m_lookup->IsPluginSupported(bstr("OrderDeck Paper Remote"), &supported), S_OK);
    EXPECT_EQ(supported, VARIANT_TRUE);
    EXPECT_EQ(m_lookup->IsPluginSupported(bstr("orderdeck paper"), &supported), S_OK);
    EXPECT_EQ(supported, VARIANT_FALSE);
}

TEST_F(HostLookup, NothingIsFoundBeforeItIsInitialized) {
    const auto fresh = make<lookup_service>([](HWND) { return nullptr; });
    EXPECT_EQ(fresh->GetSymbolInfo(bstr("ESZ6"), 1, nullptr, &m_record, &m_result), OLE_E_BLANK);
    EXPECT_EQ(fresh->Initialize(0, nullptr, VARIANT_FALSE, nullptr), E_POINTER);
    EXPECT_EQ(m_lookup->GetSymbolInfo(nullptr, 1, nullptr, &m_record, &m_result), E_INVALIDARG);
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
