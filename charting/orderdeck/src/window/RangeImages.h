#pragma once

#include <windows.h>

#include <commctrl.h>

namespace OV_OrderDeck {

// Six arrow pictures of a width, sixteen high or as high as a button if that is more: up at rest, hot
// and pressed, then down. Each fills the upper button_height lines. They come from the visual style of the
// window's spins, or are drawn without one. The caller destroys the list. On the window's thread.
HIMAGELIST make_range_images(HWND window, LONG width, LONG button_height);

}  // namespace OV_OrderDeck
