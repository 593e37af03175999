#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// What the bar remembers of itself. Paths are registry paths below HKEY_CURRENT_USER. On the bar's thread. A
// registry that refuses is reported and stops nothing.
class IPersist {
public:
    // Into a key that exists; without it that is reported and nothing is remembered.
    virtual void Serialize(const CString& path) = 0;
    // Selects the remembered tab; without a memory one by a name of its own, or else the first.
    virtual void Deserialize(const CString& path) = 0;
    virtual ~IPersist() = default;
};

}  // namespace OV_OrderDeck
