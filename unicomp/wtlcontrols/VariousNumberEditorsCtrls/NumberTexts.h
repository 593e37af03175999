// Numbers as an editor's user types and reads them. Pure functions over the user's locale.
#pragma once

#include <optional>

#include "platform/com.h"
#include "platform/text.h"

namespace WTLControls::NumberEditors {

// The values that an editor takes.
enum class EEditType : int { Integer = 1, Double = 2 };

// The number as it is typed: no groups, the locale's decimal separator.
CString plain_number_text(double value);

// A typed number, turned into the type and back into text.
struct typed_number {
    double value;
    CString text;
};

// Halves of an integer go to the even neighbour. Nothing when the text is no number of that type.
std::optional<typed_number> read_number(const CString& text, EEditType type);

// What two texts of one number have in common: no zeros in front, no blanks round it, no groups, no
// zeros at the end of its decimals. "0" is the empty text.
CString normalised_number(const CString& text);

// Cut to an integer; what lies outside the integers becomes the nearest of them.
LONG cut_to_integer(double value);

}  // namespace WTLControls::NumberEditors
