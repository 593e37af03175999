// The fake host round a bar, and the root of the component in it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "charting/orderdeck/interface/ITradeInfoProperties.h"
#include "charting/orderdeck/src/root/OrderDeckObj.h"
#include "platform/clock.h"
#include "tests/monkey/action.h"
#include "tests/monkey/expectation.h"
#include "tests/monkey/witness.h"
#include "tests/monkey/world.h"
#include "tests/support/diagnostics_recorder.h"
#include "tests/support/fake_host.h"
#include "tests/support/number_locale_scope.h"
#include "tests/support/recording_desktop.h"

namespace monkey {

// Answers as the world tells, and with the dialog's answer to an empty text.
class world_lookup : public test::FakeLookup {
public:
    explicit world_lookup(test::fake_host host) : FakeLookup(host), m_host(std::move(host)) {}

    lookup_answer dialog = dialog_answers().front();

    STDMETHODIMP GetSymbolInfo(BSTR sName, LONG dwFlags, OD_SSymbolInfo* pSelected, OD_SSymbolInfo* pVal,
                               OD_LookupResult* pRes) override;

private:
    test::fake_host m_host;
};

// Refuses the question that it was told to refuse.
class world_confirmer : public test::FakeDisconnectConfirmer {
public:
    using FakeDisconnectConfirmer::FakeDisconnectConfirmer;

    // 1 for the next one, 0 for none.
    int refused = 0;
    // What goes on while the question is open.
    std::function<void()> meanwhile;

    STDMETHODIMP Confirm(LONG hOwner, ITC_TradingProfile* pProfile) override;
};

class world_clock final : public platform::clock {
public:
    // Quarters of a day since 2030-05-15 06:00, which is 47618.25 as an OLE date.
    int quarters = 0;
    DWORD ticks = 0;

    SYSTEMTIME local_time() override;
    DWORD tick_count() override { return ticks; }
    double milliseconds() override { return 0.0; }

private:
    platform::port<platform::clock>::replacement m_replacement{*this};
};

// The user's windows are real, where there are any; what he is asked is answered by the test.
class world_desktop final : public test::recording_desktop {
public:
    bool is_window(HWND window) override {
        return recording_desktop::is_window(window) ||
               platform::port<platform::desktop>::system().is_window(window);
    }
};

class host_side {
public:
    host_side();
    ~host_side();
    host_side(const host_side&) = delete;
    host_side& operator=(const host_side&) = delete;

    // Makes the bar below a window; gives its window. Then lets it fill itself with the first two profiles.
    HWND start(HWND parent);
    void fill();
    // What an action of the host comes to; the user's actions only have their answers laid ready.
    HRESULT perform(const action& done);
    void prepare(const action& done);
    // Asks for the host's menu of commands and runs one of them.
    HRESULT host_menu(int which);
    // Closes the bar, unless it is lost without, and makes another one.
    HRESULT restart(const action& done, HWND parent);
    HWND bar() const { return m_bar; }
    // What happened since the last call. Forgets it.
    outcome take();
    // What the root tells of its state.
    view status() const;
    void forget();

    test::fake_host host;
    witness door;
    diagnostics_recorder reports;
    world_desktop desktop;
    com_ptr<OV_OrderDeck::COrderDeckObj> root;
    // The tabs of the bar, which the root keeps to itself; none where they can't be had.
    std::function<const OV_OrderDeck::tab_infos&()> tabs;
    // Lets the host do what it was told to inside the calls of the bar; done does it.
    void be_unruly(std::function<void(const action&)> done);
    // A bar was made, and nothing was taken up yet.
    std::function<void()> made;

private:
    boost::shared_ptr<OV_OrderDeck::ITradeInfoProperties> tab_of(const test::FakeProfile& profile);
    HRESULT profile_event(const action& done);
    HRESULT collection_event(const action& done);
    HRESULT drive(const action& done);
    HRESULT list(const com_ptr<test::FakeProfile>& profile, bool with_null);
    void unlist(const com_ptr<test::FakeProfile>& profile);
    void break_call(broken what);
    void agree(bool agrees);
    void interrupt();
    void meddle(const char* operation);
    void listen_to_calls();
    void plant(const action& done) const;
    std::string named(std::string call) const;
    test::FakeProfiles& collection() { return *m_center->profiles; }

    test::com_apartment m_apartment;
    number_locale_scope m_conventions{english()};
    world_clock m_clock;
    com_ptr<test::FakeTradingCenter> m_center;
    com_ptr<world_lookup> m_lookup;
    com_ptr<world_confirmer> m_confirmer;
    com_ptr<test::FakeOnCommand> m_on_command;
    test::fake_class m_center_class;
    test::fake_class m_lookup_class;
    test::fake_class m_confirmer_class;
    test::fake_class m_mapping_class;
    test::fake_class m_editor_class;
    // By place in the world's list, whether the collection has them or not.
    std::vector<com_ptr<test::FakeProfile>> m_profiles;
    std::vector<com_ptr<world_trading>> m_trading;
    HWND m_frame = nullptr;
    HWND m_bar = nullptr;
    std::optional<action> m_interrupt;
    std::optional<action> m_meddling;
    std::function<void(const action&)> m_unruly;
};

// The component's own key of the user's registry.
CString remembered_path();

// "0x80004005", empty for S_OK.
std::string error_text(HRESULT hr);
// Runs what may raise; gives the code of what it raised.
template <class Action>
HRESULT code_of(Action&& action) {
    try {
        action();
    } catch (const _com_error& error) {
        return error.Error();
    } catch (const std::exception&) {
        return E_UNEXPECTED;
    }
    return S_OK;
}

}  // namespace monkey
