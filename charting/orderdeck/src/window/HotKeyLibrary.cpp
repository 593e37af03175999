#include "charting/orderdeck/src/window/HotKeyLibrary.h"

#include "platform/module.h"

namespace hotkeys {

namespace {

template <class Function>
bool find(HMODULE library, const char* name, Function*& out) noexcept {
    out = reinterpret_cast<Function*>(platform::find_export(library, name));
    return out != nullptr;
}

}  // namespace

CHotKeyLibrary::CHotKeyLibrary(const CString& name) noexcept {
    const HMODULE library = platform::load_library(name);
    if (library == nullptr) {
        return;
    }
    const bool complete = find(library, "HKHandler_Construct", m_construct) &&
                          find(library, "HKHandler_Destruct", m_destruct) &&
                          find(library, "HKHandler_GetCommands", m_get_commands) &&
                          find(library, "CommandsMap_get_key", m_get_key);
    if (!complete) {
        m_construct = nullptr;
        m_destruct = nullptr;
        m_get_commands = nullptr;
        m_get_key = nullptr;
    }
}

const CHotKeyLibrary& CHotKeyLibrary::installed() {
    static const CHotKeyLibrary library(L"HotKeyServices.dll");
    return library;
}

}  // namespace hotkeys
