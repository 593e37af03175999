#pragma once

#include <windows.h>

namespace frame {

// Dots to the inch that a control of a dialog was laid out for, 96 at the usual size, in the steps of a
// quarter that the system offers. A dialog grows with its font, so the font tells: also where a host lays the
// dialog out for another screen than the system's. The screen's resolution for a control without a font.
int resolution_of(HWND control);

// Pixels of that resolution for pixels of 96 to the inch.
int scaled(HWND control, int pixels);

// A width or height of the system's own parts (GetSystemMetrics) at that resolution.
int scaled_metric(HWND control, int metric);

}  // namespace frame
