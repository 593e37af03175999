#pragma once

#include "TradingCenter.h"
#include "charting/orderdeck/src/root/ProfileWrap.h"
#include "ovserver/ovSingleton/Singleton.h"
#include "platform/com_ptr.h"

namespace OV_OrderDeck {

// What every object of the component shares without passing it around. Set on the bar's thread.
class CGlobalDataImpl {
public:
    CGlobalDataImpl() = default;
    CGlobalDataImpl(const CGlobalDataImpl&) = delete;
    CGlobalDataImpl& operator=(const CGlobalDataImpl&) = delete;

    // The bar window.
    HWND get_Hwnd() const { return m_hWnd; }
    void put_Hwnd(HWND hWnd) { m_hWnd = hWnd; }

    // The host's command sink for SW::CUILocker; may be null.
    com_ptr<SW::IOnCommand> get_OnCommand() const { return m_pOnCommand; }
    void put_OnCommand(SW::IOnCommand* p) { put(m_pOnCommand, p); }

    // Both null before the tabs are first filled.
    com_ptr<ITC_TradingCenter> get_Center() const { return m_pCenter; }
    void put_Center(ITC_TradingCenter* p) { put(m_pCenter, p); }
    com_ptr<ITC_TradingProfileS> get_Profiles() const { return m_pProfiles; }
    void put_Profiles(ITC_TradingProfileS* p) { put(m_pProfiles, p); }

    // A command of one profile (ids of OD_Commands: eODC_ToggleConnect, eODC_EditProfile,
    // eODC_SymbolMapping) and one without (eODC_Separator, eODC_ProfileEditor,
    // eODC_CreateNewProfile). Null for any other id. Throw _com_error.
    com_ptr<IUnknown> create_command(LONG id, const com_ptr<CProfileWrap>& profile);
    com_ptr<IUnknown> create_command(LONG id);

private:
    template <class T>
    static void put(com_ptr<T>& target, T* value) {
        if (target.get() != value) {
            target = value;
        }
    }

    template <class T>
    static com_ptr<T> _create_command();
    template <class T>
    static com_ptr<IUnknown> _create_command_of(const com_ptr<CProfileWrap>& profile);

    HWND m_hWnd = nullptr;
    com_ptr<SW::IOnCommand> m_pOnCommand;
    com_ptr<ITC_TradingCenter> m_pCenter;
    com_ptr<ITC_TradingProfileS> m_pProfiles;
};

// How everybody reaches the shared data: `CGlobalData global; global->get_Hwnd();`. The data lives as
// long as one accessor does.
using CGlobalData = ov::CProcessSingletonAccessor<CGlobalDataImpl>;

}  // namespace OV_OrderDeck
