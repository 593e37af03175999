// What all the dialogs and panes of this application look like.
#pragma once

#include <windows.h>

namespace host {

// The font of message boxes; made once.
HFONT dialog_font();

// A length given for 96 dots per inch.
int scaled(int length);

// Gives a window and all that is in it the font of message boxes.
void use_dialog_font(HWND window);

}  // namespace host
