#include "charting/orderdeck/src/window/AskBidButtonImpl.h"
#include "tests/gallery/gallery.h"
#include "unicomp/wtlcontrols/buttonst/ButtonST.h"

namespace {

using namespace WTLControls;

constexpr DWORD everything = ButtonFlag::HotTracking | ButtonFlag::Gradient | ButtonFlag::Content;

const std::vector<gallery::state> states = {{"normal"},  {"default"}, {"hot"},
                                            {"pressed"}, {"focused"}, {"disabled", false}};

void bring_into(const std::string& state, HWND button) {
    if (state == "default") {
        SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    } else if (state == "hot") {
        SendMessageW(button, WM_MOUSEMOVE, 0, MAKELPARAM(4, 4));
    } else if (state == "pressed") {
        SendMessageW(button, BM_SETSTATE, TRUE, 0);
    } else if (state == "focused") {
        SendMessageW(GetParent(button), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
        SetFocus(button);
    } else if (state == "disabled") {
        EnableWindow(button, FALSE);
    }
}

std::vector<gallery::face> faces_of(const CButtonST& button) {
    const auto colours = CButtonSTRendererEx::get_TextColours(button.get_Picture());
    return {{colours.text, colours.top}, {colours.text, colours.bottom}};
}

template <class Button>
gallery::entry::maker trade_button(const wchar_t* text) {
    return [text](gallery::stage& on, const std::string& state) {
        const HWND window = on.put(L"BUTTON", text, BS_PUSHBUTTON | BS_MULTILINE, {66, 37});
        const auto made = std::make_shared<Button>();
        made->SubclassWindow(window);
        made->put_Flags(everything);
        bring_into(state, window);
        return gallery::shown{window, made, faces_of(*made)};
    };
}

gallery::entry::maker ask_bid_button(LONG mode, LONG code, double ask, double bid) {
    return [=](gallery::stage& on, const std::string& state) {
        const HWND window = on.put(L"BUTTON", L"", BS_PUSHBUTTON, {100, 20});
        const auto made = std::make_shared<OV_OrderDeck::AskBidButtonImpl>();
        made->SubclassWindow(window);
        made->put_Flags(everything);
        made->SetFormat(code, 1);
        made->SetQuotes(ask, bid);
        made->put_Mode(mode);
        bring_into(state, window);
        made->Redraw();
        return gallery::shown{window, made, faces_of(*made)};
    };
}

const gallery::entry buy{"buy_button", states, trade_button<CButtonSTForBuyAction>(L"買進 停限\n1,000")};
const gallery::entry sell{"sell_button", states, trade_button<CButtonSTForSellAction>(L"賣出 停限\n1,000")};
const gallery::entry ask{"ask_button", states, ask_bid_button(1, 2, 1234.25, 1234.0)};
const gallery::entry mid{"mid_button", {{"normal"}, {"pressed"}}, ask_bid_button(2, 2, 1234.5, 1234.0)};
const gallery::entry bid{"bid_button", {{"normal"}, {"pressed"}}, ask_bid_button(3, 'y', 117.40625, 117.0)};
const gallery::entry none{"no_quotes_button", {{"normal"}}, ask_bid_button(2, 2, 0.0, 0.0)};

}  // namespace
