// What the fuzzers share: the input's bytes as what a target takes, and the check that ends a run.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <span>

#include "platform/text.h"

namespace fuzz {

using bytes = std::span<const std::uint8_t>;

// Bytes as characters; the upper ones stand for those that a number may hold and ASCII does not have.
inline CString text_of(bytes data) {
    constexpr wchar_t others[] = {0xA0, 0x202F, 0x3000, 0x0663, 0x2212, 0x20AC, 0x1F4B0};
    CString text;
    for (const std::uint8_t byte : data) {
        text += byte < 128 ? static_cast<wchar_t>(byte) : others[byte % std::size(others)];
    }
    return text;
}

// The fuzzer keeps the input that ended the program.
inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

}  // namespace fuzz
