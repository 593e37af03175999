// A hot key library that knows the keys that it is told.
#include "tests/hot_keys_library/told_hot_keys.h"

#include <HotKeyServices.h>

#include <map>
#include <utility>

namespace {

class told_library final : public told_hot_keys {
public:
    void clear() noexcept override { *this = {}; }
    void bind(std::uint32_t kind, const wchar_t* text, std::uint32_t key) noexcept override {
        keys[{kind, text}] = key;
    }
    void refuse_handlers() noexcept override { handlers = false; }
    void refuse_commands() noexcept override { commands = false; }
    const std::vector<std::wstring>& calls() const noexcept override { return called; }

    std::map<std::pair<std::uint32_t, std::wstring>, std::uint32_t> keys;
    std::vector<std::wstring> called;
    bool handlers = true;
    bool commands = true;
};

told_library the_library;

}  // namespace

extern "C" {

std::int32_t HKHandler_Construct(hotkeys::handler_room* handler) {
    the_library.called.emplace_back(L"construct");
    handler->words[0] = &the_library;
    return the_library.handlers ? 1 : 0;
}

void HKHandler_Destruct(hotkeys::handler_room*) {
    the_library.called.emplace_back(L"destruct");
}

const hotkeys::commands* HKHandler_GetCommands(hotkeys::handler_room* handler) {
    the_library.called.emplace_back(L"commands");
    return the_library.commands ? static_cast<const hotkeys::commands*>(handler->words[0]) : nullptr;
}

std::int32_t CommandsMap_get_key(const hotkeys::commands*, const hotkeys::command_record* command,
                                 std::uint32_t* key) {
    the_library.called.push_back(L"get_key " + std::to_wstring(command->kind) + L" " + command->text);
    const auto found = the_library.keys.find({command->kind, command->text});
    if (found == the_library.keys.end() || command->reference != nullptr || command->counter != nullptr) {
        return 0;
    }
    *key = found->second;
    return 1;
}

told_hot_keys* HK_Told() {
    return &the_library;
}
}
