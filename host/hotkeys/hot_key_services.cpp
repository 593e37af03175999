// The keys of the running application, for itself and for the order bar in it.
#include "hotkeys/hot_key_services.h"

#include <HotKeyServices.h>

#include <exception>
#include <filesystem>
#include <fstream>

#include "com/text.h"
#include "hotkeys/hot_key_table.h"

namespace {

host::hot_key_table& table() {
    static host::hot_key_table one;
    return one;
}

bool load(const std::filesystem::path& path, void (*complain)(void*, const char*), void* context) {
    if (!std::filesystem::exists(path)) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << host::default_hot_keys();
    }
    std::ifstream lines(path, std::ios::binary);
    if (!lines) {
        return false;
    }
    for (const std::string& problem : table().read(lines)) {
        complain(context, problem.c_str());
    }
    return true;
}

}  // namespace

extern "C" {

std::int32_t HotKeyServices_Load(const wchar_t* path, void (*complain)(void* context, const char* text),
                                 void* context) {
    try {
        return load(path, complain, context) ? 1 : 0;
    } catch (const std::exception&) {
        return 0;
    }
}

const char* HotKeyServices_CommandOf(std::uint32_t key) {
    const std::string* found = table().command_of(key);
    return found == nullptr ? nullptr : found->c_str();
}

std::uint32_t HotKeyServices_KeyOf(const char* command) {
    return table().key_of(command).value_or(0);
}

std::int32_t HKHandler_Construct(hotkeys::handler_room* handler) {
    handler->words[0] = &table();
    return 1;
}

void HKHandler_Destruct(hotkeys::handler_room*) {}

const hotkeys::commands* HKHandler_GetCommands(hotkeys::handler_room* handler) {
    return static_cast<const hotkeys::commands*>(handler->words[0]);
}

std::int32_t CommandsMap_get_key(const hotkeys::commands*, const hotkeys::command_record* command,
                                 std::uint32_t* key) {
    if (command->kind != host::trading_commands) {
        return 0;
    }
    try {
        const auto found = table().key_of(host::to_utf8(command->text));
        *key = found.value_or(0);
        return found ? 1 : 0;
    } catch (const std::exception&) {
        return 0;
    }
}
}
