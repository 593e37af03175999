// The lines of a profile's menu. CGlobalDataImpl::create_command makes them.
#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/src/root/ProfileCommand.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"

namespace OV_OrderDeck {

// Connects or disconnects, by the last known state.
class CToggleProfConnectCmd : public CProfileCommand<CToggleProfConnectCmd>,
                              public CProfileCommandBase<CProfileWrap> {
    friend class CProfileCommand<CToggleProfConnectCmd>;

    HRESULT _execute();
    CString _get_name();
};

// Shows the settings of a disconnected profile, and a message for any other.
class CEditProfCmd : public CProfileCommand<CEditProfCmd>, public CProfileCommandBase<CProfileWrap> {
    friend class CProfileCommand<CEditProfCmd>;

    HRESULT _execute();
    CString _get_name();
    VARIANT_BOOL _get_enabled();
};

// A separator.
class CEmptyCmd : public CProfileCommand<CEmptyCmd> {
    friend class CProfileCommand<CEmptyCmd>;
};

// Opens the host's editor of profiles.
class CShowProfEditorCmd : public CProfileCommand<CShowProfEditorCmd> {
    friend class CProfileCommand<CShowProfEditorCmd>;

    HRESULT _execute();
    CString _get_name();
};

// Offers the host's plug-ins in a menu and adds a profile of the chosen one.
class CCreateNewProfileCmd : public CProfileCommand<CCreateNewProfileCmd>,
                             public CProfileCommandBase<ITC_TradingProfileS> {
public:
    // Throws _com_error (E_POINTER) for null.
    void Initialize(ITC_TradingProfileS* pProfiles);

private:
    friend class CProfileCommand<CCreateNewProfileCmd>;

    HRESULT _execute_ex(const VARIANT& vParam);
    std::vector<CString> _get_plugins();
    static UINT _choose(const std::vector<CString>& names, POINT at);
    void _add(const CString& name);
};

// Opens the host's symbol mapping for the profile.
class CSymbolMappingCmd : public CProfileCommand<CSymbolMappingCmd>,
                          public CProfileCommandBase<CProfileWrap> {
    friend class CProfileCommand<CSymbolMappingCmd>;

    HRESULT _execute();
    CString _get_name();
};

}  // namespace OV_OrderDeck
