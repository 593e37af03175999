#include "platform/crash.h"

#include <cstdlib>

namespace platform {
namespace {

using translator_setter = se_translator (*)(se_translator);

// The C runtime exports it under its C++ name only, which the linker of this compiler does not know.
translator_setter find_translator_setter() noexcept {
    constexpr char name[] = "?_set_se_translator@@YAP6AXIPEAU_EXCEPTION_POINTERS@@@ZP6AXI0@Z@Z";
    const HMODULE runtime = GetModuleHandleW(L"msvcrt.dll");
    return reinterpret_cast<translator_setter>(reinterpret_cast<void*>(GetProcAddress(runtime, name)));
}

exception_block block_of(EXCEPTION_POINTERS& pointers) {
    const EXCEPTION_RECORD& record = *pointers.ExceptionRecord;
    return {{record.ExceptionCode, record.ExceptionFlags, record.ExceptionAddress}, &pointers};
}

}  // namespace

void with_context_of_this_thread(DWORD code, exception_block_user use, void* argument) noexcept {
    CONTEXT context{};
    RtlCaptureContext(&context);
    context.ContextFlags = CONTEXT_FULL;
    static_assert(CONTEXT_FULL == 0x10000B);
    EXCEPTION_RECORD record{};
    record.ExceptionCode = code;
    record.ExceptionAddress = reinterpret_cast<void*>(context.Rip);
    EXCEPTION_POINTERS pointers{&record, &context};
    use(block_of(pointers), argument);
}

void with_copy_of(const _EXCEPTION_POINTERS* original, exception_block_user use, void* argument) noexcept {
    CONTEXT context = *original->ContextRecord;
    EXCEPTION_RECORD record = *original->ExceptionRecord;
    EXCEPTION_POINTERS pointers{&record, &context};
    use(block_of(pointers), argument);
}

unhandled_filter set_unhandled_filter(unhandled_filter filter) noexcept {
    return SetUnhandledExceptionFilter(filter);
}

invalid_parameter_handler set_invalid_parameter_handler(invalid_parameter_handler handler) noexcept {
    return _set_invalid_parameter_handler(handler);
}

se_translator set_se_translator(se_translator translator) noexcept {
    static const translator_setter set = find_translator_setter();
    return set != nullptr ? set(translator) : nullptr;
}

}  // namespace platform
