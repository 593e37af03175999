// The host's hot keys, for the length of one look.
#pragma once

#include <boost/shared_ptr.hpp>

#include "charting/orderdeck/src/window/HotKeyLibrary.h"

namespace hotkeys {

// All commands of the host. Lives no longer than the handler that gave it.
class CommandsMap {
public:
    // Names one command.
    struct cmd_id {
        DWORD kind = 0;
        CString text;
        boost::shared_ptr<const void> reference;
        bool operator==(const cmd_id&) const = default;
    };

    // No commands are null.
    CommandsMap(const CHotKeyLibrary& library, const commands* all) : m_library(library), m_all(all) {}

    // False, with the key untouched, when none is bound.
    bool get_key(const cmd_id& command, DWORD& key) const noexcept;

private:
    const CHotKeyLibrary& m_library;
    const commands* m_all;
};

// On the stack, on the window's thread. Without the library it knows of no command.
class HKHandler {
public:
    explicit HKHandler(const CHotKeyLibrary& library) noexcept;
    ~HKHandler();
    HKHandler(const HKHandler&) = delete;
    HKHandler& operator=(const HKHandler&) = delete;

    CommandsMap GetCommands() noexcept;

private:
    const CHotKeyLibrary& m_library;
    handler_room m_room{};
    bool m_made;
};

}  // namespace hotkeys
