// The pictures, for a system whose executables have no resources.
#include <array>

#include "platform/posix/resource_tables.h"

// The assembler takes the files in as they are.
#define ORDERDECK_IMAGE(id, file)                      \
    asm(".section .rodata\n"                           \
        ".globl orderdeck_image_" #id                  \
        "\n"                                           \
        "orderdeck_image_" #id                         \
        ":\n"                                          \
        ".incbin \"" file                              \
        "\"\n"                                         \
        ".globl orderdeck_image_" #id                  \
        "_end\n"                                       \
        "orderdeck_image_" #id                         \
        "_end:\n"                                      \
        ".byte 0\n"                                    \
        ".previous\n");                                \
    extern "C" const std::byte orderdeck_image_##id[]; \
    extern "C" const std::byte orderdeck_image_##id##_end[];
#include "images.inc"
#undef ORDERDECK_IMAGE

namespace platform {

std::span<const png_resource> linked_pngs() {
#define ORDERDECK_IMAGE(id, file) png_resource{id, {orderdeck_image_##id, orderdeck_image_##id##_end}},
    static const std::array the_pngs{
#include "images.inc"
    };
    return the_pngs;
}

}  // namespace platform
