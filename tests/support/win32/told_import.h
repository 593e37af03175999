// A function of the system that answers as a test says. Windows only.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>

namespace test {

template <std::size_t Size>
struct function_name {
    constexpr function_name(const char (&name)[Size]) { std::copy(name, name + Size, text); }
    char text[Size] = {};
};

// Where this program keeps the address of a function of another module; null when it does not use it.
inline ULONG_PTR* import_slot(std::string_view function) {
    auto* const base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(
        base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const DWORD table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (const auto* module = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table);
         module->Name != 0; ++module) {
        const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + module->OriginalFirstThunk);
        auto* slot = reinterpret_cast<IMAGE_THUNK_DATA*>(base + module->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++slot) {
            const auto* const import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal) && function == import->Name) {
                return &slot->u1.Function;
            }
        }
    }
    return nullptr;
}

// While it lives, every call of this program to the function goes to the answer instead; calls of other
// modules stay. One at a time for each function. A function that this program does not use is a failure of
// the test.
template <function_name Name, class Signature>
class told_import;

template <function_name Name, class Result, class... Arguments>
class told_import<Name, Result(Arguments...)> {
public:
    explicit told_import(std::function<Result(Arguments...)> answer) : m_slot(import_slot(Name.text)) {
        EXPECT_NE(m_slot, nullptr) << Name.text;
        s_answer = std::move(answer);
        s_real =
            reinterpret_cast<Result (*)(Arguments...)>(put(reinterpret_cast<ULONG_PTR>(&told_import::call)));
    }
    ~told_import() { put(reinterpret_cast<ULONG_PTR>(s_real)); }
    told_import(const told_import&) = delete;
    told_import& operator=(const told_import&) = delete;

    // What the system would have answered.
    static Result real(Arguments... arguments) { return s_real(arguments...); }

private:
    static Result call(Arguments... arguments) { return s_answer(arguments...); }

    ULONG_PTR put(ULONG_PTR function) const {
        if (m_slot == nullptr) {
            return 0;
        }
        DWORD access = 0;
        VirtualProtect(m_slot, sizeof(*m_slot), PAGE_READWRITE, &access);
        const ULONG_PTR before = std::exchange(*m_slot, function);
        VirtualProtect(m_slot, sizeof(*m_slot), access, &access);
        return before;
    }

    inline static std::function<Result(Arguments...)> s_answer;
    inline static Result (*s_real)(Arguments...) = nullptr;
    ULONG_PTR* m_slot;
};

}  // namespace test
