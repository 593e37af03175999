// What dialogs and subclassed windows have in common: one operation that takes messages, and the guard
// round each handler.
#pragma once

#include <windows.h>

#include <optional>
#include <utility>

#include "diagnostics/BugSlayerUtil.h"

namespace frame {

// A handler's result, or nothing when it declines the message.
using answer = std::optional<LRESULT>;

inline constexpr answer declined = std::nullopt;

class message_map {
public:
    // True when the message was taken; lResult is then its result. Lets no exception out.
    virtual BOOL ProcessWindowMessage(HWND hWnd, UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT& lResult,
                                      DWORD dwMsgMapID) = 0;

protected:
    ~message_map() = default;
};

// The client point that a mouse message carries.
inline POINT point_of(LPARAM lParam) {
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

// Runs a handler that gives an answer. What it throws is logged with the place given, and the message
// then counts as handled with the result 0.
template <class Handler>
answer guarded(const BugSlayerUtil::code_location& where, Handler&& handler) {
    answer result = 0;
    BugSlayerUtil::guard(where, [&] { result = std::forward<Handler>(handler)(); });
    return result;
}

// Hands an answer to the caller of ProcessWindowMessage.
inline BOOL take(const answer& given, LRESULT& lResult) {
    lResult = given.value_or(0);
    return given.has_value();
}

}  // namespace frame
