#include "tests/monkey/host_side.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/message_pump.h"
#include "platform/registry.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace monkey {

namespace {

void apply_times(test::FakeProfile& profile, const times_by_category& times) {
    for (std::size_t i = 0; i < times.size(); ++i) {
        profile.trading->times_in_force[static_cast<LONG>(i) + 1] = times[i];
    }
}

// The many questions are not held against the model.
bool counts(const std::string& call) {
    static constexpr std::array<const char*, 8> heads = {
        "Bar.",       "ManualTrading(", "Lookup.",        "Class(",
        "OnCommand.", "menu:",          "ProfileEditor.", "DisconnectConfirmer."};
    static constexpr std::array<const char*, 2> operations = {").Connect()", ").Disconnect()"};
    return std::any_of(heads.begin(), heads.end(),
                       [&](const char* head) { return call.starts_with(head); }) ||
           std::any_of(operations.begin(), operations.end(),
                       [&](const char* tail) { return call.ends_with(tail); }) ||
           call.starts_with("SymbolMapping.") || call.find(").ShowSettings(") != std::string::npos;
}

std::string wide_hex(unsigned value) {
    std::array<char, 16> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "0x%08x", value);
    return buffer.data();
}

}  // namespace

std::string error_text(HRESULT hr) {
    return hr == S_OK ? std::string() : wide_hex(static_cast<unsigned>(hr));
}

HRESULT world_lookup::GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected, OD_SSymbolInfo* pVal,
                                    OD_LookupResult* pRes) {
    const std::string selected = pSelected != nullptr ? test::quoted(pSelected->Name) : "null";
    const auto told = m_host.enter("Lookup", {}, "GetSymbolInfo",
                                   test::quoted(sName) + ", " + std::to_string(dwFlags) + ", " + selected);
    if (told.write) {
        const CString text = platform::text_of(sName);
        const lookup_answer answer = text.empty() ? dialog : answer_to(text);
        answer.record.write(*pVal);
        *pRes = answer.result;
    }
    return told.hr;
}

SYSTEMTIME world_clock::local_time() {
    static constexpr std::array<int, 12> lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int day = 14 + (quarters + 1) / 4;
    int month = 4;
    int year = 2030;
    while (day >= lengths.at(static_cast<std::size_t>(month))) {
        day -= lengths.at(static_cast<std::size_t>(month));
        month = (month + 1) % 12;
        year += month == 0 ? 1 : 0;
    }
    SYSTEMTIME now{};
    now.wYear = static_cast<WORD>(year);
    now.wMonth = static_cast<WORD>(month + 1);
    now.wDay = static_cast<WORD>(day + 1);
    now.wHour = static_cast<WORD>((quarters + 1) % 4 * 6);
    return now;
}

HRESULT world_confirmer::Confirm(LONG hOwner, ITC_TradingProfile* pProfile) {
    const HRESULT told = FakeDisconnectConfirmer::Confirm(hOwner, pProfile);
    meanwhile();
    if (told != S_OK || refused == 0) {
        return told;
    }
    refused -= 1;
    return refused == 0 ? S_FALSE : S_OK;
}

CString remembered_path() {
    return Unicomp::settings_root() + L"\\Order Deck";
}

host_side::host_side()
    : m_center(platform::make_com<test::FakeTradingCenter>(host)),
      m_lookup(platform::make_com<world_lookup>(host)),
      m_confirmer(platform::make_com<world_confirmer>(host)),
      m_on_command(platform::make_com<test::FakeOnCommand>(host)),
      m_center_class(host, CLSID_TradingCenter, L"TradingCenter",
                     [this] { return com_ptr<IUnknown>(m_center->GetUnknown()); }),
      m_lookup_class(host, __uuidof(LookupImpl), L"LookupImpl",
                     [this] { return com_ptr<IUnknown>(m_lookup->GetUnknown()); }),
      m_confirmer_class(host, CLSID_DisconnectConfirmer, L"DisconnectConfirmer",
                        [this] { return com_ptr<IUnknown>(m_confirmer->GetUnknown()); }),
      m_mapping_class(host, CLSID_SymbolMapping, L"SymbolMapping",
                      [this] {
                          return platform::query<IUnknown>(
                              platform::make_com<test::FakeSymbolMapping>(host)->GetUnknown());
                      }),
      m_editor_class(host, CLSID_ProfileEditor, L"ProfileEditor", [this] {
          return platform::query<IUnknown>(platform::make_com<test::FakeProfileEditor>(host)->GetUnknown());
      }) {
    m_confirmer->meanwhile = [this] { interrupt(); };
    platform::registry_key::DeleteTree(HKEY_CURRENT_USER, remembered_path());
    for (const test::symbol& known : instruments()) {
        // The first of an id counts.
        m_lookup->by_id.try_emplace(known.id, known);
    }
    for (const profile_names& names : profiles()) {
        const auto profile = platform::make_com<test::FakeProfile>(host, names.name);
        profile->outer_id = names.outer_id;
        profile->plugin = plugin_name;
        const auto place = static_cast<int>(m_profiles.size());
        const auto trading = platform::make_com<world_trading>(host, names.name, place, door);
        profile->trading = com_ptr<test::FakeManualTrading>(trading.get());
        m_trading.push_back(trading);
        profile->trading->accounts = account_lists().front();
        apply_times(*profile, time_lists().front());
        m_profiles.push_back(profile);
    }
    for (int i = 0; i < 2; ++i) {
        collection().items.push_back(m_profiles.at(static_cast<std::size_t>(i))->GetUnknown());
    }
    root = platform::make_com<OV_OrderDeck::COrderDeckObj>();
}

host_side::~host_side() {
    root->Destroy();
    root.reset();
}

HWND host_side::start(HWND parent) {
    HWND window = nullptr;
    m_frame = parent;
    desktop.set_main_frame(parent);
    _com_util::CheckError(root->Create(parent, m_on_command->GetUnknown(), &window));
    m_bar = window;
    return window;
}

void host_side::fill() {
    SAFEARRAY* commands = nullptr;
    _com_util::CheckError(root->get_Commands(&commands));
    SafeArrayDestroy(commands);
    forget();
}

void host_side::forget() {
    host.clear();
    reports.clear();
    desktop.forget();
}

void host_side::prepare(const action& done) {
    m_clock.ticks += ticks_of_an_action;
    m_lookup->dialog = pick(dialog_answers(), done.which);
    m_lookup->supported = done.yes;
    m_confirmer->refused = done.what == act::restart ? done.which % 6 : done.yes ? 0 : 1;
    desktop.forget();
    desktop.while_modal([this] { interrupt(); });
    desktop.answer_message_box(done.yes ? IDYES : IDNO);
}

outcome host_side::take() {
    outcome seen;
    seen.calls = host.take();
    std::erase_if(seen.calls, [](const std::string& call) { return !counts(call); });
    std::transform(seen.calls.begin(), seen.calls.end(), seen.calls.begin(),
                   [this](const std::string& call) { return named(call); });
    for (const std::wstring& trace : reports.traces()) {
        if (trace.starts_with(L"Master's counter")) {
            seen.calls.push_back(test::narrow(trace));
        } else if (trace.starts_with(L"Order not sent: ")) {
            seen.calls.emplace_back("order not sent");
        }
    }
    for (const reported_assertion& each : reports.assertions()) {
        seen.assertions.push_back(test::narrow(each.description));
    }
    for (const auto& box : desktop.message_boxes()) {
        seen.boxes.push_back(test::narrow(box.text) + " flags " + std::to_string(box.flags));
    }
    for (std::string& line : door.take()) {
        seen.calls.push_back(std::move(line));
    }
    forget();
    return seen;
}

view host_side::status() const {
    _bstr_t text;
    root->get_StatusLineString(text.GetAddress());
    view lines = {"status: " + test::narrow(platform::text_of(text))};
    if (lines.front() != "status: 無經紀商") {
        _bstr_t id;
        root->get_ActiveTab(id.GetAddress());
        lines.push_back("active: " + test::narrow(platform::text_of(id)));
    }
    return lines;
}

HRESULT host_side::perform(const action& done) {
    if (done.what >= act::drive_symbol && done.what <= act::drive_active) {
        return drive(done);
    }
    if (done.what >= act::add_profile && done.what <= act::delete_all) {
        return collection_event(done);
    }
    return profile_event(done);
}

HRESULT host_side::profile_event(const action& done) {
    test::FakeProfile& profile = *pick(m_profiles, place_of_profile(done.who));
    switch (done.what) {
        case act::quote: {
            const auto [bid, ask] = pick(quotes(), done.which);
            return profile.fire_quote(bid, ask);
        }
        case act::state:
            return profile.fire_state(static_cast<ETM_ConnectionChanged>(pick(states(), done.which)));
        case act::silent_state:
            profile.state = static_cast<ETM_ConnectionChanged>(pick(states(), done.which));
            return S_OK;
        case act::change_accounts:
            profile.trading->accounts = pick(account_lists(), done.which);
            return S_OK;
        case act::change_times:
            apply_times(profile, pick(time_lists(), done.which));
            return S_OK;
        case act::break_call:
            break_call(static_cast<broken>(done.which % broken_count));
            return S_OK;
        case act::mend_calls:
            host.forget_faults();
            listen_to_calls();
            agree(true);
            return S_OK;
        case act::silent_settings:
            profile.have_settings = done.yes ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        case act::pass_time:
            m_clock.quarters += done.which % 9;
            return S_OK;
        case act::interrupt:
            m_interrupt = interruption(done);
            return S_OK;
        case act::meddle:
            m_meddling = done;
            return S_OK;
        case act::host_menu:
            return host_menu(done.which);
        default:
            return S_OK;
    }
}

void host_side::break_call(broken what) {
    if (what == broken::agreement) {
        agree(false);
    } else {
        host.fail(operation_of(what), E_FAIL);
    }
}

void host_side::agree(bool agrees) {
    for (const auto& each : m_trading) {
        each->says_no = !agrees;
    }
}

HRESULT host_side::list(const com_ptr<test::FakeProfile>& profile, bool with_null) {
    const com_ptr<IUnknown> object = profile->GetUnknown();
    std::vector<com_ptr<IUnknown>>& items = collection().items;
    if (std::find(items.begin(), items.end(), object) == items.end()) {
        items.push_back(object);
    }
    return with_null ? collection().fire(eTM_CTOE_Added, {nullptr, profile})
                     : collection().fire(eTM_CTOE_Added, {profile});
}

void host_side::unlist(const com_ptr<test::FakeProfile>& profile) {
    const com_ptr<IUnknown> object = profile->GetUnknown();
    std::erase(collection().items, object);
}

HRESULT host_side::collection_event(const action& done) {
    const com_ptr<test::FakeProfile> profile = pick(m_profiles, place_of_profile(done.who));
    switch (done.what) {
        case act::add_profile:
            return list(profile, done.yes);
        case act::remove_profile:
            unlist(profile);
            return collection().fire(eTM_CTOE_Deleted, {profile});
        case act::rename_profile:
            profile->name = pick(later_names(), done.which);
            return collection().fire(eTM_CTOE_Updated, {profile});
        case act::move_profile:
            return collection().fire(done.yes ? eTM_CTOE_Moved : static_cast<ETM_ChangeTypeOfEvent>(0),
                                     {profile});
        case act::reload_start:
            return collection().fire(eTM_CTOE_ReloadStart, {});
        case act::reload_complete:
            return collection().fire(eTM_CTOE_ReloadComplete, {});
        default:
            collection().items.clear();
            return collection().fire(eTM_CTOE_DeletedAll, {});
    }
}

}  // namespace monkey
