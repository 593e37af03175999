// The symbol field of a connected row, with a service that knows two instruments.
#pragma once

#include "tests/tab/tab_fixture.h"

namespace test {

class symbol_control : public tab_fixture {
protected:
    symbol_control() {
        profile->state = eTM_CC_Connected;
        make_tab();
        profile->fire_state(eTM_CC_Connected);
        lookup->by_name[L"ESZ6"] = instrument(L"ESZ6");
        lookup->by_name[L"NQZ6"] = instrument(L"NQZ6");
        lookup->by_id[55] = instrument(L"NQZ6");
        reset_record();
    }

    OV_OrderDeck::CLookup& control() { return symbol_field(); }

    // Every answer is this one, with an instrument of the name.
    void answer(OD_LookupResult result, const CString& name = L"GIVEN") {
        lookup->fixed = true;
        lookup->result = result;
        lookup->answer = instrument(name);
    }

    void disconnect() {
        profile->fire_state(eTM_CC_Disconnected);
        reset_record();
    }

    int asked() { return static_cast<int>(desktop.message_boxes().size()); }
    int told_host() { return host.count("SetSymbol"); }
};

}  // namespace test
