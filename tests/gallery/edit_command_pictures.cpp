#include "tests/gallery/gallery.h"
#include "unicomp/wtlcontrols/EditCommand/EditCommand.h"

namespace {

class command_edit final : public WTLControls::IEditCommandSink2 {
public:
    explicit command_edit(HWND window) {
        m_edit.SubclassWindow(window);
        m_edit.CreateButton(203, 232);
    }
    void OnButtonPressed(LONG) override {}
    void OnEditSetFocus(LONG) override {}
    void OnEditEnd(LONG, bool) override {}
    void OnEditKillFocus(LONG) override {}

private:
    WTLControls::CEditCommandCtrlWnd2 m_edit{*this, 203};
};

const gallery::entry entry{"command_edit",
                           {{"normal"}, {"empty", false}, {"focused"}, {"disabled", false}},
                           [](gallery::stage& on, const std::string& state) {
                               const HWND window =
                                   on.put(L"EDIT", state == "empty" ? L"" : L"台積電 2330",
                                          WS_BORDER | WS_CLIPCHILDREN | ES_AUTOHSCROLL, {136, 24});
                               const auto made = std::make_shared<command_edit>(window);
                               if (state == "focused") {
                                   SetFocus(window);
                               }
                               EnableWindow(window, state != "disabled");
                               return gallery::shown{window, made, {}};
                           }};

}  // namespace
