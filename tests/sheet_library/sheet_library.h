// A property sheet library whose sheets a test makes.
#pragma once

#include "TradingCenter.h"

using sheet_maker = HRESULT (*)(IUnknown** sheet);

// Exported as "SetSheetMaker": who makes the sheets from now on.
using SetSheetMaker_t = void (*)(sheet_maker maker);
