#pragma once

#include <windows.h>

namespace frame {

// The module that this code is linked into: where its dialogs and pictures are.
HINSTANCE module_instance();

}  // namespace frame
