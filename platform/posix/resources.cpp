#include "platform/resources.h"

#include <algorithm>

#include "platform/posix/resource_tables.h"

namespace platform {
namespace {

template <class Row>
std::span<const Row> rows_of(std::span<const Row> (*linked)()) {
    return linked != nullptr ? linked() : std::span<const Row>();
}

}  // namespace

std::optional<CString> load_string(UINT id, HMODULE) {
    const auto rows = rows_of(&linked_strings);
    const auto row = std::ranges::find(rows, id, &string_resource::id);
    if (row == rows.end()) {
        return {};
    }
    return row->text;
}

std::span<const std::byte> load_png(UINT id) {
    const auto rows = rows_of(&linked_pngs);
    const auto row = std::ranges::find(rows, id, &png_resource::id);
    return row != rows.end() ? row->bytes : std::span<const std::byte>();
}

CString main_version_string(const wchar_t* name) {
    const auto rows = rows_of(&linked_version_strings);
    const auto row = std::ranges::find(rows, CString(name), &version_string::name);
    return row != rows.end() ? row->text : CString();
}

}  // namespace platform
