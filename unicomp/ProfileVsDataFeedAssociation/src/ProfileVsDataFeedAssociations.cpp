#include <algorithm>
#include <array>
#include <atomic>
#include <new>

#include "diagnostics/BugSlayerUtil.h"
#include "platform/registry.h"
#include "platform/text_argument.h"
#include "unicomp/ProfileVsDataFeedAssociation/interface/ProfileVsDataFeedAssociation.h"
#include "unicomp/Simples/interface/settings_root.h"

namespace Unicomp::details {
namespace {

struct built_in_row {
    const wchar_t* plugin;
    const wchar_t* feed;
};

constexpr std::array built_in_rows{
    built_in_row{L"Interactive Brokers", L"Interactive Brokers"},
    built_in_row{L"Open E Cry", L"Open E Cry"},
    built_in_row{L"Rithmic 01", L"Rithmic 01"},
    built_in_row{L"Zen-Fire", L"Zen-Fire"},
    built_in_row{L"Patsystems", L"Patsystems"},
    built_in_row{L"Trading Technologies", L"Trading Technologies"},
    built_in_row{L"Dukascopy", L"Dukascopy"},
    built_in_row{L"PFGBEST", L"PFGBEST"},
    built_in_row{L"MB Trading", L"MB Trading"},
    built_in_row{L"LMAX", L"LMAX"},
    built_in_row{L"CQG", L"CQG"},
    built_in_row{L"MIG Bank", L"MIG Bank"},
    built_in_row{L"WeBank", L"WeBank"},
    built_in_row{L"AvaTrade", L"AvaTrade"},
    built_in_row{L"AMPTTNet", L"AMPTTNet"},
    built_in_row{L"OANDA", L"OANDA"},
    // Deliberate: plug-in and feed spell the name differently, and users' tables have both.
    built_in_row{L"IWBank Quick Trade", L"IWBank QuickTrade"},
    built_in_row{L"Rithmic Paper Trading", L"Rithmic 01"},
    built_in_row{L"ZenFire Local Sim", L"Zen-Fire"},
    built_in_row{L"Rithmic Local Sim", L"Rithmic 01"},
    built_in_row{L"Rithmic+", L"Rithmic 01"},
    built_in_row{L"Avanza", L"TradeNode"},
    built_in_row{L"CQG-FIX", L"CQG"},
    built_in_row{L"TTNet", L"AMPTTNet"},
};

// Room for one name or text of a row, terminator included.
using row_buffer = std::array<wchar_t, 255>;

// ERROR_INVALID_DATA for what is no text or has no end in the buffer, which is then left empty.
LONG read_text(const platform::registry_key& key, const wchar_t* name, row_buffer& text) {
    DWORD type = REG_NONE;
    DWORD bytes = sizeof(text);
    LONG result = key.QueryValue(name, type, reinterpret_cast<BYTE*>(text.data()), bytes);
    if (result == ERROR_SUCCESS) {
        const auto end = text.begin() + bytes / sizeof(wchar_t);
        const bool is_text = type == REG_SZ || type == REG_EXPAND_SZ;
        if (!is_text || std::find(text.begin(), end, L'\0') == end) {
            result = ERROR_INVALID_DATA;
        }
    }
    if (result != ERROR_SUCCESS) {
        text.fill(L'\0');
    }
    return result;
}

LONG read_row(const platform::registry_key& key, DWORD index, row_buffer& plugin, row_buffer& feed) {
    auto length = static_cast<DWORD>(plugin.size());
    const LONG result = key.EnumValue(index, plugin.data(), length);
    if (result != ERROR_SUCCESS) {
        plugin.fill(L'\0');
        return result;
    }
    return read_text(key, plugin.data(), feed);
}

void read_rows(const platform::registry_key& key, std::map<_bstr_t, _bstr_t>& feeds) {
    DWORD subkeys = 0;
    DWORD count = 0;
    LONG lRes = key.QueryInfo(subkeys, count);
    if (!BS_ASSERT(0L == lRes)) {
        count = 0;
    }
    for (DWORD index = 0; index < count; ++index) {
        row_buffer plugin{};
        row_buffer feed{};
        lRes = read_row(key, index, plugin, feed);
        BS_ASSERT(0L == lRes);
        // Deliberate: a row that could not be read is stored with what was read of it, so that it shows up
        // in the table that is written back.
        feeds[plugin.data()] = feed.data();
    }
}

void write_rows(const platform::registry_key& key, const std::map<_bstr_t, _bstr_t>& feeds) {
    for (const auto& [plugin, feed] : feeds) {
        const LONG Res = key.SetString(platform::text_of(plugin), platform::text_of(feed));
        BS_ASSERT(0L == Res);
    }
}

// The action's result; memory that runs out is thrown as everything else here is.
template <class Action>
auto com_errors_only(const Action& action) {
    try {
        return action();
    } catch (const std::bad_alloc&) {
        throw _com_error(E_OUTOFMEMORY);
    }
}

}  // namespace

ProfileVsDataFeedAssociations::ProfileVsDataFeedAssociations() {
    com_errors_only([&] {
        for (const built_in_row& row : built_in_rows) {
            m_feeds[row.plugin] = row.feed;
        }
        deserialize();
        serialize();
    });
}

_bstr_t ProfileVsDataFeedAssociations::context() const {
    return com_errors_only([] {
        const CString root = settings_root();
        if (root.empty()) {
            _com_issue_error(E_FAIL);
        }
        return platform::text_argument(root + L"\\Plugin vs DataFeed");
    });
}

void ProfileVsDataFeedAssociations::deserialize() {
    com_errors_only([&] {
        platform::registry_key key;
        if (key.Open(HKEY_CURRENT_USER, platform::text_of(context()), KEY_READ | KEY_WRITE) ==
            ERROR_SUCCESS) {
            read_rows(key, m_feeds);
        }
    });
}

void ProfileVsDataFeedAssociations::serialize() const {
    com_errors_only([&] {
        platform::registry_key key;
        const LONG created =
            key.Create(HKEY_CURRENT_USER, platform::text_of(context()), KEY_READ | KEY_WRITE);
        if (BS_ASSERT_TEXT(created == ERROR_SUCCESS,
                           "key.Create(HKEY_CURRENT_USER, context()) == ERROR_SUCCESS")) {
            write_rows(key, m_feeds);
        }
    });
}

_bstr_t ProfileVsDataFeedAssociations::DetectDataFeedByPluginName(const _bstr_t& plugin) const {
    const auto row = m_feeds.find(plugin);
    return row != m_feeds.end() ? row->second : _bstr_t();
}

bool ProfileVsDataFeedAssociations::HasPluginName(const _bstr_t& plugin) const {
    return std::ranges::any_of(m_feeds, [&](const auto& row) { return row.first == plugin; });
}

void accept_missing_root() {
    try {
        throw;
    } catch (const _com_error& error) {
        if (error.Error() != E_FAIL) {
            throw;
        }
        static std::atomic_flag reported;
        if (!reported.test_and_set()) {
            BugSlayerUtil::assertion(BS_HERE, "!root.empty()", error.Error());
        }
    }
}

}  // namespace Unicomp::details
