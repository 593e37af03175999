// Texts of the component's string table.
#pragma once

#include <concepts>

#include "platform/text.h"

namespace resource_string {

// The text of a string id, from the component's own resources or from those of the given module; no other
// translation is looked for. A missing text is asserted and gives the empty text. Two forms: the component's
// text and the COM string. Throws what making the text throws. Any thread.
template <class Text>
requires std::same_as<Text, CString> || std::same_as<Text, _bstr_t> Text
resourse_2_string_impl(UINT id, HMODULE module = nullptr);

template <>
CString resourse_2_string_impl<CString>(UINT id, HMODULE module);

template <>
_bstr_t resourse_2_string_impl<_bstr_t>(UINT id, HMODULE module);

// The form that most callers want.
inline CString text(UINT id) {
    return resourse_2_string_impl<CString>(id);
}

}  // namespace resource_string
