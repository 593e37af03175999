#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "tests/root/fake_bar.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/fake_host.h"
#include "tests/support/recording_desktop.h"

namespace test {

// A root object in a recording host with an empty collection of profiles. What is remembered stays.
class root_host {
public:
    root_host();
    ~root_host();
    root_host(const root_host&) = delete;
    root_host& operator=(const root_host&) = delete;

    // The host's window and the bar's.
    HWND parent = nullptr;
    HWND bar_window = nullptr;

    HRESULT create(IUnknown* service = nullptr);
    // Lets the host's message loop run until it is idle.
    void run_loop();
    // Calls so far that name this object, such as "Bar." or "Profiles"; the record is emptied.
    std::vector<std::string> take_calls(const std::string& part);

    com_ptr<FakeProfile> add_profile(const CString& name);
    // What was asserted since the last call, the texts only.
    std::vector<std::string> take_assertions();
    CString status_line();
    fake_bar& bar() { return *factory.last; }
    std::vector<CString> tab_names();
    static CString path_of_records();
    static void forget_records();

    diagnostics_recorder reports;
    recording_desktop desktop;
    fake_host host;
    com_ptr<FakeTradingCenter> center;
    std::unique_ptr<fake_class> center_class;
    bar_factory factory;
    com_ptr<OV_OrderDeck::COrderDeckObj> root;
};

// A test with such a host and nothing remembered.
class root_test : public testing::Test, protected root_host {
protected:
    root_test() { forget_records(); }
    ~root_test() override;
};

}  // namespace test
