// A ready tab and presses of its buttons by what a screen shows.
#pragma once

#include "tests/support/field_sight.h"
#include "tests/tab/tab_fixture.h"

namespace test {

class press_fixture : public tab_fixture {
protected:
    press_fixture() { make_ready_tab(); }

    void select(LONG category, LONG time_in_force = 1) {
        field(OV_OrderDeck::eODUE_OrderType).Select(category);
        field(OV_OrderDeck::eODUE_TimeInForce).Select(time_in_force);
        reset_record();
    }

    // The row shown as its fields stand.
    OV_OrderDeck::CRowSight sight() { return sight_of_fields(*tab); }

    OV_OrderDeck::row_differences press(const OV_OrderDeck::CRowSight& seen,
                                        OV_OrderDeck::OD_UpdateEntity button = OV_OrderDeck::eODUE_Buy) {
        auto& pressed = dynamic_cast<OV_OrderDeck::IPressedButton&>(field(button));
        return pressed.Press(seen);
    }

    // Presses Buy with one item shown as this text.
    OV_OrderDeck::row_differences press_showing(OV_OrderDeck::OD_UpdateEntity entity, const wchar_t* text) {
        OV_OrderDeck::CRowSight seen = sight();
        seen[entity].text = text;
        return press(seen);
    }

    int orders() const { return host.count("PlaceOrder"); }
    bool host_was_called() const { return !host.calls().empty(); }
};

}  // namespace test
