#pragma once

#include <vector>

#include "platform/safearray.h"
#include "platform/text.h"

namespace OV_OrderDeck {

// The elements of a list that the host gave. An array of another type or shape than told is reported and
// throws _com_error (DISP_E_TYPEMISMATCH).
std::vector<CString> texts_of(SAFEARRAY* array);
std::vector<LONG> numbers_of(SAFEARRAY* array);

}  // namespace OV_OrderDeck
