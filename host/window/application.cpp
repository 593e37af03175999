#include "window/application.h"

#include "com/text.h"
#include "market/time_text.h"
#include "services/disconnect_confirmer.h"
#include "services/lookup_service.h"
#include "services/on_command.h"
#include "services/profile_editor.h"
#include "services/symbol_mapping.h"
#include "window/describe.h"
#include "window/feed_association.h"
#include "window/profile_editor_dialog.h"
#include "window/resource.h"

namespace host {
namespace {

constexpr const wchar_t* caption = L"OrderDeck Host";

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
      m_profiles(make<profiles>(m_desk, m_scheduler,
                                [this](HWND owner, const std::string& text) { show_message(owner, text); })),
      m_frame(std::make_unique<frame>(settings, m_desk, *this)) {
    m_desk.on_event = [this](const std::string& text) { log(text); };
    m_desk.on_order = [this](const order& one) { m_frame->blotter().update(one); };
    associate_data_feed();
    register_classes();
    m_component = std::make_unique<component>(settings.dll, m_classes);
    if (!m_component->has_lookup()) {
        m_classes.add(__uuidof(LookupImpl), [this] {
            return make_unknown<lookup_service>([this](HWND owner) { return choose_from_menu(owner); });
        });
    }
    m_frame->show();
    start_bar();
}

application::~application() = default;

void application::register_classes() {
    m_classes.add(CLSID_TradingCenter,
                  [this] { return make_unknown<trading_centre>(m_profiles, m_masters); });
    m_classes.add(CLSID_DisconnectConfirmer, [this] {
        return make_unknown<disconnect_confirmer>(
            m_desk, [this](HWND owner, const std::string& text) { return ask(owner, text); });
    });
    m_classes.add(CLSID_ProfileEditor, [this] {
        return make_unknown<profile_editor>([this](HWND owner) { show_profile_editor(owner, *m_profiles); });
    });
    m_classes.add(CLSID_SymbolMapping, [this] {
        return make_unknown<symbol_mapping_service>(
            [this](HWND owner, const std::string& text) { show_message(owner, text); });
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

void application::show_message(HWND owner, const std::string& text) {
    MessageBoxW(owner, to_wide(text).c_str(), caption, MB_ICONINFORMATION);
}

bool application::ask(HWND owner, const std::string& text) {
    return MessageBoxW(owner, to_wide(text).c_str(), caption, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

const instrument* application::choose_from_menu(HWND owner) {
    const HMENU menu = CreatePopupMenu();
    for (const instrument& one : instruments()) {
        AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(one.id),
                    to_wide(one.name + "\t" + one.description).c_str());
    }
    POINT where{};
    GetCursorPos(&where);
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, where.x, where.y, 0,
                                      IsWindow(owner) ? owner : m_frame->handle(), nullptr);
    DestroyMenu(menu);
    return find_instrument(chosen);
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

void application::fill_profile_menu(HMENU menu) {
    m_commands = m_bar.commands();
    UINT id = IDM_PROFILE_FIRST;
    for (const bar_command& line : m_commands) {
        if (line.name.empty()) {
            AppendMenuW(menu, MF_SEPARATOR, id++, nullptr);
            continue;
        }
        const UINT flags =
            (line.enabled ? MF_ENABLED : MF_GRAYED) | (line.checked ? MF_CHECKED : MF_UNCHECKED);
        AppendMenuW(menu, MF_STRING | flags, id++, to_wide(line.name).c_str());
    }
    if (m_commands.empty()) {
        AppendMenuW(menu, MF_STRING | MF_GRAYED, IDM_NO_PROFILES, L"(no profiles)");
    }
}

void application::on_profile_command(int id) {
    const auto index = static_cast<std::size_t>(id - IDM_PROFILE_FIRST);
    if (index < m_commands.size() && m_commands[index].command != nullptr) {
        m_commands[index].command->Execute();
        refresh_status();
    }
}

bool application::may_close() {
    return m_bar.close();
}

void application::on_closing() {
    m_commands.clear();
    m_bar.destroy();
}

}  // namespace host
