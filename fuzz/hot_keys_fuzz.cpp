// Hot keys: key numbers and menu texts that the host's library gives, and the reference host's file of keys.
#include <algorithm>
#include <cstring>
#include <sstream>

#include "charting/orderdeck/src/window/MenuHotKeys.h"
#include "fuzz/input.h"
#include "hotkeys/hot_key_table.h"
#include "unicomp/Simples/interface/HotKeyText.h"

namespace {

using fuzz::require;

CString before_tab(const CString& text) {
    return text.substr(0, text.find(L'\t'));
}

void check_key(std::uint32_t key) {
    CString text = L"untouched";
    if (Unicomp::HotKeyToText(key, text)) {
        require(text.find(L'\0') == CString::npos && text.find(L'\t') == CString::npos);
    }
    const std::string shown = host::key_text(key);
    if (const auto again = host::parse_key(shown)) {
        require(host::key_text(*again) == shown);
    }
}

void check_menu_text(const CString& item, const CString& key) {
    const CString shown = OV_OrderDeck::WithHotKey(item, key);
    require(before_tab(shown) == before_tab(item));
    require(key.empty() ? shown.find(L'\t') == CString::npos : shown == before_tab(item) + L'\t' + key);
    require(OV_OrderDeck::WithHotKey(shown, key) == shown);
}

void check_file(const std::string& content) {
    std::istringstream lines(content);
    host::hot_key_table table;
    const std::vector<std::string> problems = table.read(lines);
    for (const std::string& problem : problems) {
        require(problem.rfind("line ", 0) == 0);
    }
    for (std::uint32_t code = 'A'; code <= 'Z'; ++code) {
        if (const std::string* const command = table.command_of(code | host::key_control)) {
            require(table.key_of(*command) == (code | host::key_control));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t header = sizeof(std::uint32_t) + 1;
    if (size < header) {
        return 0;
    }
    std::uint32_t key = 0;
    std::memcpy(&key, data, sizeof(key));
    check_key(key);
    const fuzz::bytes rest = fuzz::bytes(data, size).subspan(header);
    const std::size_t cut = std::min<std::size_t>(data[header - 1], rest.size());
    check_menu_text(fuzz::text_of(rest.first(cut)), before_tab(fuzz::text_of(rest.subspan(cut))));
    check_file(std::string(rest.begin(), rest.end()));
    return 0;
}
