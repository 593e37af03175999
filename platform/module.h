// Libraries and modules of this process.
//
// A library that is optional is named by its file name and looked for in this program's folder and the
// system's folder only, or is named by its full path: never in the current folder or along the search
// path, where anybody may have put a file of that name.
#pragma once

#include "platform/text.h"

namespace platform {

// A library that this process has loaded already, by its file name, from wherever it came. Null when
// there is none. It stays loaded from then on. Any thread; keeps nothing of the name; throws nothing.
HMODULE find_loaded_library(const CString& file_name) noexcept;

// Loads a library. A name without a folder is looked for as told above; a name with a folder that is
// not a full path is refused. Null on failure. It stays loaded from then on.
HMODULE load_library(const CString& name) noexcept;

// The same for a path in the system's own narrow encoding, as the registry gives it.
HMODULE load_library(const char* path) noexcept;

// Text in the system's own narrow encoding. Throws std::bad_alloc.
std::string narrow(const CString& text);

// The address of an exported function, null when there is none.
void* find_export(HMODULE library, const char* name) noexcept;

// Full path of the module that this code is part of, and of the program. Empty when the system does not
// tell. Throw std::bad_alloc.
CString this_module_path();
CString program_path();

// What follows the last separator of a path.
CString file_name_of(const CString& path);

// The folder of a path with its last separator; empty when there is none.
CString folder_of(const CString& path);

}  // namespace platform
