#include "tests/hostile/world.h"

#include <algorithm>

#include "charting/orderdeck/interface/TradeInfo.h"
#include "charting/orderdeck/src/root/GlobalData.h"
#include "platform/message_pump.h"
#include "platform/registry.h"
#include "tests/hostile/hostile.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace hostile {

namespace {

constexpr LONG alpha_symbol = 7;

CString remembered() {
    return Unicomp::settings_root() + L"\\Order Deck";
}

void remember(const CString& profile) {
    platform::registry_key key;
    key.Create(HKEY_CURRENT_USER, remembered() + L"\\Profiles\\" + profile);
    key.SetString(L"Connected", L"True");
    if (profile == L"Alpha") {
        key.SetDWORD(L"Symbol Id", alpha_symbol);
    } else {
        key.SetString(L"Symbol Name", L"NQZ6");
    }
}

test::symbol instrument(LONG id, const CString& name) {
    test::symbol known;
    known.id = id;
    known.name = name;
    known.category = 2;
    known.price_scale_code = 2;
    return known;
}

ULONG references(IUnknown& object) {
    object.AddRef();
    return object.Release();
}

}  // namespace

const char* name_of(trick what) {
    static const char* const names[] = {"Destroy",     "DestroyAndCreate",
                                        "Create",      "OnClose",
                                        "RemoveThis",  "RemoveAll",
                                        "Reload",      "Disconnect",
                                        "Quote",       "NewSymbol",
                                        "OtherTab",    "Press",
                                        "MessageLoop", "None"};
    return names[static_cast<int>(what)];
}

const std::vector<std::string>& calls_of_the_bar() {
    static const std::vector<std::string> calls = {
        "Class(\"TradingCenter\").CreateInstance",
        "Class(\"LookupImpl\").CreateInstance",
        "Class(\"DisconnectConfirmer\").CreateInstance",
        "Class(\"SymbolMapping\").CreateInstance",
        "Class(\"ProfileEditor\").CreateInstance",
        "Center.Prepare",
        "Center.get_TradingProfiles",
        "Center.get_MasterCounter",
        "Center.QueryInterface",
        "Center.Release",
        "Profiles.get_Items",
        "Profiles.get_AvailablePlugins",
        "Profiles.Add",
        "Profiles.FindConnectionPoint",
        "Profiles.QueryInterface",
        "Profiles.Release",
        "ProfilesEvents.Advise",
        "ProfilesEvents.Unadvise",
        "Profile.get_Name",
        "Profile.get_PluginName",
        "Profile.get_ManualTrading",
        "Profile.Connect",
        "Profile.Disconnect",
        "Profile.ShowSettings",
        "Profile.get_HaveSettings",
        "Profile.get_ConnectionState",
        "Profile.get_OuterID",
        "Profile.FindConnectionPoint",
        "Profile.QueryInterface",
        "Profile.Release",
        "ProfileEvents.Advise",
        "ProfileEvents.Unadvise",
        "ManualTrading.SetAccount",
        "ManualTrading.GetAccounts",
        "ManualTrading.PlaceOrder",
        "ManualTrading.SetSymbol",
        "ManualTrading.GetTimeInForces",
        "ManualTrading.QueryInterface",
        "ManualTrading.Release",
        "OrderSight.BeforeOrder",
        "OrderSight.AfterOrder",
        "Lookup.Initialize",
        "Lookup.GetSymbolInfo",
        "Lookup.GetSymbolInfoById",
        "Lookup.IsPluginSupported",
        "Lookup.QueryInterface",
        "Lookup.Release",
        "OnCommand.Execute",
        "OnCommand.QueryInterface",
        "OnCommand.Release",
        "DisconnectConfirmer.Run",
        "DisconnectConfirmer.Confirm",
        "ProfileEditor.Run",
        "ProfileEditor.Show",
        "SymbolMapping.ShowDialog",
        "Container.Message",
        "User.MessageBox",
        "User.Menu",
    };
    return calls;
}

bool host_desktop::is_window(HWND window) {
    return recording_desktop::is_window(window) ||
           platform::port<platform::desktop>::system().is_window(window);
}

LRESULT host_desktop::send_message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    m_record.enter("Container", {}, "Message", std::to_string(message) + ", " + std::to_string(lParam));
    return recording_desktop::send_message(window, message, wParam, lParam);
}

int host_desktop::message_box(HWND owner, const CString& text, const CString& caption, UINT flags) {
    m_record.enter("User", {}, "MessageBox", test::quoted(text));
    recording_desktop::message_box(owner, text, caption, flags);
    return IDYES;
}

UINT host_desktop::popup_menu(HWND owner, const std::vector<platform::popup_item>& items, POINT at) {
    m_record.enter("User", {}, "Menu");
    recording_desktop::popup_menu(owner, items, at);
    return 1;
}

struct world::services {
    explicit services(world& its)
        : center(its.record, CLSID_TradingCenter, L"TradingCenter",
                 [&its] { return com_ptr<IUnknown>(its.center->GetUnknown()); }),
          lookup(its.record, __uuidof(LookupImpl), L"LookupImpl",
                 [&its] { return com_ptr<IUnknown>(its.lookup->GetUnknown()); }),
          confirmer(its.record, CLSID_DisconnectConfirmer, L"DisconnectConfirmer",
                    [&its] { return one<test::FakeDisconnectConfirmer>(its); }),
          mapping(its.record, CLSID_SymbolMapping, L"SymbolMapping",
                  [&its] { return one<test::FakeSymbolMapping>(its); }),
          editor(its.record, CLSID_ProfileEditor, L"ProfileEditor",
                 [&its] { return one<test::FakeProfileEditor>(its); }) {}

    template <class Service>
    static com_ptr<IUnknown> one(world& its) {
        return platform::query<IUnknown>(platform::make_com<Service>(its.record)->GetUnknown());
    }

    test::fake_class center;
    test::fake_class lookup;
    test::fake_class confirmer;
    test::fake_class mapping;
    test::fake_class editor;
};

world::world()
    : center(platform::make_com<touchy<test::FakeTradingCenter>>(record, "Center")),
      on_command(platform::make_com<touchy<test::FakeOnCommand>>(record, "OnCommand")),
      lookup(platform::make_com<touchy<test::FakeLookup>>(record, "Lookup")),
      classes(std::make_unique<services>(*this)) {
    platform::registry_key::DeleteTree(HKEY_CURRENT_USER, remembered());
    remember(L"Alpha");
    remember(L"Beta");
    make_profiles();
    lookup->by_name[L"NQZ6"] = instrument(8, L"NQZ6");
    lookup->by_name[L"ESZ6"] = instrument(9, L"ESZ6");
    lookup->by_name[L""] = instrument(10, L"YMZ6");
    lookup->by_id[alpha_symbol] = instrument(alpha_symbol, L"ESH7");
    lookup->missing = eODLR_NotSupported;
    lookup->supported = false;
    row = make_stage(record, desktop);
    desktop.set_main_frame(row->parent());
    root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
    record.watch(
        [this](const std::string& general, const std::string& particular) { see(general, particular); });
    for (IUnknown* const object :
         {center->GetUnknown(), center->profiles->GetUnknown(), on_command->GetUnknown(),
          lookup->GetUnknown(), alpha->GetUnknown(), beta->GetUnknown(), gamma->GetUnknown(),
          alpha->trading->GetUnknown(), beta->trading->GetUnknown(), gamma->trading->GetUnknown()}) {
        m_counts.emplace_back(com_ptr<IUnknown>(object), 0);
    }
    for (auto& [object, count] : m_counts) {
        count = references(*object);
    }
}

world::~world() {
    root->Destroy();
    root.reset();
    record.watch(nullptr);
    platform::registry_key::DeleteTree(HKEY_CURRENT_USER, remembered());
}

void world::make_profiles() {
    center->profiles = platform::make_com<touchy<test::FakeProfiles>>(record, "Profiles");
    center->profiles->plugins = {L"CQG-FIX"};
    const auto make = [this](const CString& name) {
        const com_ptr<test::FakeProfile> profile =
            platform::make_com<touchy<test::FakeProfile>>(record, "Profile", name);
        profile->trading = platform::make_com<touchy<test::FakeManualTrading>>(record, "ManualTrading", name);
        profile->plugin = L"CQG-FIX";
        profile->trading->sight = platform::make_com<test::FakeOrderSight>(record, name);
        profile->trading->accounts = {L"A1", L"A2"};
        for (LONG category = 1; category <= 4; ++category) {
            profile->trading->times_in_force[category] = {1, 2, 3};
        }
        return profile;
    };
    alpha = make(L"Alpha");
    beta = make(L"Beta");
    gamma = make(L"Gamma");
    center->profiles->items = {alpha->GetUnknown(), beta->GetUnknown()};
}

void world::see(const std::string& general, const std::string& particular) {
    if (!m_in_bar) {
        return;
    }
    const std::string& name = general == "Class.CreateInstance" ? particular : general;
    made.emplace(name, m_step);
    if (m_played || m_step != m_wanted_step || name != m_call) {
        return;
    }
    m_played = true;
    run_trick();
}

void world::run_trick() {
    switch (m_trick) {
        case trick::destroy:
            root->Destroy();
            break;
        case trick::destroy_and_create:
            root->Destroy();
            create();
            break;
        case trick::create:
            create();
            break;
        case trick::close:
            root->OnClose();
            break;
        case trick::remove_this:
            std::erase(center->profiles->items, com_ptr<IUnknown>(alpha->GetUnknown()));
            fire(eTM_CTOE_Deleted, {alpha});
            break;
        case trick::remove_all:
            fire(eTM_CTOE_DeletedAll, {});
            break;
        case trick::reload:
            fire(eTM_CTOE_ReloadStart, {});
            fire(eTM_CTOE_ReloadComplete, {});
            break;
        case trick::disconnect:
            alpha->fire_state(eTM_CC_Disconnected);
            break;
        case trick::quote:
            alpha->fire_quote(100.0, 101.0);
            break;
        case trick::new_symbol:
            put_symbol(alpha, L"CLZ6");
            break;
        case trick::other_tab:
            show(beta);
            break;
        case trick::press:
            press();
            break;
        case trick::message_loop:
            run_loop();
            break;
        case trick::none:
            break;
    }
}

HRESULT world::create() {
    HWND window = nullptr;
    const HRESULT hr = root->Create(row->parent(), on_command->GetUnknown(), &window);
    if (hr == S_OK) {
        row->adopt(window);
    } else if (window != nullptr) {
        m_faults.emplace_back("a bar that was not made has a window");
    }
    return hr;
}

void world::fire(ETM_ChangeTypeOfEvent kind, const std::vector<com_ptr<test::FakeProfile>>& profiles) {
    center->profiles->fire(kind, profiles);
}

void world::run_loop() {
    MSG message;
    while (platform::peek_message(message)) {
        platform::dispatch_message(message);
    }
}

void world::press() {
    ++m_presses;
    row->press_buy();
}

// The driver is for the life of the bar: what is asked of it outside is a host's own mistake.
void world::show(const com_ptr<test::FakeProfile>& profile) {
    if (alive()) {
        root->put_ActiveTab(_bstr_t(profile->outer_id.c_str()));
    }
}

void world::put_symbol(const com_ptr<test::FakeProfile>& profile, const CString& name) {
    if (!alive()) {
        return;
    }
    OV_OrderDeck::symbol_info_holder info;
    instrument(30, name).write(info);
    root->put_SymbolInfo(_bstr_t(profile->outer_id.c_str()), &info);
}

// A line of a profile's menu, as the user has it before him while the host does what it likes.
void world::command(LONG id) {
    OV_OrderDeck::CGlobalData global;
    const auto wrap = platform::make_com<OV_OrderDeck::CProfileWrap>(beta.get());
    const auto line = platform::query<IOD_ProfileCmd>(
        (id == 13 || id == 14 ? global->create_command(id) : global->create_command(id, wrap)).get());
    _bstr_t name;
    VARIANT_BOOL enabled = VARIANT_FALSE;
    line->get_Name(name.GetAddress());
    line->get_Enabled(&enabled);
    if (id == 14) {
        _variant_t at;
        V_VT(&at) = VT_UINT;
        V_UINT(&at) = 0;
        line->ExecuteEx(at);
    } else {
        line->Execute();
    }
}

void world::step_create() {
    create();
}

void world::step_restore() {
    run_loop();
}

void world::step_ask() {
    SAFEARRAY* commands = nullptr;
    root->get_Commands(&commands);
    SafeArrayDestroy(commands);
    _bstr_t text;
    root->get_StatusLineString(text.GetAddress());
    // Asked of a bar without tabs, the name of the current one is a reported mistake.
    if (platform::text_of(text).find(L':') != CString::npos) {
        root->get_ActiveTab(text.GetAddress());
    }
}

void world::step_events() {
    center->profiles->items.push_back(gamma->GetUnknown());
    fire(eTM_CTOE_Added, {gamma});
    fire(eTM_CTOE_Updated, {alpha});
    alpha->fire_state(eTM_CC_Connected);
    alpha->fire_quote(100.0, 100.5);
    fire(eTM_CTOE_Deleted, {gamma});
    std::erase(center->profiles->items, com_ptr<IUnknown>(gamma->GetUnknown()));
    fire(eTM_CTOE_ReloadStart, {});
    fire(eTM_CTOE_ReloadComplete, {});
}

void world::step_driver() {
    put_symbol(alpha, L"ESZ6");
    put_symbol(alpha, L"NQZ6");
    if (alive()) {
        root->put_Account(_bstr_t(alpha->outer_id.c_str()), _bstr_t(L"A2"));
    }
    if (alive()) {
        OV_OrderDeck::symbol_info_holder info;
        root->get_SymbolInfo(_bstr_t(alpha->outer_id.c_str()), &info);
    }
    show(alpha);
}

// Beta is not connected, so the user is asked whether it is to be.
void world::step_symbol() {
    show(beta);
    row->confirm_symbol(L"ESZ6");
    row->leave_symbol(L"NQZ6");
    row->confirm_symbol(L"unknown");
}

void world::step_dialog() {
    row->open_dialog();
    lookup->by_name.erase(L"");
    row->open_dialog();
    show(alpha);
}

void world::step_order() {
    alpha->fire_state(eTM_CC_Connected);
    put_symbol(alpha, L"ESZ6");
    press();
    row->calculate();
    row->choose_type(eMTPA_OC_Limit);
    // Without a price the user gets a message instead.
    press();
    row->choose_type(eMTPA_OC_Market);
}

void world::step_commands() {
    for (const LONG id : {10, 11, 13, 14, 15}) {
        // Of a bar that is gone the collection is gone too, and asking for a line about it is a mistake.
        if (id != 14 || alive()) {
            command(id);
        }
    }
    beta->state = eTM_CC_Connected;
    command(10);
    command(11);
}

// Once more without a Destroy, and the tabs again.
void world::step_second_create() {
    create();
    run_loop();
    show(alpha);
}

void world::step_close() {
    root->OnClose();
}

void world::step_destroy() {
    root->Destroy();
}

const std::vector<world::step_entry>& world::all_steps() {
    static const std::vector<step_entry> steps = {
        {"Create", &world::step_create},     {"Restore", &world::step_restore},
        {"Ask", &world::step_ask},           {"Events", &world::step_events},
        {"Driver", &world::step_driver},     {"Symbol", &world::step_symbol},
        {"Dialog", &world::step_dialog},     {"Order", &world::step_order},
        {"Commands", &world::step_commands}, {"SecondCreate", &world::step_second_create},
        {"Close", &world::step_close},       {"Destroy", &world::step_destroy}};
    return steps;
}

int world::steps() {
    return static_cast<int>(all_steps().size());
}

const char* world::name_of_step(int step) {
    return all_steps().at(static_cast<std::size_t>(step)).name;
}

void world::afterwards() {
    if (!alive()) {
        return;
    }
    run_loop();
    step_ask();
    put_symbol(alpha, L"YMZ6");
    press();
    root->OnClose();
}

bool world::play(trick what, const std::string& call, int step) {
    m_trick = what;
    m_call = call;
    m_wanted_step = step;
    m_in_bar = true;
    for (m_step = 0; m_step < steps() && !m_played; ++m_step) {
        (this->*all_steps()[static_cast<std::size_t>(m_step)].action)();
    }
    m_step = -1;
    if (m_played) {
        afterwards();
        root->Destroy();
    }
    m_in_bar = false;
    run_loop();
    return m_played;
}

// What the bar reports of a host that plays tricks, and rightly.
bool world::is_told(const std::string& text) const {
    static const std::set<std::string> always = {
        // An event before the bar is made or after it is gone.
        "m_bValid == true",
        // A press before the host has told its times in force.
        "!time_in_force.IsEmpty()",
        // A question for the symbol of a row that has none.
        "m_bValid",
        // The panel's edit of a bar whose last tab has gone.
        "_ctrl",
    };
    const bool an_event =
        m_trick == trick::remove_this || m_trick == trick::remove_all || m_trick == trick::reload;
    // The host ends the subscription and uses it meanwhile.
    const bool at_the_end = m_call == "ProfilesEvents.Unadvise" && an_event && text == "m_pTabCtrl";
    return at_the_end || always.contains(text);
}

void world::expect_counts() {
    for (std::size_t i = 0; i < m_counts.size(); ++i) {
        const auto& [object, before] = m_counts[i];
        const ULONG now = references(*object);
        if (now != before) {
            m_faults.push_back("object " + std::to_string(i) + " of the host has " + std::to_string(now) +
                               " references, " + std::to_string(before) + " before");
        }
    }
    for (const auto& profile : {alpha, beta, gamma}) {
        if (profile->events->size() != 0) {
            m_faults.emplace_back("somebody still listens to a profile");
        }
    }
    if (center->profiles->events->size() != 0) {
        m_faults.emplace_back("somebody still listens to the collection");
    }
    if (row->bars_left() != 0) {
        m_faults.emplace_back("a bar is left");
    }
}

std::vector<std::string> world::faults() {
    center->profiles->items = {alpha->GetUnknown(), beta->GetUnknown()};
    expect_counts();
    const int orders = record.count("PlaceOrder(");
    if (orders > m_presses) {
        m_faults.push_back(std::to_string(orders) + " orders of " + std::to_string(m_presses) + " presses");
    }
    for (const reported_assertion& each : reports.assertions()) {
        if (is_told(test::narrow(each.description))) {
            continue;
        }
        m_faults.push_back("asserted: " + test::narrow(each.description) + " " + test::narrow(each.file) +
                           ":" + std::to_string(each.line));
    }
    return m_faults;
}

}  // namespace hostile
