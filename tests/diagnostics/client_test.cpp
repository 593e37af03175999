// How the client connects to the library, and its commands.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/BugSlayerUtil.h"
#include "diagnostics/library_search.h"
#include "platform/module.h"
#include "tests/diagnostics/record_texts.h"

namespace {

using BugSlayerUtil::BugSlayerClient;
using Texts = std::vector<std::wstring>;

// A client of this test's own; the one of the module stays as it is.
class open_client final : public BugSlayerClient {
public:
    ~open_client() override { CleanUp(); }
    using BugSlayerClient::debugObject;
    using BugSlayerClient::initTried;
    using BugSlayerClient::ready;
    using BugSlayerClient::showInitFailure;
};

class Client : public testing::Test {
protected:
    diagnostics_recorder recorder;
    open_client client;
};

// The place of a virtual operation in the table of its class, as the common C++ ABI of both systems
// tells it in a pointer to the operation.
template <class Operation>
std::size_t slot_of(Operation operation) {
    std::uintptr_t raw = 0;
    std::memcpy(&raw, &operation, sizeof(raw));
    return (raw - 1) / sizeof(void*);
}

TEST_F(Client, KeepsItsOperationsInTheirSlots) {
    EXPECT_EQ(slot_of(&BugSlayerClient::LoadDebugObject), 0u);
    EXPECT_EQ(slot_of(&BugSlayerClient::Initialize), 1u);
    EXPECT_EQ(slot_of(&BugSlayerClient::Terminate), 2u);
    EXPECT_EQ(slot_of(&BugSlayerClient::IsClean), 3u);
    EXPECT_EQ(slot_of(&BugSlayerClient::DoClean), 4u);
    EXPECT_EQ(slot_of(&BugSlayerClient::ReportDialog), 5u);
    EXPECT_EQ(slot_of(&BugSlayerClient::TraceEnabled), 6u);
}

TEST_F(Client, TakesTheLibraryThatIsLoadedFirst) {
    const HMODULE loaded = platform::find_loaded_library(L"BugSlayerUtil3.0_x64.dll");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(BugSlayerUtil::find_debug_library(), loaded);
}

TEST_F(Client, IntroducesItselfOnceAtItsStart) {
    EXPECT_EQ(client.Initialize(), S_OK);
    EXPECT_TRUE(client.ready);
    EXPECT_TRUE(client.initTried);
    const std::vector<debug_step> steps = recorder.steps();
    ASSERT_EQ(steps.size(), 9u);
    EXPECT_EQ(call_list(recorder), (Texts{L"BS_InitObject", L"CREATE", L"INIT", L"RELEASE"}));
    processed_record identity;
    for (const debug_step& step : steps) {
        if (step.what == L"SET") {
            identity.fields.push_back(step.field);
        }
    }
    EXPECT_EQ(field_list(identity), (Texts{L"LogDirectory BSTR", L"ModuleAddr UI8", L"ModuleName BSTR",
                                           L"ReleaseMode BOOL", L"ClientVersion BSTR"}));
    EXPECT_EQ(text_of(identity, L"LogDirectory"), L"");
    EXPECT_EQ(number_of(identity, L"ModuleAddr"),
              reinterpret_cast<std::intptr_t>(static_cast<BugSlayerClient*>(&client)));
    EXPECT_EQ(text_of(identity, L"ModuleName"),
              sizeof(wchar_t) == 2 ? L"diagnostics_tests.exe" : L"diagnostics_tests");
    EXPECT_EQ(number_of(identity, L"ReleaseMode"), VARIANT_TRUE);
    EXPECT_EQ(text_of(identity, L"ClientVersion"), L"2.2 05.05.2006");

    EXPECT_EQ(client.Initialize(), S_OK);
    EXPECT_EQ(client.IsClean(), S_OK);
    EXPECT_EQ(recorder.steps().size(), 10u);
}

TEST_F(Client, GivesUpWhenTheLibraryMakesNoObject) {
    recorder.answer(L"BS_InitObject", E_ACCESSDENIED);
    EXPECT_EQ(client.Initialize(), E_FAIL);
    EXPECT_FALSE(client.ready);
    EXPECT_FALSE(client.initTried);
    EXPECT_FALSE(client.debugObject);
    EXPECT_EQ(call_list(recorder), Texts{L"BS_InitObject"});
}

TEST_F(Client, TellsTheLibraryWhichClientCouldNotBeServed) {
    recorder.answer(L"INIT", E_ACCESSDENIED);
    EXPECT_TRUE(FAILED(client.Initialize()));
    EXPECT_EQ(call_list(recorder), (Texts{L"BS_InitObject", L"CREATE", L"INIT", L"RELEASE", L"FAILURE"}));
    char address[32];
    std::snprintf(address, sizeof(address), "%016llx",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(&client)));
    const std::string expected = address;
    EXPECT_EQ(recorder.steps().back().field.value.text, std::wstring(expected.begin(), expected.end()));
    EXPECT_FALSE(client.ready);
    EXPECT_FALSE(client.initTried);
    EXPECT_FALSE(client.debugObject);
}

TEST_F(Client, FailsItsStartWhenItsIdentityHasNoRecord) {
    recorder.answer(L"CREATE", E_FAIL);
    EXPECT_EQ(client.Initialize(), E_FAIL);
    EXPECT_EQ(call_list(recorder), (Texts{L"BS_InitObject", L"CREATE", L"FAILURE"}));
}

TEST_F(Client, TriesAgainAfterAStartThatFailed) {
    recorder.answer(L"INIT", E_FAIL);
    EXPECT_EQ(client.IsClean(), E_FAIL);
    EXPECT_EQ(client.IsClean(), E_FAIL);
    recorder.clear();
    EXPECT_EQ(client.IsClean(), S_OK);
    EXPECT_EQ(call_list(recorder), (Texts{L"BS_InitObject", L"CREATE", L"INIT", L"RELEASE", L"IS CLEAN"}));
}

TEST_F(Client, SendsItsCommandsAndHandsTheAnswersBack) {
    client.Initialize();
    recorder.clear();
    recorder.answer(L"IS CLEAN", HRESULT(1));
    recorder.answer(L"DO CLEAN", HRESULT(2));
    recorder.answer(L"REPORTDIALOG", HRESULT(3));
    recorder.answer(L"TRACEENABLED", E_ABORT);
    EXPECT_EQ(client.IsClean(), 1);
    EXPECT_EQ(client.DoClean(), 2);
    EXPECT_EQ(client.ReportDialog(), 3);
    EXPECT_EQ(client.TraceEnabled(), E_ABORT);
    EXPECT_EQ(call_list(recorder), (Texts{L"IS CLEAN", L"DO CLEAN", L"REPORTDIALOG", L"TRACEENABLED"}));
}

TEST_F(Client, ConnectsAtItsFirstCommandAndKeepsTheLastError) {
    recorder.at_each_step([] { SetLastError(999); });
    SetLastError(77);
    EXPECT_EQ(client.TraceEnabled(), S_OK);
    EXPECT_EQ(GetLastError(), 77u);
    EXPECT_EQ(call_list(recorder),
              (Texts{L"BS_InitObject", L"CREATE", L"INIT", L"RELEASE", L"TRACEENABLED"}));
}

TEST_F(Client, EndsNothingOnTerminateWhileItIsNotReady) {
    recorder.answer(L"BS_InitObject", E_FAIL);
    SetLastError(3);
    EXPECT_EQ(client.Terminate(), E_FAIL);
    EXPECT_EQ(client.IsClean(), E_FAIL);
    EXPECT_EQ(client.DoClean(), E_FAIL);
    EXPECT_EQ(client.ReportDialog(), E_FAIL);
    EXPECT_EQ(client.TraceEnabled(), E_FAIL);
    EXPECT_EQ(GetLastError(), 3u);
}

TEST_F(Client, SaysGoodbyeAndReportsNothingAfterItsCleanUp) {
    client.Initialize();
    recorder.clear();
    SetLastError(4);
    client.CleanUp();
    EXPECT_EQ(client.IsClean(), E_FAIL);
    client.CleanUp();
    EXPECT_EQ(call_list(recorder), Texts{L"DEINIT"});
    EXPECT_EQ(GetLastError(), 4u);
}

TEST_F(Client, IsOneForTheModule) {
    EXPECT_EQ(&BugSlayerUtil::Client::Get(), &BugSlayerUtil::Client::Get());
}

}  // namespace
