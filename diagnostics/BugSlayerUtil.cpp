#include "diagnostics/BugSlayerUtil.h"

#include "diagnostics/AsserterClass.h"
#include "diagnostics/ThrowError.h"
#include "diagnostics/formatted_text.h"
#include "platform/utf8.h"

namespace BugSlayerUtil {
namespace {

CString text_or_nothing(const char* utf8) noexcept {
    try {
        return platform::from_utf8(utf8);
    } catch (...) {
        return {};
    }
}

}  // namespace

void assertion(const code_location& where, const char* text, std::optional<HRESULT> hr) noexcept {
    AsserterClass asserter(where);
    asserter.Act(asserter.Report(text_or_nothing(text), hr));
}

void trace(const code_location& where, const CString& message) noexcept {
    TracerClass(where).Message(message);
}

void tracef(const code_location& where, const char* format, ...) noexcept {
    TracerClass tracer(where);
    std::optional<CString> message;
    std::va_list arguments;
    va_start(arguments, format);
    try {
        message = formatted_text(format, arguments);
    } catch (...) {
        // Out of memory: a report is lost, the program is not.
        message.reset();
    }
    va_end(arguments);
    if (message.has_value()) {
        tracer.Message(*message);
    }
}

void throw_error(const code_location& where, const char* text) {
    ThrowError(where).React(text_or_nothing(text));
}

}  // namespace BugSlayerUtil
