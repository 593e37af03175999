// A lookup service with the host's symbol classes on both threads that look for them.
#pragma once

#include <gmock/gmock.h>

#include <optional>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/lookup/LookupImpl.h"
#include "tests/lookup/fake_symbols.h"
#include "tests/support/diagnostics_recorder.h"
#include "unicomp/LocalRPC/TaskFactory.h"

namespace test {

// Lets a test run things where the service searches.
class TestLookupImpl : public OV_OrderDeck::CLookupImpl {
public:
    template <class Call>
    void on_worker(Call call) {
        LocalRPC::SyncCall(activeObject, call);
    }
    void refuse_tasks() { activeObject.Stop(true, true); }
    BSTR own_caption() { return caption; }
};

class lookup_test : public testing::Test {
protected:
    lookup_test() { serve({}); }
    ~lookup_test() override { serve_no_more(); }

    // Serves the classes anew, with gaps.
    void serve(const symbol_classes::gaps& missing) {
        serve_no_more();
        m_here.emplace(host, store, missing);
        lookup->on_worker([&] { m_there.emplace(host, store, missing); });
        host.clear();
    }

    // Makes the service ready for a plug-in whose feed is "TradeNode".
    void initialize(const wchar_t* plugin = L"Avanza", VARIANT_BOOL is_feed = VARIANT_FALSE) {
        ASSERT_EQ(lookup->Initialize(0, _bstr_t(plugin), is_feed, nullptr), S_OK);
    }

    // A fresh record with the answer in result.
    HRESULT by_name(const wchar_t* name, LONG flags = 1) {
        reset();
        return lookup->GetSymbolInfo(_bstr_t(name), flags, nullptr, info.get(), &result);
    }
    HRESULT by_id(LONG id) {
        reset();
        return lookup->GetSymbolInfoById(id, info.get(), &result);
    }
    HRESULT by_request(const wchar_t* name, const wchar_t* exchange, const wchar_t* feed, LONG category) {
        reset();
        const _bstr_t texts[] = {name, exchange, feed};
        OD_SSymbolReq req{texts[0].copy(false), texts[1].copy(false), texts[2].copy(false), category};
        return lookup->GetSymbolInfoByReq(&req, info.get(), &result);
    }

    void reset() {
        info = std::make_unique<OV_OrderDeck::symbol_info_holder>();
        result = untold;
    }

    CString name() const { return platform::text_of(info->Name); }

    // What the result is before a call. The record tells the difference where it is the right answer.
    static constexpr OD_LookupResult untold = eODLR_NotSupported;

    fake_host host;
    std::shared_ptr<symbol_store> store = std::make_shared<symbol_store>();
    com_ptr<TestLookupImpl> lookup = platform::make_com<TestLookupImpl>();
    std::unique_ptr<OV_OrderDeck::symbol_info_holder> info =
        std::make_unique<OV_OrderDeck::symbol_info_holder>();
    OD_LookupResult result = eODLR_Selected;
    diagnostics_recorder diagnostics;

    // A worker that takes no more tasks has taken its classes with it.
    void serve_no_more() {
        m_here.reset();
        try {
            lookup->on_worker([&] { m_there.reset(); });
        } catch (const LocalRPC::local_rpc_exception&) {
            m_there.reset();
        }
    }

private:
    std::optional<symbol_classes> m_here;
    std::optional<symbol_classes> m_there;
};

}  // namespace test
