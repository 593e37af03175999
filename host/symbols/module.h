// This library: where it lies and how many of its objects live.
#pragma once

#include <windows.h>

#include "market/symbol_store.h"

namespace host {

// Whose resources the symbol page uses: the module that this code was linked into.
HINSTANCE symbols_module();

// The instruments of "symbols.txt" in the folder of that module, read at the first call; empty when there is
// none. From any thread.
const symbol_store& module_symbols();

}  // namespace host
