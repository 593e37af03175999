#pragma once

#include "unicomp/wtlcontrols/buttonst/Colours.h"

namespace OV_OrderDeck {

// Colours of prices at the ask or above, the mid, and at the bid or below.
inline constexpr COLORREF ladder_colours[3] = {WTLControls::make_colour(255, 190, 190),
                                               WTLControls::make_colour(202, 215, 173),
                                               WTLControls::make_colour(177, 197, 241)};

}  // namespace OV_OrderDeck
