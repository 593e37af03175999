#include "benchmarks/bar_of_benchmark.h"

#include "platform/registry.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace benchmarks {

host_of_benchmark::host_of_benchmark(int count)
    : center(platform::make_com<test::FakeTradingCenter>(record)),
      m_center_class(record, CLSID_TradingCenter, L"TradingCenter",
                     [this] { return com_ptr<IUnknown>(center->GetUnknown()); }) {
    for (int i = 0; i < count; ++i) {
        // Numbers of one length, so that the tabs stand in the order of their making.
        const auto profile = center->profiles->add(L"Profile " + std::to_wstring(1000 + i));
        profile->state = eTM_CC_Connected;
        profile->trading->accounts = {L"Paper", L"Live"};
        for (LONG category = 1; category <= 4; ++category) {
            profile->trading->times_in_force[category] = {1, 2, 3, 4};
        }
        profiles.push_back(profile);
    }
    platform::registry_key::DeleteTree(HKEY_CURRENT_USER, Unicomp::settings_root() + L"\\Order Deck");
}

bar_of_benchmark::bar_of_benchmark(host_of_benchmark& host)
    : m_host(host), m_root(platform::make_com<OV_OrderDeck::COrderDeckObj>()) {
    _com_util::CheckError(m_root->Create(parent_of_benchmark(), nullptr, &m_window));
}

bar_of_benchmark::~bar_of_benchmark() {
    m_root->Destroy();
    m_root.reset();
    serve();
    m_host.record.clear();
}

void bar_of_benchmark::fill() {
    SAFEARRAY* commands = nullptr;
    _com_util::CheckError(m_root->get_Commands(&commands));
    SafeArrayDestroy(commands);
    m_host.record.clear();
}

void bar_of_benchmark::connect() {
    test::symbol symbol;
    symbol.name = L"CENTS";
    symbol.price_scale_code = 2;
    symbol.category = 2;
    for (const auto& profile : m_host.profiles) {
        OD_SSymbolInfo info{};
        symbol.write(info);
        m_root->put_SymbolInfo(_bstr_t(profile->outer_id.c_str()), &info);
        test::free_symbol(info);
    }
    select(0);
}

void bar_of_benchmark::quote(int profile, double price) {
    m_host.profiles.at(static_cast<std::size_t>(profile))->fire_quote(price, price + 0.25);
    paint(m_window);
}

void bar_of_benchmark::select(int profile) {
    m_root->put_ActiveTab(_bstr_t(m_host.profiles.at(static_cast<std::size_t>(profile))->outer_id.c_str()));
    serve();
    paint(m_window);
    m_host.record.clear();
}

}  // namespace benchmarks
