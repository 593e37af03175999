#include "charting/orderdeck/src/window/AskBidButtonImpl.h"
#include "charting/orderdeck/src/window/LadderColours.h"
#include "tests/gallery/gallery.h"

namespace {

std::vector<gallery::face> row_faces() {
    std::vector<gallery::face> faces;
    for (const COLORREF ground : OV_OrderDeck::ladder_colours) {
        faces.push_back({WTLControls::readable_text(GetSysColor(COLOR_BTNTEXT), ground, ground), ground});
    }
    return faces;
}

gallery::entry::maker range_bar(LONG code, double ask, double bid) {
    return [=](gallery::stage& on, const std::string& state) {
        const HWND window = on.put(L"BUTTON", L"", BS_PUSHBUTTON, {100, 20});
        const auto made = std::make_shared<OV_OrderDeck::AskBidButtonImpl>();
        made->SubclassWindow(window);
        made->SetFormat(code, 1);
        made->SetQuotes(ask, bid);
        made->Redraw();
        made->OnDropDownClick();
        const HWND bar = made->get_RangeBar().get_Hwnd();
        if (state == "hot") {
            SendMessageW(bar, WM_MOUSEMOVE, 0, MAKELPARAM(5, 50));
        } else if (state == "scrolled") {
            SendMessageW(bar, WM_COMMAND, 10001, 0);
        } else if (state == "pressed") {
            SendMessageW(GetDlgItem(bar, 10001), BM_SETSTATE, TRUE, 0);
        }
        return gallery::shown{bar, made, row_faces()};
    };
}

const gallery::entry decimals{
    "range_bar", {{"normal"}, {"hot"}, {"scrolled"}, {"pressed"}}, range_bar(2, 101.5, 101.25)};
const gallery::entry fractions{"range_bar_of_fractions", {{"normal"}}, range_bar('y', 117.40625, 117.0)};

}  // namespace
