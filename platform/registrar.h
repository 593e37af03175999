// Registration scripts of COM servers.
#pragma once

#include <map>

#include "platform/registry.h"
#include "platform/text.h"

namespace platform {

// Runs a registration script:
//
//     HKCR
//     {
//         NoRemove AppID
//         {
//             ForceRemove '%APPID%' = s 'Name'
//             'Server.DLL'
//             {
//                 val AppID = s '%APPID%'
//             }
//         }
//     }
//
// A key may have a default value and a body; "val" sets a named value; "s" says that the value is text.
// Names and values that hold blanks or braces stand in single quotes. %NAME% is replaced. Registering with
// ForceRemove starts from an empty key. Unregistering deletes the keys of the script that are left without
// subkeys, with ForceRemove the whole key; a NoRemove key goes only when nothing at all is left in it.
//
// HKCR stands for the classes of the current user, for which no rights are needed, or for those of the
// machine.
class registrar {
public:
    enum class scope { user, machine };

    explicit registrar(scope where = scope::user) : m_scope(where) {}

    void AddReplacement(const CString& name, const CString& value) { m_replacements[name] = value; }

    // DISP_E_EXCEPTION for a script that can't be read, with nothing changed; otherwise the failure of
    // the registry as HRESULT. Any thread.
    HRESULT Register(const CString& script) const noexcept;
    HRESULT Unregister(const CString& script) const noexcept;

private:
    scope m_scope;
    std::map<CString, CString> m_replacements;
};

}  // namespace platform
