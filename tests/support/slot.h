#pragma once

#include <bit>
#include <cstddef>

namespace test {

// The place of a virtual operation in its class: both systems' compilers keep one more than its offset.
template <class Operation>
std::ptrdiff_t slot(Operation operation) {
    struct parts {
        std::ptrdiff_t function;
        std::ptrdiff_t adjustment;
    };
    return (std::bit_cast<parts>(operation).function - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

}  // namespace test
