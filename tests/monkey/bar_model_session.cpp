// How the bar begins and ends, and what it remembers in between.
#include <algorithm>

#include "tests/monkey/bar_model.h"
#include "tests/support/host_record.h"

namespace monkey {

// Tried once: a bar whose first try failed stays without tabs.
void bar_model::fill() {
    if (m_filled) {
        return;
    }
    m_filled = true;
    m_out.calls.emplace_back("Class(\"TradingCenter\").CreateInstance()");
    if (m_host.fails(broken::center_class)) {
        throw raised{"0x80004005"};
    }
    if (m_host.fails(broken::collection)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004003"};
    }
    if (m_host.fails(broken::items)) {
        m_out.assertions.emplace_back("*");
        throw raised{"0x80004005"};
    }
    for (const int profile : m_host.listed) {
        add(profile, true);
    }
    m_subscribed = !m_host.fails(broken::subscribe);
    if (!m_subscribed) {
        m_out.assertions.emplace_back("*");
    }
    m_has_center = true;
    filled();
}

// The host may leave without closing the bar, as after a crash; then nothing is written.
void bar_model::restart(const action& done) {
    m_host.master_counter = done.which % 7 == 3 ? 2 : 1;
    if (done.which % 5 != 0 && !close()) {
        throw raised{"0x00000001"};
    }
    destroy();
    plant(done);
    create();
    try {
        restore();
    } catch (const raised&) {
        m_out.assertions.emplace_back("Unhandled exception occure during execute task.");
    }
}

bool bar_model::need_disconnect() {
    if (m_has_center && !m_host.fails(broken::counter) && m_host.master_counter > 1) {
        m_notes.emplace_back("Master's counter is 2. Don't disconnect profiles");
        return false;
    }
    return true;
}

// False when the user refused: then nothing is written, and the profiles before that one are left.
bool bar_model::close() {
    std::vector<memory_record> records;
    if (need_disconnect()) {
        m_notes.emplace_back("Master's counter is 1. Disconnect profiles ...");
        std::vector<std::pair<LONG, int>> tabs;
        for (const auto& row : m_rows) {
            tabs.emplace_back(row->id, row->profile);
        }
        for (const auto& [id, profile] : tabs) {
            // A reload during the question makes the tabs of the same profiles anew.
            row_model* const row = find(id) != nullptr ? find(id) : row_of(profile);
            if (row == nullptr) {
                continue;
            }
            memory_record record{row->name, row->state() == 768, 0, {}};
            if ((row->state() == 768 || row->state() == 512) && !row->disconnect()) {
                return false;
            }
            if (const std::optional<test::symbol>& symbol = row->symbol()) {
                record.symbol_id = symbol->id;
                record.symbol_name = symbol->name;
            }
            if (record.connected || record.symbol_id != 0 || !record.symbol_name.empty()) {
                records.push_back(record);
            }
        }
    }
    write(records);
    return true;
}

// Of two profiles with one name the later one writes over what it has itself.
void bar_model::write(const std::vector<memory_record>& records) {
    remember(m_host.memory);
    m_host.memory.records.clear();
    for (const memory_record& each : records) {
        memory_record& kept = m_host.memory.record_of(each.name);
        kept.connected = each.connected;
        if (each.symbol_id != 0) {
            kept.symbol_id = each.symbol_id;
        }
        if (!each.symbol_name.empty()) {
            kept.symbol_name = each.symbol_name;
        }
    }
}

void bar_model::destroy() {
    m_tags.clear();
    m_rows.clear();
    m_filled = m_has_center = m_subscribed = m_reloading = false;
    torn_down();
}

void bar_model::create() {
    m_next_id = 1;
    created();
}

// Another bar of the user wrote meanwhile.
void bar_model::plant(const action& done) {
    memory_model& memory = m_host.memory;
    const CString name = pick(remembered_names(), done.who);
    switch (done.which / 42 % 4) {
        case 1: {
            memory_record& record = memory.record_of(name);
            record.connected = done.who % 3 != 0;
            record.symbol_id = planted_id(done.which / 168);
            record.symbol_name = pick(symbol_texts(), done.which / 168);
            return;
        }
        case 2:
            memory.current_tab = name;
            return;
        case 3:
            memory.records.clear();
            return;
        default:
            return;
    }
}

// With nothing remembered the trading centre waits until somebody needs it.
void bar_model::restore() {
    const std::map<CString, memory_record> records = m_host.memory.records;
    if (records.empty()) {
        return;
    }
    fill();
    take_up(m_host.memory);
    for (const auto& [key, record] : records) {
        const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                      [&](const auto& each) { return each->name == record.name; });
        if (row != m_rows.end()) {
            restore_row(**row, record);
        }
    }
}

void bar_model::restore_row(row_model& row, const memory_record& record) {
    if (record.connected) {
        row.connect();
    }
    if (record.symbol_id != 0) {
        row.lookup_by_id(record.symbol_id);
    } else if (!record.symbol_name.empty()) {
        row.lookup_by_name(record.symbol_name);
    }
}

}  // namespace monkey
