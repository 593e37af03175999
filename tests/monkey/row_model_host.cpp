// What the row asks of the host.
#include <algorithm>

#include "tests/monkey/price_model.h"
#include "tests/monkey/row_model.h"
#include "tests/support/host_record.h"

namespace monkey {

namespace {

// Where a price without its fraction stands in a message.
CString whole(double value) {
    return std::to_wstring(static_cast<LONG>(value));
}

}  // namespace

bool row_model::trading() {
    if (m_host.fails(broken::trading)) {
        m_out.assertions.emplace_back("*");
        return false;
    }
    return true;
}

void row_model::need_trading() {
    if (!trading()) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004003"};
    }
}

// The fake host keeps the first name of a profile in its record.
void row_model::call(const std::string& operation) {
    const CString& first = profiles().at(static_cast<std::size_t>(profile)).name;
    m_out.calls.push_back("ManualTrading(" + test::quoted(first) + ")." + operation);
}

void row_model::update_accounts() {
    if (!trading()) {
        m_out.assertions.emplace_back("_trad");
        return;
    }
    call("GetAccounts()");
    if (m_host.fails(broken::accounts)) {
        m_out.assertions.emplace_back("_acc_arr");
        return;
    }
    m_accounts = m_host.profiles.at(static_cast<std::size_t>(profile)).accounts;
    if (m_account < 0 || m_account >= static_cast<LONG>(m_accounts.size())) {
        m_account = m_accounts.empty() ? -1 : 0;
    }
}

void row_model::update_times() {
    if (!trading()) {
        m_out.assertions.emplace_back("_trad");
        return;
    }
    call("GetTimeInForces(" + std::to_string(m_type) + ")");
    if (m_host.fails(broken::times)) {
        m_out.assertions.emplace_back("_tif_arr");
        return;
    }
    const std::vector<LONG>& codes =
        m_host.profiles.at(static_cast<std::size_t>(profile)).times.at(static_cast<std::size_t>(m_type - 1));
    m_times.clear();
    for (const LONG each : codes) {
        m_times[each] = time_text(each);
    }
    // A code is held against the number of codes: that is how it has to be.
    if (m_time < 0 || m_time >= static_cast<LONG>(codes.size())) {
        m_time = codes.empty() ? -1 : codes.front();
    }
}

void row_model::set_current_account() {
    need_trading();
    call("SetAccount(" + test::quoted(account()) + ")");
    if (m_host.fails(broken::set_account)) {
        m_out.assertions.emplace_back("*");
    }
}

void row_model::put_account(const CString& wanted) {
    if (wanted == account()) {
        return;
    }
    const auto found = std::find(m_accounts.begin(), m_accounts.end(), wanted);
    if (found != m_accounts.end()) {
        m_account = static_cast<LONG>(found - m_accounts.begin());
    }
    set_current_account();
    update(account_bit);
}

void row_model::box(const CString& text, unsigned flags) {
    const locked lock(m_host, m_out);
    m_out.boxes.push_back(test::narrow(text) + " flags " + std::to_string(flags));
    bar.asked();
}

bool row_model::check_price(bit field) {
    if (!empty(field)) {
        return true;
    }
    box(L"請輸入 " + whole(tick()) + L" 至 250000 的數值。", 0);
    bar.focus(*this, field);
    return false;
}

bool row_model::check_prices() {
    switch (m_type) {
        case 2:
            return check_price(first_price_bit);
        case 3:
            return check_price(second_price_bit);
        case 4:
            return check_price(first_price_bit) && check_price(second_price_bit);
        default:
            return true;
    }
}

sent_order row_model::order_of(LONG action) const {
    const auto sent = [&](bit field) { return empty(field) ? 0.0 : price_of(field).value; };
    return {
        profile, action,    m_type,        m_quantity, sent(first_price_bit), sent(second_price_bit), m_time,
        m_date,  account(), symbol_name(), true};
}

bool row_model::press(LONG action, const seen_row& seen) {
    const bit button = action == 1 ? buy_bit : sell_bit;
    if (!seen.items.at(button).enabled || !enabled(button)) {
        bar.stopped();
        return true;
    }
    if (!check_prices()) {
        return false;
    }
    if (empty(quantity_bit) || empty(time_bit) || (m_time == 3 && empty(date_bit))) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    const sent_order order = order_of(action);
    // A time in force that the list no longer has shows nothing and goes out all the same.
    if (m_times.count(m_time) == 0 || !broken_items(seen, order).empty()) {
        bar.stopped();
        return true;
    }
    if (tell_refused_symbol()) {
        set_current_account();
        need_trading();
        place(order);
    }
    return false;
}

void row_model::place(const sent_order& order) {
    if (wants_receipts(profile)) {
        call("BeforeOrder()");
        if (m_host.fails(broken::receipt)) {
            m_out.assertions.emplace_back("*");
            return;
        }
        if (m_host.fails(broken::agreement)) {
            return;
        }
    }
    call("PlaceOrder(" + std::to_string(order.action) + ", " + std::to_string(order.category) + ", " +
         std::to_string(order.quantity) + ", " + test::number_text(order.stop_price) + ", " +
         test::number_text(order.limit_price) + ", " + std::to_string(order.time_in_force) + ", date(" +
         test::number_text(order.date) + "))");
    if (m_host.fails(broken::order)) {
        m_out.assertions.emplace_back("*");
    }
    if (wants_receipts(profile)) {
        call("AfterOrder(" + std::to_string(m_host.fails(broken::order) ? E_FAIL : S_OK) + ")");
    }
}

// A host that refused a symbol would take the order for the one before.
bool row_model::tell_refused_symbol() {
    if (m_symbol_refused && !tell_symbol()) {
        box(L"經紀商未接受商品 " + symbol_name() + L", 委託未送出。", 0);
        return false;
    }
    return true;
}

bool row_model::tell_symbol() {
    m_symbol_refused = true;
    if (!trading()) {
        m_out.assertions.emplace_back("_trad");
        return false;
    }
    call("SetSymbol(" + (m_symbol ? test::quoted(m_symbol->name) : "null") + ", " + test::quoted(own_feed) +
         ")");
    m_symbol_refused = m_host.fails(broken::set_symbol);
    if (m_symbol_refused) {
        m_out.assertions.emplace_back("*");
    }
    return !m_symbol_refused;
}

void row_model::start_lookup() {
    if (m_has_lookup) {
        return;
    }
    m_out.calls.emplace_back("Class(\"LookupImpl\").CreateInstance()");
    if (m_host.fails(broken::lookup_class)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    m_out.calls.push_back("Lookup.Initialize(frame, " + test::quoted(plugin_name) + ", 0, null)");
    if (m_host.fails(broken::lookup_start)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    m_has_lookup = true;
}

lookup_answer row_model::ask_lookup(const CString& text, bool quiet) {
    start_lookup();
    const std::string present = m_symbol ? test::quoted(m_symbol->name) : "null";
    m_out.calls.push_back("Lookup.GetSymbolInfo(" + test::quoted(text) + ", " + (quiet ? "1" : "0") + ", " +
                          present + ")");
    if (m_host.fails(broken::lookup)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    return text.empty() ? m_host.dialog : answer_to(text);
}

void row_model::lookup(const CString& text, bool asks, bool quiet) {
    if (text.empty()) {
        if (m_symbol) {
            m_symbol.reset();
            symbol_changed();
        }
        return;
    }
    const lookup_answer answer = ask_lookup(text, quiet);
    if (answer.result == eODLR_Selected || answer.result == eODLR_NotSupported) {
        store(answer.record);
        if (asks) {
            ask_connect();
        }
    }
}

void row_model::lookup_by_name(const CString& text) {
    start_lookup();
    m_out.calls.push_back("Lookup.IsPluginSupported(" + test::quoted(plugin_name) + ")");
    if (m_host.fails(broken::lookup_plugin)) {
        m_out.assertions.emplace_back("*");
    } else if (m_host.plugin_is_supported) {
        return;
    }
    if (text.empty()) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    lookup(text, false, true);
}

void row_model::lookup_by_id(LONG symbol_id) {
    if (symbol_id <= 0) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    start_lookup();
    m_out.calls.push_back("Lookup.GetSymbolInfoById(" + std::to_string(symbol_id) + ")");
    if (m_host.fails(broken::lookup_by_id)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    for (const test::symbol& known : instruments()) {
        if (known.id == symbol_id) {
            store(known);
            return;
        }
    }
}

void row_model::lookup_with_dialog() {
    const lookup_answer answer = ask_lookup(L"", false);
    if (answer.result == eODLR_Selected) {
        store(answer.record);
        ask_connect();
    } else if (answer.result == eODLR_NotSupported) {
        box(L"請手動輸入商品名稱。", 0);
    }
}

void row_model::put_symbol(const test::symbol& record) {
    if (record.data_feed.empty() || record.data_feed == own_feed) {
        store(record);
    }
}

void row_model::store(const test::symbol& record) {
    if (m_symbol && m_symbol->name == record.name && m_symbol->category == record.category &&
        m_symbol->data_feed == record.data_feed && m_symbol->exchange == record.exchange) {
        return;
    }
    m_symbol = record;
    symbol_changed();
}

void row_model::symbol_changed() {
    if (usable()) {
        update_accounts();
        clear_prices();
    }
    reset_quotes();
    tell_symbol();
    update(0x3FF80);
}

void row_model::ask_connect() {
    if (m_state == 768 || m_state == 512) {
        return;
    }
    box(L"目前尚未連線至 " + name + L" 。是否建立連線?", 0x24);
    if (m_host.yes) {
        connect();
    }
}

}  // namespace monkey
