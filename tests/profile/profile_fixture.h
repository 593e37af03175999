#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/fake_host.h"
#include "tests/support/recording_desktop.h"

namespace test {

// The results of the reported assertions; those without one are left out.
inline std::vector<HRESULT> results_of(const std::vector<reported_assertion>& assertions) {
    std::vector<HRESULT> results;
    for (const reported_assertion& assertion : assertions) {
        if (assertion.hresult) {
            results.push_back(*assertion.hresult);
        }
    }
    return results;
}

inline std::vector<std::wstring> descriptions_of(const std::vector<reported_assertion>& assertions) {
    std::vector<std::wstring> texts;
    for (const reported_assertion& assertion : assertions) {
        texts.push_back(assertion.description);
    }
    return texts;
}

// The result of the _com_error that a call throws; S_OK when it throws nothing.
template <class Call>
HRESULT thrown_result(Call call) {
    try {
        call();
    } catch (const _com_error& error) {
        return error.Error();
    }
    return S_OK;
}

// One profile "Alpha" and its wrapper.
class profile_test : public testing::Test {
protected:
    // Wrapper and profile hold each other as long as the wrapper is advised.
    void TearDown() override {
        host.forget_faults();
        if (wrap) {
            wrap->Unadvise();
        }
    }

    recording_desktop desktop;
    diagnostics_recorder reports;
    fake_host host;
    com_ptr<FakeProfile> profile = platform::make_com<FakeProfile>(host, L"Alpha");
    com_ptr<OV_OrderDeck::CProfileWrap> wrap =
        platform::make_com<OV_OrderDeck::CProfileWrap>(static_cast<ITC_TradingProfile*>(profile.get()));
};

}  // namespace test
