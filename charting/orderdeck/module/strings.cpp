// The string table, for a system whose executables have none.
#include <array>

#include "platform/posix/resource_tables.h"

namespace platform {
namespace {

#define ORDERDECK_STRING(id, text) string_resource{id, L##text},

constexpr std::array the_strings{
#include "strings.inc"
};

}  // namespace

std::span<const string_resource> linked_strings() {
    return the_strings;
}

}  // namespace platform
