#pragma once

#include "OrderDeck.h"
#include "tests/profile/profile_fixture.h"

namespace test {

// The shared data as a running bar has it, and the host's dialogs.
class command_test : public profile_test {
protected:
    command_test() {
        global->put_Hwnd(bar);
        global->put_OnCommand(sink.get());
        global->put_Profiles(profiles.get());
        desktop.set_main_frame(frame);
    }

    com_ptr<IOD_ProfileCmd> command(LONG id) {
        const bool of_profile = id == 10 || id == 11 || id == 15;
        const auto made = of_profile ? global->create_command(id, wrap) : global->create_command(id);
        return platform::query<IOD_ProfileCmd>(made);
    }

    static CString name_of(IOD_ProfileCmd& line) {
        _bstr_t name;
        EXPECT_EQ(line.get_Name(name.GetAddress()), S_OK);
        return platform::text_of(name);
    }

    static std::string number(HWND window) { return std::to_string(reinterpret_cast<ULONG_PTR>(window)); }

    const std::string lock_call = "OnCommand.Execute(4, empty)";
    std::string unlock_call() const { return "OnCommand.Execute(5, " + number(bar) + ")"; }

    OV_OrderDeck::CGlobalData global;
    HWND bar = desktop.make_window();
    HWND frame = desktop.make_window();
    com_ptr<FakeOnCommand> sink = platform::make_com<FakeOnCommand>(host);
    com_ptr<FakeProfiles> profiles = platform::make_com<FakeProfiles>(host);
};

}  // namespace test
