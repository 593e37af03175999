// Where the page and the buttons of a sheet stand, in client pixels.
#pragma once

#include "layout.h"

namespace host {

struct sheet_places {
    box page;
    box ok;
    box cancel;
};

// thousand is the pixels of a length of 1000 at 96 dots per inch. The page takes what the buttons leave, and
// never has a negative size.
sheet_places lay_out_sheet(int width, int height, int thousand);

}  // namespace host
