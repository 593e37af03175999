#include "diagnostics/crash_handlers.h"

#include <map>
#include <mutex>

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/exception_report.h"
#include "platform/crash.h"
#include "platform/process.h"

namespace BugSlayerUtil {
namespace {

constexpr DWORD invalid_parameter_code = 0xC000000D;

// The handlers that ours go on to. Never destroyed: a thread may crash to the very end.
struct previous_handlers {
    std::mutex lock;
    bool installed = false;
    platform::unhandled_filter filter = nullptr;
    platform::invalid_parameter_handler handler = nullptr;
    std::map<DWORD, platform::se_translator> translators;  // by thread id
};

previous_handlers& previous() {
    static auto& handlers = *new previous_handlers;
    return handlers;
}

template <class T>
T read(T previous_handlers::*member) noexcept {
    const std::lock_guard guard(previous().lock);
    return previous().*member;
}

LONG STDMETHODCALLTYPE on_unhandled(_EXCEPTION_POINTERS* pointers) {
    platform::with_copy_of(
        pointers,
        [](const platform::exception_block& block, void*) noexcept {
            report_exception(unhandled_exception, block);
        },
        nullptr);
    const platform::unhandled_filter next = read(&previous_handlers::filter);
    return next != nullptr ? next(pointers) : 0;
}

void on_invalid_parameter(const wchar_t* expression, const wchar_t* function, const wchar_t* file,
                          unsigned line, std::uintptr_t reserved) {
    platform::with_context_of_this_thread(
        invalid_parameter_code,
        [](const platform::exception_block& block, void*) noexcept {
            Client::Get().Act(report_exception(invalid_parameter, block), invalid_parameter_code);
        },
        nullptr);
    if (const auto next = read(&previous_handlers::handler)) {
        next(expression, function, file, line, reserved);
    }
}

platform::se_translator translator_of_this_thread() noexcept {
    const std::lock_guard guard(previous().lock);
    const auto found = previous().translators.find(GetCurrentThreadId());
    return found == previous().translators.end() ? nullptr : found->second;
}

// Ours only stands in the row: what nobody translates reaches the filter, which reports it.
void on_structured_exception(unsigned code, _EXCEPTION_POINTERS* pointers) {
    if (const auto next = translator_of_this_thread()) {
        next(code, pointers);
    }
}

void install_translator(previous_handlers& handlers) {
    platform::se_translator& known = handlers.translators[GetCurrentThreadId()];
    const platform::se_translator before = platform::set_se_translator(&on_structured_exception);
    if (before != &on_structured_exception) {
        known = before;
    }
}

}  // namespace

void install_crash_handlers() noexcept {
    const platform::last_error_keeper keeper;
    try {
        previous_handlers& handlers = previous();
        const std::lock_guard guard(handlers.lock);
        handlers.installed = true;
        if (const auto filter = platform::set_unhandled_filter(&on_unhandled); filter != &on_unhandled) {
            handlers.filter = filter;
        }
        if (const auto handler = platform::set_invalid_parameter_handler(&on_invalid_parameter);
            handler != &on_invalid_parameter) {
            handlers.handler = handler;
        }
        install_translator(handlers);
    } catch (...) {
        // Out of memory: the thread runs without a translator of ours.
        return;
    }
}

void remove_crash_handlers() noexcept {
    previous_handlers& handlers = previous();
    const std::lock_guard guard(handlers.lock);
    if (!handlers.installed) {
        return;
    }
    const auto filter = platform::set_unhandled_filter(handlers.filter);
    if (filter != &on_unhandled) {
        platform::set_unhandled_filter(filter);
    }
    const auto handler = platform::set_invalid_parameter_handler(handlers.handler);
    if (handler != &on_invalid_parameter) {
        platform::set_invalid_parameter_handler(handler);
    }
}

}  // namespace BugSlayerUtil
