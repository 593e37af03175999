// Where the parts of the symbol page stand, in client pixels.
#pragma once

#include "layout.h"

namespace host {

struct symbol_panel_places {
    box text_label;
    box text;
    box feed_label;
    box feed;
    box list;
    box count;
};

// line_height is that of a closed combo box; thousand is the pixels of a length of 1000 at 96 dots per inch.
// The list takes what the others leave, and never has a negative size.
symbol_panel_places lay_out_symbols(int width, int height, int line_height, int thousand);

}  // namespace host
