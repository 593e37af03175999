// Each allocation of a session fails in turn. The host hears of it by a result or not at all, no order
// goes out that the fields did not show, and a bar made afterwards has all of it again.
#include <gmock/gmock.h>

#include <functional>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "platform/message_pump.h"
#include "platform/registry.h"
#include "tests/faults/quiet_host.h"
#include "tests/support/fake_class.h"
#include "tests/support/host_record.h"
#include "tests/support/recording_desktop.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace {

using namespace OV_OrderDeck;
using test::sent_order;
using testing::Each;
using testing::Eq;
using testing::Le;
using testing::SizeIs;

const sent_order the_order{eMTPA_OA_Buy, eMTPA_OC_Limit, 7, 0.0, 101.25, eMTPA_TIF_Day};

// One component in one host.
class session {
public:
    session() {
        parent = desktop.make_window(L"host");
        root = platform::make_com<COrderDeckObj>();
    }

    // A field of the only tab, or null.
    boost::shared_ptr<IUnifyControl> field(OD_UpdateEntity entity) {
        const auto bar = test::newest_bar();
        const auto tab = bar ? bar->get_CurTab() : nullptr;
        return tab ? tab->get_Control(entity) : nullptr;
    }

    HRESULT put_symbol() {
        OD_SSymbolInfo info{};
        info.id = 6;
        info.Name = SysAllocString(L"ESZ6");
        info.PriceScaleCode = 2;
        info.MinMovement = 25;
        const BSTR id = SysAllocString(L"Alpha-id");
        const HRESULT hr = root->put_SymbolInfo(id, &info);
        SysFreeString(id);
        SysFreeString(info.Name);
        return hr;
    }

    HRESULT tell(ETM_ChangeTypeOfEvent kind) {
        SAFEARRAY* const items = centre.array_of_profile();
        const HRESULT hr = centre.listener ? centre.listener->OnItemChanged(kind, items) : S_OK;
        SafeArrayDestroy(items);
        return hr;
    }

    test::com_apartment apartment;
    test::recording_desktop desktop;
    test::quiet_centre centre;
    test::fake_class centre_class{test::fake_host(), CLSID_TradingCenter, L"TradingCenter", [this] {
                                      return com_ptr<IUnknown>(static_cast<ITC_TradingCenter*>(&centre));
                                  }};
    HWND parent = nullptr;
    com_ptr<COrderDeckObj> root;
};

struct step {
    const char* name;
    std::function<HRESULT(session&)> act;
};

// What the panel does with a user's action: whatever is raised ends there.
HRESULT by_user(const std::function<void()>& act) {
    try {
        act();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const _com_error& error) {
        return error.Error();
    }
}

HRESULT type_into(session& now, OD_UpdateEntity entity, const OLECHAR* text) {
    const auto field = now.field(entity);
    const _variant_t typed(text);
    return field ? by_user([&] { field->put_Value(typed); }) : S_OK;
}

HRESULT select(session& now, OD_UpdateEntity entity, LONG key) {
    const auto field = now.field(entity);
    return field ? by_user([&] { field->Select(key); }) : S_OK;
}

HRESULT status_line(session& now) {
    BSTR text = nullptr;
    const HRESULT hr = now.root->get_StatusLineString(&text);
    SysFreeString(text);
    return hr;
}

HRESULT commands(session& now) {
    SAFEARRAY* items = nullptr;
    const HRESULT hr = now.root->get_Commands(&items);
    SafeArrayDestroy(items);
    return hr;
}

HRESULT dispatch_all(session&) {
    MSG message;
    while (platform::peek_message(message)) {
        platform::dispatch_message(message);
    }
    return S_OK;
}

HRESULT create(session& now) {
    HWND window = nullptr;
    return now.root->Create(now.parent, nullptr, &window);
}

const std::vector<step>& steps() {
    static const std::vector<step> all{
        {"create", create},
        {"run the loop", dispatch_all},
        {"commands", commands},
        {"connect", [](session& now) { return now.centre.profile.change(eTM_CC_Connected); }},
        {"symbol", [](session& now) { return now.put_symbol(); }},
        {"quote",
         [](session& now) {
             const auto& sink = now.centre.profile.listener;
             return sink ? sink->OnQuote(101.0, 101.25) : S_OK;
         }},
        {"order type", [](session& now) { return select(now, eODUE_OrderType, eMTPA_OC_Limit); }},
        {"quantity", [](session& now) { return type_into(now, eODUE_Quantity, L"7"); }},
        {"price", [](session& now) { return type_into(now, eODUE_SecondPrice, L"101.25"); }},
        {"buy", [](session& now) { return select(now, eODUE_Buy, 0); }},
        {"status line", status_line},
        {"an update", [](session& now) { return now.tell(eTM_CTOE_Updated); }},
        {"close", [](session& now) { return now.root->OnClose(); }},
        {"a removal", [](session& now) { return now.tell(eTM_CTOE_Deleted); }},
        {"an addition", [](session& now) { return now.tell(eTM_CTOE_Added); }},
        {"a reload", [](session& now) { return now.tell(eTM_CTOE_ReloadComplete); }},
        {"destroy", [](session& now) { return now.root->Destroy(); }},
    };
    return all;
}

void forget_what_is_remembered() {
    platform::registry_key::DeleteTree(HKEY_CURRENT_USER, Unicomp::settings_root() + L"\\Order Deck");
}

// The whole session with no failure; gives the orders.
std::vector<sent_order> play_whole(session& now) {
    now.centre.profile.orders.clear();
    for (const step& one : steps()) {
        EXPECT_EQ(one.act(now), S_OK) << one.name;
    }
    return now.centre.profile.orders;
}

// A failure has another name where the window of the loop or an object with a null test can't be made.
bool is_told(const std::string& step, HRESULT hr) {
    return hr == S_OK || hr == E_OUTOFMEMORY || hr == E_POINTER || (step == "create" && hr == E_UNEXPECTED);
}

// The session with one failing allocation. False when it had no such allocation.
bool play_with_failure(session& now, int number) {
    test::fail_allocation(number);
    for (const step& one : steps()) {
        const bool failed_before = test::allocation_failed();
        HRESULT hr = S_OK;
        {
            const test::exposed component;
            hr = one.act(now);
        }
        if (test::allocation_failed() && !failed_before) {
            EXPECT_TRUE(is_told(one.name, hr)) << one.name << " gives " << hr << ", allocation " << number;
        }
    }
    return test::allocation_failed();
}

TEST(Allocations, ASessionWithoutFailureSendsItsOneOrder) {
    forget_what_is_remembered();
    session now;
    EXPECT_EQ(play_whole(now), std::vector{the_order});
}

TEST(Allocations, EachOfThemMayFail) {
    forget_what_is_remembered();
    {
        session before;
        play_whole(before);
    }
    int number = 0;
    for (bool failed = true; failed; ++number) {
        SCOPED_TRACE("allocation " + std::to_string(number));
        session now;
        failed = play_with_failure(now, number);
        test::fail_allocation(-1);
        EXPECT_THAT(now.centre.profile.orders, SizeIs(Le(1u)));
        EXPECT_THAT(now.centre.profile.orders, Each(Eq(the_order)));
        EXPECT_EQ(now.root->Destroy(), S_OK);
        EXPECT_EQ(play_whole(now), std::vector{the_order});
    }
    RecordProperty("allocations", number);
    // A session allocates more than once a step.
    EXPECT_GT(number, static_cast<int>(steps().size()));
}

}  // namespace
