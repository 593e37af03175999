#include "tests/monkey/logic_subject.h"

#include <algorithm>
#include <limits>

#include "charting/orderdeck/src/root/GlobalData.h"
#include "tests/monkey/logic_model.h"
#include "tests/support/field_sight.h"

namespace monkey {

using OV_OrderDeck::CRowSight;
using OV_OrderDeck::EPressSource;
using OV_OrderDeck::IAskBidCtrl;
using OV_OrderDeck::IPressedButton;
using OV_OrderDeck::ISymbolCtrl;
using OV_OrderDeck::ITab;
using OV_OrderDeck::IUnifyControl;
using OV_OrderDeck::OD_UpdateEntity;
using OV_OrderDeck::SShownItem;

namespace {

boost::shared_ptr<IUnifyControl> field_of(ITab& tab, bit field) {
    return tab.get_Control(static_cast<OD_UpdateEntity>(field));
}

int profile_of(ITab& tab) {
    const CString id = tab.get_Profile()->get_OuterID();
    const auto& all = profiles();
    return static_cast<int>(
        std::find_if(all.begin(), all.end(), [&](const profile_names& each) { return each.outer_id == id; }) -
        all.begin());
}

std::string items_of(IUnifyControl& field) {
    std::string items;
    for (LONG i = 0; i < field.get_Count(); ++i) {
        CString text;
        const LONG key = field.get_Item(i, &text);
        items += std::to_string(key) + "=" + test::narrow(text) + " ";
    }
    return items + "selected " + std::to_string(field.get_SelectedItem(nullptr));
}

std::string range_of(IUnifyControl& field) {
    double low = 0.0;
    double high = 0.0;
    field.get_ValueRange(&low, &high);
    std::string text = " from " + test::number_text(low) + " to " + test::number_text(high);
    if (low >= std::numeric_limits<double>::epsilon()) {
        LONG first = 0;
        LONG last = 0;
        field.get_SpinRange(&first, &last);
        text += " spin " + std::to_string(first) + " to " + std::to_string(last);
    }
    return text;
}

std::string value_of(IUnifyControl& field, bit its) {
    if (its == type_bit || its == account_bit || its == time_bit) {
        return items_of(field);
    }
    if (its == quotes_bit) {
        auto& both = dynamic_cast<IAskBidCtrl&>(field);
        return test::number_text(both.get_Bid()) + " " + test::number_text(both.get_Ask());
    }
    const _variant_t value = field.get_Value();
    if (its == date_bit) {
        return test::number_text(V_DATE(&value));
    }
    const std::string text = test::narrow(platform::text_of(V_BSTR(&value)));
    return its == first_price_bit || its == second_price_bit ? text + range_of(field) : text;
}

std::string line_of(ITab& tab, bit its) {
    const auto field = field_of(tab, its);
    return std::string(name_of(its)) + ": " + value_of(*field, its) +
           (field->get_Enabled() ? ", enabled" : ", disabled") +
           (field->get_Hidden() ? ", hidden" : ", shown") + (field->IsEmpty() ? ", empty" : "");
}

_variant_t int_of(int value) {
    _variant_t result;
    V_VT(&result) = VT_INT;
    V_INT(&result) = value;
    return result;
}

std::vector<LONG> keys_of(IUnifyControl& field) {
    std::vector<LONG> keys;
    keys.reserve(static_cast<std::size_t>(field.get_Count()));
    for (LONG i = 0; i < field.get_Count(); ++i) {
        keys.push_back(field.get_Item(i, nullptr));
    }
    return keys;
}

}  // namespace

logic_subject::logic_subject(bool unruly) {
    m_factory.host = m_host.host;
    m_factory.window = m_host.desktop.make_window();
    test::the_bar_factory = &m_factory;
    m_host.tabs = [this]() -> const OV_OrderDeck::tab_infos& { return bar().get_TabInfos(); };
    m_host.made = [this] { bar().record_updates = true; };
    m_frame = m_host.desktop.make_window(L"host");
    m_host.start(m_frame);
    m_host.fill();
    m_host.made();
    if (unruly) {
        m_host.be_unruly([this](const action& done) { act_upon(done); });
    }
}

logic_subject::~logic_subject() {
    m_host.root->Destroy();
    test::the_bar_factory = nullptr;
}

outcome logic_subject::perform(const action& done) {
    m_host.prepare(done);
    HRESULT hr = S_OK;
    if (done.what == act::switch_tab) {
        show_tab(done.who);
    } else if (done.what == act::restart) {
        hr = m_host.restart(done, m_frame);
    } else {
        hr = act_upon(done);
    }
    outcome result = m_host.take();
    result.error = error_text(hr);
    return result;
}

HRESULT logic_subject::act_upon(const action& done) {
    if (done.what > act::switch_tab) {
        return m_host.perform(done);
    }
    const auto tab = bar().get_CurTab();
    if (!tab) {
        return S_OK;
    }
    return done.what == act::profile_menu ? profile_menu(*tab, done.which)
                                          : code_of([&] { user(*tab, done); });
}

void logic_subject::show_tab(int who) {
    const OV_OrderDeck::tab_infos& tabs = bar().get_TabInfos();
    if (!tabs.empty()) {
        bar().selected = std::next(tabs.begin(), who % static_cast<int>(tabs.size()))->first;
    }
}

// The commands that the bar's own menus have.
HRESULT logic_subject::profile_menu(ITab& tab, int which) {
    OV_OrderDeck::CGlobalData global;
    std::vector<com_ptr<IOD_ProfileCmd>> usable;
    std::string lines = "menu:";
    for (const LONG id : {10, 11, 15}) {
        auto command =
            platform::query<IOD_ProfileCmd>(global->create_command(id, com_ptr(tab.get_Profile())));
        _bstr_t name;
        VARIANT_BOOL enabled = VARIANT_FALSE;
        command->get_Name(name.GetAddress());
        command->get_Enabled(&enabled);
        lines += " " + std::to_string(id) + "=" + test::narrow(platform::text_of(name)) +
                 (enabled == VARIANT_TRUE ? "" : " grey");
        usable.push_back(enabled == VARIANT_TRUE ? command : nullptr);
    }
    m_host.host.note(lines);
    const auto chosen = static_cast<std::size_t>(which % 5);
    return chosen < usable.size() && usable[chosen] ? usable[chosen]->Execute() : S_OK;
}

void logic_subject::user(ITab& tab, const action& done) {
    auto& quotes = dynamic_cast<IAskBidCtrl&>(*field_of(tab, quotes_bit));
    switch (done.what) {
        case act::select_type:
        case act::select_time:
        case act::select_account:
            select(tab, done);
            return;
        case act::spin_first_price:
            field_of(tab, first_price_bit)->put_Value(int_of(pick(spin_steps(), done.which)));
            return;
        case act::spin_second_price:
            field_of(tab, second_price_bit)->put_Value(int_of(pick(spin_steps(), done.which)));
            return;
        case act::pick_ask:
            quotes.put_Value(_variant_t(hit_price(quotes.get_Ask())));
            return;
        case act::pick_bid:
            quotes.put_Value(_variant_t(hit_price(quotes.get_Bid())));
            return;
        case act::buy:
        case act::sell:
            press(tab, done);
            return;
        case act::type_and_press:
            field_of(tab, second_price_bit)->put_Value(_variant_t(pick(price_texts(), done.which).c_str()));
            press(tab, done);
            return;
        case act::pick_date:
            field_of(tab, date_bit)->put_Value(_variant_t(pick(dates(), done.which), VT_DATE));
            return;
        default:
            type(tab, done);
            return;
    }
}

// Who presses sees what the fields hold, now and then with an item that is stale or wild.
void logic_subject::press(ITab& tab, const action& done) {
    CRowSight sight = test::sight_of_fields(tab);
    seen_row seen;
    seen.profile = profile_of(tab);
    seen.day = sight.day;
    for (const bit field : all_bits()) {
        const SShownItem& item = sight[static_cast<OD_UpdateEntity>(field)];
        seen.items[field] = {item.text, item.shown, item.enabled};
    }
    alter(seen, done.which);
    sight.day = seen.day;
    sight.source = static_cast<EPressSource>(1 + done.who % 3);
    for (const auto& [field, item] : seen.items) {
        sight[static_cast<OD_UpdateEntity>(field)].text = item.text;
    }
    const auto button = field_of(tab, presses_buy(done) ? buy_bit : sell_bit);
    const witness::watched watched(m_host.door, seen);
    dynamic_cast<IPressedButton&>(*button).Press(sight);
}

void logic_subject::select(ITab& tab, const action& done) {
    if (done.what == act::select_type) {
        field_of(tab, type_bit)->Select(odd_type(done.which));
        return;
    }
    const auto field = field_of(tab, done.what == act::select_time ? time_bit : account_bit);
    field->Select(odd_key(keys_of(*field), done.which));
}

void logic_subject::type(ITab& tab, const action& done) {
    auto& symbol = dynamic_cast<ISymbolCtrl&>(*field_of(tab, symbol_bit));
    switch (done.what) {
        case act::type_quantity:
            field_of(tab, quantity_bit)
                ->put_Value(_variant_t(pick(quantity_texts(), done.which).text.c_str()));
            return;
        case act::type_first_price:
            field_of(tab, first_price_bit)->put_Value(_variant_t(pick(price_texts(), done.which).c_str()));
            return;
        case act::type_second_price:
            field_of(tab, second_price_bit)->put_Value(_variant_t(pick(price_texts(), done.which).c_str()));
            return;
        case act::type_symbol:
            symbol.put_Value(_variant_t(pick(symbol_texts(), done.which).c_str()));
            return;
        case act::leave_symbol:
            symbol.LookupByText(pick(symbol_texts(), done.which), false, true);
            return;
        case act::symbol_dialog:
            symbol.LookupWithDialog();
            return;
        default:
            return;
    }
}

view logic_subject::seen(const view&) {
    view lines = m_host.status();
    for (const auto& [id, tab] : bar().get_TabInfos()) {
        const std::string head = std::to_string(id) + " ";
        CString name;
        tab->get_Name(name);
        lines.push_back(head + test::narrow(name));
        for (const bit field : all_bits()) {
            lines.push_back(head + line_of(*tab, field));
        }
        const auto props = boost::dynamic_pointer_cast<OV_OrderDeck::ITradeInfoProperties>(tab);
        lines.push_back(head + "account of the driver: " + test::narrow(props->get_Account()));
    }
    // Looking leaves no trace behind that would be held against the next action.
    m_host.forget();
    return lines;
}

}  // namespace monkey
