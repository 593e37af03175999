// OrderDeckHost.exe: a small trading application around the order bar.
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "com/text.h"
#include "window/application.h"

namespace {

std::vector<std::string> command_line() {
    int count = 0;
    wchar_t** raw = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int index = 1; index < count; ++index) {
        arguments.push_back(host::to_utf8(std::wstring_view(raw[index])));
    }
    LocalFree(raw);
    return arguments;
}

int run() {
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
    InitCommonControlsEx(&controls);
    host::application application(host::parse_options(command_line()));
    return application.run();
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    if (FAILED(OleInitialize(nullptr))) {
        return 1;
    }
    int result = 1;
    try {
        result = run();
    } catch (const std::exception& error) {
        MessageBoxW(nullptr, host::to_wide(error.what()).c_str(), L"OrderDeck Host", MB_ICONERROR);
    }
    OleUninitialize();
    return result;
}
