// What comes of a failed call of another component's object.
#pragma once

#include "diagnostics/BugSlayerUtil.h"
#include "platform/com.h"

namespace OV_OrderDeck {

// Reports and throws a _com_error.
[[gnu::cold]] inline void fail(const BugSlayerUtil::code_location& where, const char* text, HRESULT hr) {
    BugSlayerUtil::assertion(where, text, hr);
    _com_issue_error(hr);
}

// A failure is reported and thrown as a _com_error. A call that succeeded costs the look at its result
// only: there is one for every row of a table.
[[gnu::always_inline]] inline void require(const BugSlayerUtil::code_location& where, const char* text,
                                           HRESULT hr) {
    if (FAILED(hr)) {
        fail(where, text, hr);
    }
}

// A failure is reported and nothing more: for what the caller can do without.
inline void report(const BugSlayerUtil::code_location& where, const char* text, HRESULT hr) {
    if (FAILED(hr)) {
        BugSlayerUtil::assertion(where, text, hr);
    }
}

}  // namespace OV_OrderDeck
