#include "diagnostics/crash_handlers.h"

#include <map>
#include <mutex>

#include "diagnostics/BugSlayerClient.h"
#include "diagnostics/exception_report.h"
#include "diagnostics/handler_chain.h"
#include "platform/crash.h"
#include "platform/process.h"

namespace BugSlayerUtil {
namespace {

constexpr DWORD invalid_parameter_code = 0xC000000D;

// The handlers that ours go on to. Never destroyed: a thread may crash to the very end.
struct previous_handlers {
    // Guards what follows but the chains, which guard themselves.
    std::mutex lock;
    bool installed = false;
    std::map<DWORD, handler_chain<platform::se_translator>> translators;  // by thread id
    handler_chain<platform::unhandled_filter> filters;
    handler_chain<platform::invalid_parameter_handler> handlers;
};

previous_handlers& previous() {
    static auto& handlers = *new previous_handlers;
    return handlers;
}

LONG STDMETHODCALLTYPE on_unhandled(_EXCEPTION_POINTERS* pointers) {
    handler_chain<platform::unhandled_filter>::call call(previous().filters);
    if (!call.again()) {
        platform::with_copy_of(
            pointers,
            [](const platform::exception_block& block, void*) noexcept {
                report_exception(unhandled_exception, block);
            },
            nullptr);
    }
    const platform::unhandled_filter next = call.next();
    return next != nullptr ? next(pointers) : 0;
}

void on_invalid_parameter(const wchar_t* expression, const wchar_t* function, const wchar_t* file,
                          unsigned line, std::uintptr_t reserved) {
    handler_chain<platform::invalid_parameter_handler>::call call(previous().handlers);
    if (!call.again()) {
        platform::with_context_of_this_thread(
            invalid_parameter_code,
            [](const platform::exception_block& block, void*) noexcept {
                Client::Get().Act(report_exception(invalid_parameter, block), invalid_parameter_code);
            },
            nullptr);
    }
    if (const auto next = call.next()) {
        next(expression, function, file, line, reserved);
    }
}

handler_chain<platform::se_translator>* translators_of_this_thread() noexcept {
    const std::lock_guard guard(previous().lock);
    const auto found = previous().translators.find(GetCurrentThreadId());
    return found == previous().translators.end() ? nullptr : &found->second;
}

// Ours only stands in the row: what nobody translates reaches the filter, which reports it.
void on_structured_exception(unsigned code, _EXCEPTION_POINTERS* pointers) {
    auto* const chain = translators_of_this_thread();
    if (chain == nullptr) {
        return;
    }
    handler_chain<platform::se_translator>::call call(*chain);
    if (const auto next = call.next()) {
        next(code, pointers);
    }
}

// Puts ours in place and the one before into the chain, unless that is ours.
template <class Handler>
void take_place(handler_chain<Handler>& chain, Handler (*set)(Handler), Handler ours) noexcept {
    if (const Handler before = set(ours); before != ours) {
        chain.put(before);
    }
}

// Gives the place back where ours is still in it.
template <class Handler>
void leave_place(handler_chain<Handler>& chain, Handler (*set)(Handler), Handler ours) noexcept {
    if (const Handler present = set(chain.latest()); present != ours) {
        set(present);
    } else {
        chain.clear();
    }
}

}  // namespace

void install_crash_handlers() noexcept {
    const platform::last_error_keeper keeper;
    // Its clean-up at the module's end is what takes the handlers away again.
    Client::Get();
    try {
        previous_handlers& handlers = previous();
        const std::lock_guard guard(handlers.lock);
        handlers.installed = true;
        take_place(handlers.filters, platform::set_unhandled_filter, &on_unhandled);
        take_place(handlers.handlers, platform::set_invalid_parameter_handler, &on_invalid_parameter);
        take_place(handlers.translators[GetCurrentThreadId()], platform::set_se_translator,
                   &on_structured_exception);
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
    handlers.installed = false;
    leave_place(handlers.filters, platform::set_unhandled_filter, &on_unhandled);
    leave_place(handlers.handlers, platform::set_invalid_parameter_handler, &on_invalid_parameter);
}

}  // namespace BugSlayerUtil
