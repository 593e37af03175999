// Texts are UTF-8 inside this application and UTF-16 at its edges.
#pragma once

#include <ole2.h>

#include <string>
#include <string_view>

namespace host {

std::wstring to_wide(std::string_view text);
std::string to_utf8(std::wstring_view text);

// By its own length; a null BSTR is an empty text. Not an overload of the above: a BSTR looks like any
// pointer to characters.
std::string bstr_text(BSTR text);

// A new BSTR that becomes the caller's. Throws std::bad_alloc.
BSTR to_bstr(std::string_view text);

}  // namespace host
