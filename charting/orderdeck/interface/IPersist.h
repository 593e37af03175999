#pragma once

#include "platform/text.h"

namespace OV_OrderDeck {

// What the bar remembers of itself. Paths are registry paths below HKEY_CURRENT_USER.
class IPersist {
public:
    virtual void Serialize(const CString& path) = 0;
    virtual void Deserialize(const CString& path) = 0;
    virtual ~IPersist() = default;
};

}  // namespace OV_OrderDeck
