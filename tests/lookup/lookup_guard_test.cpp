// What leaves the service when something is thrown inside, and what its caller's thread does meanwhile.
#include "platform/message_pump.h"
#include "tests/lookup/fake_sheet.h"
#include "tests/lookup/lookup_fixture.h"

namespace {

using testing::HasSubstr;

class lookup_guard : public test::lookup_test {
protected:
    lookup_guard() { initialize(); }

    HRESULT request_that_throws(const std::function<void()>& thrower) {
        host.forget_faults();
        host.on_call("Query.QuerySymbols", thrower);
        diagnostics.clear();
        return by_request(L"ESZ6", L"NYSE", L"TradeNode", 4);
    }
    // The one trace, in UTF-8.
    std::string trace() const {
        const auto traces = diagnostics.traces();
        return traces.size() == 1 ? test::narrow(traces[0]) : std::to_string(traces.size()) + " traces";
    }
};

TEST_F(lookup_guard, each_kind_of_exception_has_its_result) {
    EXPECT_EQ(request_that_throws([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_TRUE(diagnostics.traces().empty());
    EXPECT_EQ(request_that_throws([] { _com_issue_error(E_ACCESSDENIED); }), E_ACCESSDENIED);
    EXPECT_THAT(trace(), HasSubstr("HRESULT - 80070005; FILE - "));
    EXPECT_EQ(request_that_throws([] { throw std::out_of_range("far"); }), E_INVALIDARG);
    EXPECT_THAT(trace(), HasSubstr("std::out_of_range - far; FILE - "));
    EXPECT_EQ(request_that_throws([] { throw std::runtime_error("odd"); }), E_UNEXPECTED);
    EXPECT_THAT(trace(), HasSubstr("std::exception - odd; FILE - "));
    EXPECT_EQ(request_that_throws([] { throw 7; }), E_UNEXPECTED);
    EXPECT_THAT(trace(), HasSubstr("unknown exception; FILE - "));
}

TEST_F(lookup_guard, whatever_the_dialog_throws_means_that_nothing_was_chosen) {
    const auto plan = std::make_shared<test::dialog_plan>();
    const test::fake_class data(host, CLSID_DataProperty, L"Data", [&] {
        return com_ptr<IUnknown>(platform::make_com<test::FakeDataProperty>(host, plan)->GetUnknown());
    });
    const std::vector<std::pair<std::function<void()>, std::string>> throwers = {
        {[] { _com_issue_error(E_ACCESSDENIED); }, "HRESULT - 80070005; FILE - "},
        {[] { throw std::runtime_error("odd"); }, "std::exception - odd; FILE - "},
        {[] { throw 7; }, "unknown exception; FILE - "}};
    for (const auto& [thrower, text] : throwers) {
        host.forget_faults();
        host.on_call("Data.Prepare", thrower);
        diagnostics.clear();
        EXPECT_EQ(by_name(L"", 2), S_OK);
        EXPECT_EQ(result, eODLR_Canceled);
        EXPECT_THAT(trace(), HasSubstr(text));
    }
}

TEST_F(lookup_guard, a_name_that_throws_on_the_worker_is_not_found) {
    host.on_call("Query.QuerySymbols", [] { throw std::runtime_error("odd"); });
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
}

TEST_F(lookup_guard, the_callers_messages_wait_until_the_worker_is_done) {
    int received = 0;
    platform::message_target target;
    const auto count = [](void* context, UINT, WPARAM, LPARAM) -> LRESULT {
        ++*static_cast<int*>(context);
        return 0;
    };
    ASSERT_TRUE(target.Create(count, &received));
    ASSERT_TRUE(target.Post(WM_USER, 0, 0));
    EXPECT_EQ(by_name(L"ESZ6"), S_OK);
    EXPECT_EQ(by_id(5), S_OK);
    EXPECT_GT(host.count("Query.QuerySymbols"), 1);
    EXPECT_EQ(received, 0);
    for (MSG message{}; received == 0 && platform::peek_message(message);) {
        platform::dispatch_message(message);
    }
    EXPECT_EQ(received, 1);
}

// Succeeds with nothing.
class hollow_factory : public platform::com_root<IClassFactory> {
public:
    STDMETHODIMP CreateInstance(IUnknown*, REFIID, void** ppvObject) override {
        *ppvObject = nullptr;
        return S_OK;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

TEST_F(lookup_guard, a_class_that_gives_nothing_is_no_class) {
    serve({{L"Query"}, {}});
    DWORD cookie = 0;
    const auto factory = platform::make_com<hollow_factory>();
    ASSERT_EQ(CoRegisterClassObject(CLSID_SymbolQuery, factory.get(), CLSCTX_INPROC_SERVER,
                                    REGCLS_MULTIPLEUSE, &cookie),
              S_OK);
    const HRESULT hr = by_request(L"ESZ6", L"NYSE", L"TradeNode", 4);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(hr, S_OK);
    EXPECT_EQ(result, eODLR_NotFound);
}

}  // namespace
