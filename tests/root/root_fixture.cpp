#include "tests/root/root_fixture.h"

#include <algorithm>

#include "platform/message_pump.h"
#include "platform/registry.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace test {

root_host::root_host() {
    parent = desktop.make_window(L"host");
    bar_window = desktop.make_window();
    center = platform::make_com<FakeTradingCenter>(host);
    center_class = std::make_unique<fake_class>(host, CLSID_TradingCenter, L"TradingCenter",
                                                [this] { return com_ptr<IUnknown>(center->GetUnknown()); });
    factory.host = host;
    factory.window = bar_window;
    the_bar_factory = &factory;
    root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
}

root_host::~root_host() {
    root->Destroy();
    root.reset();
    factory.last.reset();
    the_bar_factory = nullptr;
}

root_test::~root_test() {
    root->Destroy();
    forget_records();
}

HRESULT root_host::create(IUnknown* service) {
    HWND window = nullptr;
    return root->Create(parent, service, &window);
}

void root_host::run_loop() {
    MSG message;
    while (platform::peek_message(message)) {
        platform::dispatch_message(message);
    }
}

std::vector<std::string> root_host::take_calls(const std::string& part) {
    std::vector<std::string> calls = host.take();
    std::erase_if(calls, [&](const std::string& call) { return call.find(part) == std::string::npos; });
    return calls;
}

com_ptr<FakeProfile> root_host::add_profile(const CString& name) {
    return center->profiles->add(name);
}

std::vector<std::string> root_host::take_assertions() {
    std::vector<std::string> texts;
    for (const reported_assertion& assertion : reports.assertions()) {
        texts.push_back(narrow(assertion.description));
    }
    reports.clear();
    return texts;
}

CString root_host::status_line() {
    _bstr_t text;
    EXPECT_EQ(root->get_StatusLineString(text.GetAddress()), S_OK);
    return platform::text_of(text);
}

std::vector<CString> root_host::tab_names() {
    std::vector<CString> names;
    for (const auto& [id, tab] : bar().get_TabInfos()) {
        CString name;
        tab->get_Name(name);
        names.push_back(name);
    }
    return names;
}

CString root_host::path_of_records() {
    return Unicomp::settings_root() + L"\\Order Deck";
}

void root_host::forget_records() {
    platform::registry_key::DeleteTree(HKEY_CURRENT_USER, path_of_records());
}

}  // namespace test
