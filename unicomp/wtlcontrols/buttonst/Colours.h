// Arithmetic of 24-bit colours.
#pragma once

#include "platform/com.h"

namespace WTLControls {

constexpr COLORREF make_colour(unsigned red, unsigned green, unsigned blue) {
    return red | green << 8U | blue << 16U;
}

// No colour at all, the answer of a colour table to an unknown key.
inline constexpr COLORREF no_colour = 0xFFFFFFFFU;

// Each channel changed by as much, but not beyond 0 and 255.
COLORREF shifted(COLORREF colour, int by);

// A part of the way from one colour to another, each channel rounded: step 0 is the first, step last the
// other. last is at least 1.
COLORREF between(COLORREF from, COLORREF to, int step, int last);

// A colour laid over another; alpha 255 covers it.
COLORREF blended(COLORREF over, COLORREF under, int alpha);

// Of two colours by their relative luminance: 1 for equal ones, 21 for black and white.
double contrast(COLORREF one, COLORREF other);

// The preferred colour of a text where it can be read on all of a gradient, otherwise black or white,
// whichever stands out more.
COLORREF readable_text(COLORREF preferred, COLORREF top, COLORREF bottom);

}  // namespace WTLControls
