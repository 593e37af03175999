#pragma once

#include <initializer_list>

#include "platform/text.h"

namespace Unicomp {

// A text with its placeholders, each "%s" or "%d", replaced from left to right by the given pieces. The
// text is data and never reaches a printf: a surplus placeholder stays as it is, a surplus piece is left
// out, and what a piece contains is not looked at again. Any thread.
inline CString fill_text(const CString& text, std::initializer_list<CString> pieces) {
    CString result;
    std::size_t from = 0;
    for (const CString& piece : pieces) {
        std::size_t at = text.find(L'%', from);
        while (at != CString::npos && text.compare(at, 2, L"%s") != 0 && text.compare(at, 2, L"%d") != 0) {
            at = text.find(L'%', at + 1);
        }
        if (at == CString::npos) {
            break;
        }
        result.append(text, from, at - from).append(piece);
        from = at + 2;
    }
    return result.append(text, from);
}

}  // namespace Unicomp
