// One tab as a user understands it: an independent account of the order row.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/monkey/bits.h"
#include "tests/monkey/host_model.h"
#include "tests/monkey/seen_row.h"

namespace monkey {

// Ends an action with an error.
struct raised {
    std::string error;
};

// The host's menus are locked while it lives.
class locked {
public:
    locked(const host_model& host, outcome& out);
    ~locked();
    locked(const locked&) = delete;
    locked& operator=(const locked&) = delete;

private:
    const host_model& m_host;
    outcome& m_out;
};

class row_model {
public:
    // What the row tells its bar.
    struct listener {
        std::function<void(const row_model&, unsigned mask)> update;
        std::function<void(const row_model&, bit field)> focus;
        // A question is open.
        std::function<void()> asked;
        // A press sent nothing, which is noted.
        std::function<void()> stopped;
    };

    row_model(host_model& host, outcome& out, int number_of_profile, LONG new_id);

    const int profile;
    const LONG id;
    CString name;
    listener bar;
    // False for a tab whose profile took no subscription.
    bool listens = true;

    void query_state();
    // Asks the host anew, as after a change of the profile.
    void refresh();
    // True when the host's answer to the event is that it was taken.
    bool on_quote(double bid, double ask);
    void on_state(LONG new_state);

    void select_type(LONG key);
    void select_time(LONG key);
    void select_account(LONG key);
    void put_quantity(const quantity_text& text);
    void put_price(bit field, const CString& text);
    void spin_price(bit field, int steps);
    void pick_quote(double price);
    void put_date(double ole_date);
    // The user, or another program, presses Buy (1) or Sell (2) and saw this. True when nothing was sent
    // because something differs.
    bool press(LONG action, const seen_row& seen);
    void lookup(const CString& text, bool ask_connect, bool quiet);
    void lookup_by_id(LONG symbol_id);
    void lookup_by_name(const CString& text);
    void lookup_with_dialog();
    void put_symbol(const test::symbol& record);
    void put_account(const CString& account);

    // The commands of the profile, by their ids; edit_profile for one that has settings.
    void run_command(int command);
    std::string command_name(int command) const;
    bool have_settings();
    void connect();
    // False when the user refused.
    bool disconnect();

    LONG state() const { return m_state; }
    double ask() const { return m_ask; }
    double bid() const { return m_bid; }
    LONG type() const { return m_type; }
    LONG quantity() const { return m_quantity; }
    double date() const { return m_date; }
    CString symbol_name() const { return m_symbol ? m_symbol->name : CString(); }
    const std::optional<test::symbol>& symbol() const { return m_symbol; }
    CString account() const;
    const std::vector<CString>& accounts() const { return m_accounts; }
    // The lists' keys, in their order.
    std::vector<LONG> keys(bit field) const;
    // What a screen shows that shows just what the fields hold.
    seen_row sight() const;
    // What a price field shows.
    std::string price_text(bit field) const { return test::narrow(price_of(field).text); }

    bool enabled(bit field) const;
    bool hidden(bit field) const;
    bool empty(bit field) const;
    // What the field shows, in words.
    std::string value(bit field) const;
    // Price fields: the lowest price.
    double tick() const;

private:
    struct price {
        double value;
        CString text;
    };

    bool usable() const { return m_state == 768 && m_symbol.has_value(); }
    price& price_of(bit field) { return field == first_price_bit ? m_first : m_second; }
    const price& price_of(bit field) const { return field == first_price_bit ? m_first : m_second; }
    LONG code() const { return m_symbol ? m_symbol->price_scale_code : 0; }
    void set_price(price& field, double value);
    void set_clamped(price& field, double value);
    void clear_prices();
    void reset_quotes();

    // The host's order entry, false when the profile has none.
    bool trading();
    void need_trading();
    void call(const std::string& operation);
    void profile_call(const std::string& operation);
    void toggle_connection();
    void edit_profile();
    void map_symbols();
    void update_accounts();
    void update_times();
    void set_current_account();
    void update(unsigned mask) { bar.update(*this, mask); }

    // True when the host has taken the symbol.
    bool tell_symbol();
    bool tell_refused_symbol();
    sent_order order_of(LONG action) const;
    void place(const sent_order& order);

    void start_lookup();
    lookup_answer ask_lookup(const CString& text, bool quiet);
    void store(const test::symbol& record);
    void symbol_changed();
    void ask_connect();
    void box(const CString& text, unsigned flags);
    bool check_price(bit field);
    bool check_prices();

    host_model& m_host;
    outcome& m_out;
    LONG m_state = 256;
    bool m_has_lookup = false;
    std::optional<bool> m_have_settings;
    std::optional<test::symbol> m_symbol;
    LONG m_type = 1;
    LONG m_quantity = 1;
    price m_first;
    price m_second;
    std::vector<CString> m_accounts;
    LONG m_account = -1;
    std::map<LONG, CString> m_times;
    LONG m_time = -1;
    double m_date;
    double m_ask;
    double m_bid;
    bool m_quoted = true;
    bool m_symbol_refused = false;
};

}  // namespace monkey
