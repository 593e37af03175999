// The resources of a program on a system where executables have none: tables that are linked in. A program
// that is linked without one of them has no such resources.
#pragma once

#include <cstddef>
#include <span>

#include "platform/text.h"

namespace platform {

struct string_resource {
    UINT id;
    const wchar_t* text;
};

struct png_resource {
    UINT id;
    std::span<const std::byte> bytes;
};

struct version_string {
    const wchar_t* name;
    const wchar_t* text;
};

[[gnu::weak]] std::span<const string_resource> linked_strings();
[[gnu::weak]] std::span<const png_resource> linked_pngs();
[[gnu::weak]] std::span<const version_string> linked_version_strings();

}  // namespace platform
