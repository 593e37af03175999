#include "window/application.h"

#include "com/text.h"
#include "hotkeys/hot_key_services.h"
#include "market/symbol_file.h"
#include "market/time_text.h"
#include "services/disconnect_confirmer.h"
#include "services/on_command.h"
#include "services/profile_editor.h"
#include "services/quantity_calculator.h"
#include "services/symbol_mapping.h"
#include "window/describe.h"
#include "window/disconnect_dialog.h"
#include "window/feed_association.h"
#include "window/profile_editor_dialog.h"
#include "window/profile_settings_dialog.h"
#include "window/quantity_dialog.h"
#include "window/settings_folder.h"
#include "window/symbol_mapping_dialog.h"

namespace host {
namespace {

double local_now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    double date = 0.0;
    SystemTimeToVariantTime(&time, &date);
    return date;
}

template <class T, class... Arguments>
ref<IUnknown> make_unknown(Arguments&&... arguments) {
    return ref<IUnknown>(make<T>(std::forward<Arguments>(arguments)...)->unknown());
}

}  // namespace

application::application(const options& settings)
    : m_settings(settings),
      m_desk(settings, &local_now),
      m_profiles(make<profiles>(m_desk, m_scheduler, &show_profile_settings, read_profiles())),
      m_frame(std::make_unique<frame>(settings, m_desk, *this)) {
    if (!m_profiles_problem.empty()) {
        log("The profiles can't be read, these are new ones: " + m_profiles_problem);
    }
    m_profiles->on_change = [this] { keep_profiles(); };
    m_desk.on_event = [this](const std::string& text) {
        log(text);
        // Later: the bar has yet to hear of it.
        m_scheduler.after(0, [this] { refresh_status(); });
    };
    m_desk.on_order = [this](const order& one) { m_frame->blotter().update(one); };
    load_hot_keys();
    load_symbols();
    associate_data_feed();
    register_classes();
    m_component = std::make_unique<component>(settings.dll);
    m_frame->show();
    start_bar();
}

application::~application() = default;

void application::load_symbols() {
    symbol_file file = read_symbol_file(to_utf8(beside_program(L"symbols.txt")));
    for (const std::string& fault : file.faults) {
        log("Symbol file: " + fault);
    }
    log("Symbols: " + std::to_string(file.instruments.size()) + " instruments");
    if (!file.instruments.empty()) {
        m_desk.use(symbol_store(std::move(file.instruments)));
    }
}

void application::register_classes() {
    m_classes.add(CLSID_TradingCenter,
                  [this] { return make_unknown<trading_centre>(m_profiles, m_masters); });
    m_classes.add(CLSID_DisconnectConfirmer,
                  [this] { return make_unknown<disconnect_confirmer>(m_desk, &may_disconnect); });
    m_classes.add(CLSID_ProfileEditor, [this] {
        return make_unknown<profile_editor>([this](HWND owner) { edit_profiles(owner); });
    });
    m_classes.add(CLSID_QuantityCalculator, [] {
        return make_unknown<quantity_calculator>(
            [](HWND owner, LONG, LONG category) { return calculate_quantity(owner, category); });
    });
    m_classes.add(CLSID_SymbolMapping, [this] {
        return make_unknown<symbol_mapping_service>(
            [this](HWND owner, const std::string& profile) { map_symbols(owner, profile); });
    });
}

void application::start_bar() {
    if (m_component->root() == nullptr) {
        m_frame->show_no_bar(m_component->origin());
        log("No order bar: " + m_component->origin());
        return;
    }
    const auto sink = make_unknown<on_command>([this](bool locked) { m_frame->lock(locked); });
    const HRESULT hr = m_bar.create(m_component->root(), m_frame->handle(), sink.get());
    if (FAILED(hr)) {
        m_frame->show_no_bar("its Create failed with " + std::to_string(hr));
        return;
    }
    log("Order bar: " + m_component->origin());
    m_frame->dock(m_bar.window(), m_bar.height());
    // From the message loop, after what the bar itself has to restore.
    m_scheduler.after(0, [this] {
        m_bar.fill();
        refresh_status();
    });
}

int application::run() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!m_frame->translate(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

profile_list application::read_profiles() {
    try {
        return load_profiles(profiles_file());
    } catch (const std::runtime_error& error) {
        // The frame and its log are not there yet.
        m_profiles_problem = error.what();
        return default_profiles();
    }
}

void application::keep_profiles() {
    try {
        save_profiles(profiles_file(), m_profiles->list());
    } catch (const std::runtime_error& error) {
        log(std::string("The profiles can't be kept: ") + error.what());
    }
}

std::filesystem::path application::profiles_file() const {
    return settings_folder(m_settings) / L"profiles.json";
}

void application::edit_profiles(HWND owner) {
    show_profile_editor(owner, *m_profiles, [this](HWND dialog, const profile& one) {
        const std::vector<order> live = m_desk.live_orders(one.shared().name);
        return live.empty() || may_disconnect(dialog, one.shared().name, live);
    });
}

void application::map_symbols(HWND owner, const std::string& name) {
    for (const profile_record& one : m_profiles->list().profiles) {
        if (one.name == name && show_symbol_mapping(owner, name, one.plugin)) {
            log("Symbols of " + one.plugin + " come from " + feed_of(one.plugin) +
                " at the bar's next start");
        }
    }
}

void application::log(const std::string& text) {
    m_frame->log().append(clock_text(local_now()) + "  " + text);
}

void application::refresh_status() {
    std::string market = "Quotes: seed " + std::to_string(m_settings.seed);
    market += m_settings.frozen_quotes ? ", frozen" : "";
    m_frame->set_status(m_bar.window() == nullptr ? "No order bar" : m_bar.status_line(), market);
}

void application::on_choose(int instrument_id) {
    const instrument* chosen = find_instrument(instrument_id);
    if (chosen != nullptr && m_bar.window() != nullptr && !m_bar.choose(*chosen)) {
        log("No tab takes " + chosen->name);
    }
}

void application::on_cancel(int order_id) {
    const bool cancelled = m_desk.cancel(order_id);
    log("Order " + std::to_string(order_id) + (cancelled ? ": cancelled" : ": is not live any more"));
}

void application::on_cancel_all() {
    for (std::size_t index = 0; index < m_desk.orders().size(); ++index) {
        if (m_desk.orders()[index].is_live()) {
            on_cancel(m_desk.orders()[index].id);
        }
    }
}

void application::on_tick() {
    m_desk.tick();
    m_frame->instruments().refresh();
    m_profiles->push_quotes();
    refresh_status();
}

void application::on_describe() {
    write_description(m_settings.describe);
}

void application::load_hot_keys() {
    const std::wstring file = (settings_folder(m_settings) / L"hot-keys.txt").wstring();
    const auto complain = [](void* self, const char* text) {
        static_cast<application*>(self)->log(std::string("Hot keys: ") + text);
    };
    if (HotKeyServices_Load(file.c_str(), complain, this) == 0) {
        log("Hot keys: " + to_utf8(file) + " can't be read");
    }
}

const profile* application::active_profile() const {
    return m_profiles->find(m_bar.active_tab());
}

void application::refresh_menu() {
    const profile* active = active_profile();
    const std::string name = active == nullptr ? std::string() : active->shared().name;
    const std::string of = name.empty() ? std::string() : " of " + literal_menu_text(name);
    const bool idle = active != nullptr && active->state() == eTM_CC_Disconnected;
    m_menu.refresh(name, {{"Show Profile Settings", "Profile &settings" + of + "...", idle,
                           [this, outer_id = m_bar.active_tab()] { show_settings(outer_id); }},
                          {"Show Symbol Mapping", "Symbol &mapping" + of + "...", !name.empty(),
                           [this, name] { map_symbols(m_frame->handle(), name); }},
                          {"Cancel All Orders", "", true, [this] { on_cancel_all(); }}});
}

void application::show_settings(const std::string& outer_id) {
    if (profile* const one = m_profiles->find(outer_id)) {
        one->ShowSettings(reinterpret_cast<ULONG_PTR>(m_frame->handle()));
    }
}

void application::fill_profile_menu(HMENU menu) {
    refresh_menu();
    m_menu.fill(menu);
}

bool application::on_key(std::uint32_t key) {
    const char* command = HotKeyServices_CommandOf(key);
    if (command == nullptr) {
        return false;
    }
    refresh_menu();
    const bool ran = m_menu.run_command(command);
    refresh_status();
    return ran;
}

void application::on_profile_command(int id) {
    m_menu.run_line(id);
    refresh_status();
}

bool application::may_close() {
    return m_bar.close();
}

void application::on_closing() {
    m_menu.clear();
    m_bar.destroy();
}

}  // namespace host
