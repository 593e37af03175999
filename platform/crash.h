// Crashes: the system's handlers for them, and a picture of a thread at one place.
#pragma once

#include <cstdint>

#include "platform/com.h"

// The system's own name.
struct _EXCEPTION_POINTERS;  // NOLINT(bugprone-reserved-identifier)

namespace platform {

// What an exception record says.
struct exception_summary {
    DWORD code = 0;
    DWORD flags = 0;
    const void* address = nullptr;
};

// A copy of an exception record and of a thread's context, valid during one call.
struct exception_block {
    exception_summary summary;
    // On Windows an EXCEPTION_POINTERS; natively the same two pointers, the second to a ucontext_t.
    const void* pointers = nullptr;
};

using exception_block_user = void (*)(const exception_block& block, void* argument) noexcept;

// Calls use with the context of this thread as it is here and a record with that code. The frame that
// the context shows is alive during the call. Takes no memory from the heap.
void with_context_of_this_thread(DWORD code, exception_block_user use, void* argument) noexcept;

// Calls use with a copy of what the system tells a handler.
void with_copy_of(const _EXCEPTION_POINTERS* pointers, exception_block_user use, void* argument) noexcept;

// Runs where an exception found no handler. Gives EXCEPTION_CONTINUE_SEARCH (0) to go on to the system's
// own treatment.
using unhandled_filter = LONG(STDMETHODCALLTYPE*)(_EXCEPTION_POINTERS* pointers);

// Runs where the C runtime was given an argument that it refuses.
using invalid_parameter_handler = void (*)(const wchar_t* expression, const wchar_t* function,
                                           const wchar_t* file, unsigned line, std::uintptr_t reserved);

// Runs where a structured exception passes a C++ handler.
using se_translator = void (*)(unsigned code, _EXCEPTION_POINTERS* pointers);

// Each puts a handler in place and gives the one before, null for none. The first two are the process's,
// the last the calling thread's. Natively the unhandled exceptions are the signals SIGSEGV, SIGBUS,
// SIGFPE, SIGILL and SIGTRAP, which go on to the action that was there before; the other two kinds do not
// occur there by themselves.
unhandled_filter set_unhandled_filter(unhandled_filter filter) noexcept;
invalid_parameter_handler set_invalid_parameter_handler(invalid_parameter_handler handler) noexcept;
se_translator set_se_translator(se_translator translator) noexcept;

}  // namespace platform
