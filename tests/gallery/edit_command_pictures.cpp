#include "tests/gallery/gallery.h"
#include "tests/support/idle_command_edit.h"

namespace {

const gallery::entry entry{"command_edit",
                           {{"normal"}, {"empty", false}, {"focused"}, {"disabled", false}},
                           [](gallery::stage& on, const std::string& state) {
                               const HWND window =
                                   on.put(L"EDIT", state == "empty" ? L"" : L"台積電 2330",
                                          WS_BORDER | WS_CLIPCHILDREN | ES_AUTOHSCROLL, {136, 24});
                               const auto made = std::make_shared<idle_command_edit>(window);
                               if (state == "focused") {
                                   SetFocus(window);
                               }
                               EnableWindow(window, state != "disabled");
                               return gallery::shown{window, made, {}};
                           }};

}  // namespace
