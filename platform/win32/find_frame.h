#pragma once

#include "platform/com.h"

namespace platform::win32 {

// What a search of the top-level windows looks for, and what it found.
struct frame_search {
    enum kind : LONG {
        // The host's frame in this process, told by its class.
        frame_class = 1,
        // A window of another thread that carries a value as its user data.
        user_data = 2
    };

    HWND result = nullptr;
    kind mode = frame_class;
    // Both for user_data only.
    DWORD thread = 0;
    LONG_PTR value = 0;
};

// One step of the search; false stops it. The callback of EnumWindows, and callable without it.
bool examine_window(HWND window, frame_search& search);

// The first match among the top-level windows, or null.
HWND find_frame(frame_search search);

}  // namespace platform::win32
