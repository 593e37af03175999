#pragma once

#include <vector>

#include "platform/safearray.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// Whether a list that the host gave has the type and shape that it should. A field asks first, so that its
// old list stays and the event that brought the new one goes on.
bool is_list_of_texts(SAFEARRAY* array);
bool is_list_of_numbers(SAFEARRAY* array);

// The elements of a list for which the question above was answered with yes. Throw _com_error when the array
// does not give one.
std::vector<CString> texts_of(SAFEARRAY* array);
std::vector<LONG> numbers_of(SAFEARRAY* array);

}  // namespace OV_OrderDeck
