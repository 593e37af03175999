#include "charting/orderdeck/src/root/GlobalData.h"

#include <new>

#include "charting/orderdeck/src/root/ProfileCommands.h"

namespace OV_OrderDeck {

namespace {

com_ptr<IUnknown> as_unknown(platform::com_root<IOD_ProfileCmd>& command) {
    return platform::query<IUnknown>(command.GetUnknown());
}

}  // namespace

template <class T>
com_ptr<T> CGlobalDataImpl::_create_command() {
    com_ptr<T> command(new (std::nothrow) platform::com_object<T>);
    if (!command) {
        BS_RAISE("", E_POINTER);
    }
    return command;
}

template <class T>
com_ptr<IUnknown> CGlobalDataImpl::_create_command_of(const com_ptr<CProfileWrap>& profile) {
    const com_ptr<T> command = _create_command<T>();
    command->m_pProfile = profile;
    return as_unknown(*command);
}

com_ptr<IUnknown> CGlobalDataImpl::create_command(LONG id, const com_ptr<CProfileWrap>& profile) {
    switch (id) {
        case eODC_ToggleConnect:
            return _create_command_of<CToggleProfConnectCmd>(profile);
        case eODC_EditProfile:
            return _create_command_of<CEditProfCmd>(profile);
        case eODC_SymbolMapping:
            return _create_command_of<CSymbolMappingCmd>(profile);
        default:
            return {};
    }
}

com_ptr<IUnknown> CGlobalDataImpl::create_command(LONG id) {
    switch (id) {
        case eODC_Separator:
            return as_unknown(*_create_command<CEmptyCmd>());
        case eODC_ProfileEditor:
            return as_unknown(*_create_command<CShowProfEditorCmd>());
        case eODC_CreateNewProfile: {
            const com_ptr<CCreateNewProfileCmd> command = _create_command<CCreateNewProfileCmd>();
            command->Initialize(m_pProfiles.get());
            return as_unknown(*command);
        }
        default:
            return {};
    }
}

}  // namespace OV_OrderDeck
