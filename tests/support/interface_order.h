// What hosts rely on in binary form: ids of interfaces and the order of their operations.
#pragma once

#include <cstring>

#include "platform/com.h"

namespace test {

template <class Interface>
bool has_id(const wchar_t* text) {
    IID id{};
    return SUCCEEDED(IIDFromString(text, &id)) && IsEqualIID(id, __uuidof(Interface));
}

// The place of an operation in its interface's order, counted from 1 with the three of IUnknown. A
// pointer to a virtual operation holds one more than the offset in the table on both systems.
template <class Operation>
std::size_t place(Operation operation) {
    std::size_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return (offset - 1) / sizeof(void*) + 1;
}

}  // namespace test
