#include "platform/crash.h"

#include <signal.h>
#include <ucontext.h>

#include <atomic>
#include <mutex>

struct exception_record {
    DWORD ExceptionCode;
    DWORD ExceptionFlags;
    exception_record* ExceptionRecord;
    void* ExceptionAddress;
};

struct _EXCEPTION_POINTERS {  // NOLINT(bugprone-reserved-identifier)
    exception_record* ExceptionRecord;
    ucontext_t* ContextRecord;
};

namespace platform {
namespace {

constexpr int crash_signals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP};

std::atomic<unhandled_filter> the_filter{nullptr};
std::atomic<invalid_parameter_handler> the_invalid_parameter_handler{nullptr};
thread_local se_translator the_translator = nullptr;
struct sigaction previous_actions[std::size(crash_signals)];

exception_block block_of(_EXCEPTION_POINTERS& pointers) {
    const exception_record& record = *pointers.ExceptionRecord;
    return {{record.ExceptionCode, record.ExceptionFlags, record.ExceptionAddress}, &pointers};
}

// The codes that the other system has for the same faults.
DWORD code_of(int signal) {
    switch (signal) {
        case SIGFPE:
            return 0xC0000094;
        case SIGILL:
            return 0xC000001D;
        case SIGBUS:
            return 0x80000002;
        case SIGTRAP:
            return 0x80000003;
        default:
            return 0xC0000005;
    }
}

void* place_of(const ucontext_t& context) {
    return reinterpret_cast<void*>(context.uc_mcontext.gregs[REG_RIP]);
}

void on_signal(int signal, siginfo_t*, void* raw_context) {
    auto& context = *static_cast<ucontext_t*>(raw_context);
    exception_record record{code_of(signal), 0, nullptr, place_of(context)};
    _EXCEPTION_POINTERS pointers{&record, &context};
    if (const unhandled_filter filter = the_filter.load()) {
        filter(&pointers);
    }
    // With the earlier action back in place the fault happens again and is treated by that.
    for (std::size_t i = 0; i < std::size(crash_signals); ++i) {
        if (crash_signals[i] == signal) {
            sigaction(signal, &previous_actions[i], nullptr);
        }
    }
    if (signal == SIGTRAP) {
        // A break does not happen again by itself.
        raise(signal);
    }
}

void listen() {
    struct sigaction action {};
    action.sa_sigaction = &on_signal;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < std::size(crash_signals); ++i) {
        sigaction(crash_signals[i], &action, &previous_actions[i]);
    }
}

}  // namespace

void with_context_of_this_thread(DWORD code, exception_block_user use, void* argument) noexcept {
    ucontext_t context{};
    getcontext(&context);
    exception_record record{code, 0, nullptr, place_of(context)};
    _EXCEPTION_POINTERS pointers{&record, &context};
    use(block_of(pointers), argument);
}

void with_copy_of(const _EXCEPTION_POINTERS* original, exception_block_user use, void* argument) noexcept {
    ucontext_t context = *original->ContextRecord;
    exception_record record = *original->ExceptionRecord;
    _EXCEPTION_POINTERS pointers{&record, &context};
    use(block_of(pointers), argument);
}

unhandled_filter set_unhandled_filter(unhandled_filter filter) noexcept {
    static std::once_flag listening;
    std::call_once(listening, listen);
    return the_filter.exchange(filter);
}

invalid_parameter_handler set_invalid_parameter_handler(invalid_parameter_handler handler) noexcept {
    return the_invalid_parameter_handler.exchange(handler);
}

se_translator set_se_translator(se_translator translator) noexcept {
    const se_translator previous = the_translator;
    the_translator = translator;
    return previous;
}

}  // namespace platform
