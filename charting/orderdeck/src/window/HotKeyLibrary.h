// The host's hot key library, which may be missing.
#pragma once

#include <HotKeyServices.h>

#include "platform/text.h"

namespace hotkeys {

class CHotKeyLibrary {
public:
    // Loads the library; it stays loaded. A file name is looked for in the folders of the program and of
    // the system only, see platform/module.h. Without the library, or when it lacks an export, every
    // function is null. Throws nothing.
    explicit CHotKeyLibrary(const CString& name) noexcept;

    // The host's library, looked for once in a process. Any thread.
    static const CHotKeyLibrary& installed();

    // All functions are there.
    bool is_usable() const { return m_get_key != nullptr; }

    HKHandler_Construct* m_construct = nullptr;
    HKHandler_Destruct* m_destruct = nullptr;
    HKHandler_GetCommands* m_get_commands = nullptr;
    CommandsMap_get_key* m_get_key = nullptr;
};

}  // namespace hotkeys
