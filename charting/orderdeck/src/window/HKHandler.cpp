#include "charting/orderdeck/src/window/HKHandler.h"

namespace hotkeys {

bool CommandsMap::get_key(const cmd_id& command, DWORD& key) const noexcept {
    if (m_all == nullptr) {
        return false;
    }
    const command_record record{command.kind, command.text.c_str(), command.reference.get(), nullptr};
    std::uint32_t found = 0;
    if (m_library.m_get_key(m_all, &record, &found) == 0) {
        return false;
    }
    key = found;
    return true;
}

HKHandler::HKHandler(const CHotKeyLibrary& library) noexcept
    : m_library(library), m_made(library.is_usable() && library.m_construct(&m_room) != 0) {}

HKHandler::~HKHandler() {
    if (m_made) {
        m_library.m_destruct(&m_room);
    }
}

CommandsMap HKHandler::GetCommands() noexcept {
    return {m_library, m_made ? m_library.m_get_commands(&m_room) : nullptr};
}

}  // namespace hotkeys
