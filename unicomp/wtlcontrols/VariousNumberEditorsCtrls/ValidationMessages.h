#pragma once

#include <functional>
#include <map>
#include <optional>

#include "platform/com.h"
#include "platform/text.h"

namespace WTLControls::NumberEditors {

// What the user reads about a number that was refused, by the id under which the system's own libraries
// keep such texts.
namespace ValidationMessage {
inline constexpr UINT Integer = 61712;
inline constexpr UINT Number = 61713;
inline constexpr UINT IntegerRange = 61714;
inline constexpr UINT NumberRange = 61715;
inline constexpr UINT PositiveInteger = 61719;
inline constexpr UINT Title = 65209;
}  // namespace ValidationMessage

using validation_messages = std::map<UINT, CString>;

// Gives the text of an id, or nothing. Any text that comes is data.
using message_source = std::function<std::optional<CString>(UINT id)>;

// The system's localised texts: the strings of an optional library of the system, when there is one.
message_source system_messages();

// All six texts, from the source where it has them. In a text with numbers, each "%" and the character
// behind it has become the form of its numbers, "%i" or "%f".
validation_messages load_validation_messages(const message_source& source);

// A text with its first two number forms filled in; everything else is literal. At most 256 characters.
CString fill_integers(const CString& text, LONG low, LONG high);
// Six decimals, with the decimal separator of the user's locale.
CString fill_doubles(const CString& text, double low, double high);

}  // namespace WTLControls::NumberEditors
