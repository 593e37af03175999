#include "charting/orderdeck/src/window/MenuHotKeys.h"

#include "unicomp/Simples/interface/HotKeyText.h"

namespace OV_OrderDeck {

namespace {

using hotkeys::CommandsMap;

constexpr DWORD trading_commands = 10;
constexpr UINT symbol_mapping_item = 15;
constexpr UINT automation_item = 16;

const CommandsMap::cmd_id& empty_command() {
    static const CommandsMap::cmd_id empty;
    return empty;
}

}  // namespace

CommandsMap::cmd_id CommandIdFromMenuId(UINT id) {
    switch (id) {
        case symbol_mapping_item:
            return {trading_commands, L"Show Symbol Mapping", nullptr};
        case automation_item:
            return {trading_commands, L"Automate Order Execution", nullptr};
        default:
            return empty_command();
    }
}

bool GetMenuHotKeyText(UINT id, CString& text, const command_mapper& mapper,
                       const hotkeys::CHotKeyLibrary& library) {
    hotkeys::HKHandler handler(library);
    const CommandsMap::cmd_id command = mapper(id);
    DWORD key = 0;
    return handler.GetCommands().get_key(command, key) && Unicomp::HotKeyToText(key, text);
}

CString WithHotKey(const CString& item, const CString& key) {
    CString text = item.substr(0, item.find(L'\t'));
    if (!key.empty()) {
        text += L'\t' + key;
    }
    return text;
}

}  // namespace OV_OrderDeck
