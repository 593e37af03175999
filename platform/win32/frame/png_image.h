#pragma once

#include <windows.h>

#include <commctrl.h>

namespace frame {

// A picture, a resource of type "PNG", as a bitmap of 32 bits with its own alpha, not premultiplied, rows
// from the top. The caller deletes it. Null when the resource is missing or is no picture.
HBITMAP load_png_bitmap(UINT id, SIZE& size);

// An image list from a strip of square pictures, a resource of type "PNG" with transparency: as many
// images as the strip's height goes into its width, at least one. The caller destroys the list. Null
// when the resource is missing or is no picture.
HIMAGELIST load_image_strip(UINT id);

// The same from the largest drawing of a strip that is no higher than a size: a strip that is drawn larger
// has its own number with the height behind it, so 21120 is 211 in 20 pixels.
HIMAGELIST load_image_strip(UINT id, int size);

}  // namespace frame
