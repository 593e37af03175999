#pragma once

#include <vector>

#include "platform/text.h"

namespace OV_OrderDeck {

// What is remembered of one panel between runs.
struct SSerializeProfInf {
    // The profile's name, which is also the name of its registry key.
    CString sProfileName;
    // The profile was connected when the bar closed.
    bool bConnected = false;
    CString sSymbolName;
    // 0 for none.
    LONG lSymbolId = 0;
};

using remembered_profiles = std::vector<SSerializeProfInf>;

}  // namespace OV_OrderDeck
