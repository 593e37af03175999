#pragma once

#include "platform/registry.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// A text value, or the default when it is absent, of another type than REG_SZ and REG_EXPAND_SZ, of odd
// length or without a terminator. Throws nothing but std::bad_alloc.
CString read_string(const platform::registry_key& key, const CString& value_name,
                    const CString& default_value);

namespace registry_helpers {

// The name of one subkey, up to 256 characters. Gives the native result; name is written on
// ERROR_SUCCESS only.
LONG reg_enum_key(const platform::registry_key& key, DWORD index, CString& name);

}  // namespace registry_helpers

}  // namespace OV_OrderDeck
