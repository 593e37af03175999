// The one way in which failures are reported. A report goes to the diagnostics library when there is
// one; without it a report does nothing. The thread's last error is the same before and after.
#pragma once

#include <optional>
#include <type_traits>
#include <utility>

#include "diagnostics/code_location.h"
#include "platform/text.h"

namespace BugSlayerUtil {

// Writes an assertion record and acts on the answer: break, end the process, or go on. text may be
// empty; hr is the result code that the record carries. Any thread. Never throws.
void assertion(const code_location& where, const char* text, std::optional<HRESULT> hr = {}) noexcept;

// Writes a trace record with a message that is data, not a format. Any thread. Never throws.
void trace(const code_location& where, const CString& message) noexcept;

// A printf-style trace message.
__attribute__((format(printf, 2, 3))) void tracef(const code_location& where, const char* format,
                                                  ...) noexcept;

// The error path, for a failure that the caller can't go on from: writes an error record and throws it,
// as an IDebugObject* when the library made a record, else the text as a wchar_t*. The guard takes
// either for an unknown exception. A text that was thrown stays until this thread's next error; a
// record belongs to whoever catches it.
[[noreturn]] void throw_error(const code_location& where, const char* text);

// Reports the assertion unless it held. Gives whether it held. Deliberate: what holds does not ask for the
// client, so it costs nothing and waits for no debugger.
inline bool check(bool held, const code_location& where, const char* text) noexcept {
    if (!held) {
        assertion(where, text);
    }
    return held;
}

// Reports the assertion, with the result, unless that is S_OK. Gives whether it is.
inline bool check_ok(HRESULT hr, const code_location& where, const char* text) noexcept {
    if (hr != S_OK) {
        assertion(where, text, hr);
    }
    return hr == S_OK;
}

// Reports an assertion whose text is the expression unless it holds; the code goes on either way.
// Gives whether it held.
#define BS_ASSERT(expression) BS_ASSERT_TEXT(expression, #expression)
#define BS_ASSERT_TEXT(expression, text) ::BugSlayerUtil::check(static_cast<bool>(expression), BS_HERE, text)

// Reports an assertion that carries the result unless it is S_OK. Gives whether it is.
#define BS_ASSERT_OK(hr) BS_ASSERT_OK_TEXT(hr, #hr)
#define BS_ASSERT_OK_TEXT(hr, text) ::BugSlayerUtil::check_ok((hr), BS_HERE, text)

// Reports an assertion and raises a COM error, for a caller that can't go on. BS_REQUIRE does so
// unless the expression holds, with the expression as the text.
#define BS_RAISE(text, hr)                         \
    do {                                           \
        ::BugSlayerUtil::assertion(BS_HERE, text); \
        _com_issue_error(hr);                      \
    } while (false)
#define BS_REQUIRE(expression, hr)                      \
    do {                                                \
        if (!BS_ASSERT_TEXT(expression, #expression)) { \
            _com_issue_error(hr);                       \
        }                                               \
    } while (false)

// The catch ladder. Call it in a catch-all handler: it looks at the exception in flight, writes the
// trace record and gives the result.
HRESULT handle_current_exception(const code_location& where) noexcept;

// The guard that ends every COM operation and every message handler: runs the body and turns what it
// throws into a trace record and a result. A body that returns nothing gives S_OK.
template <class Body>
HRESULT guard(const code_location& where, Body&& body) noexcept {
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Body>>) {
            std::forward<Body>(body)();
            return S_OK;
        } else {
            return std::forward<Body>(body)();
        }
    } catch (...) {
        return handle_current_exception(where);
    }
}

}  // namespace BugSlayerUtil
