#pragma once

#include <windows.h>

#include <commctrl.h>

namespace frame {

// An image list from a strip of square pictures, a resource of type "PNG" with transparency: as many
// images as the strip's height goes into its width, at least one. The caller destroys the list. Null
// when the resource is missing or is no picture.
HIMAGELIST load_image_strip(UINT id);

}  // namespace frame
