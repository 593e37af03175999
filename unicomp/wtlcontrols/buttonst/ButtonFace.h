// What a drawn button shows in which state, without a window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "platform/com.h"

namespace WTLControls {

// How a button behaves and what is drawn on it. Values, not positions of bits.
namespace ButtonFlag {

inline constexpr DWORD HotTracking = 1;
inline constexpr DWORD Content = 2;
inline constexpr DWORD Gradient = 4;
inline constexpr DWORD AutoRepeat = 16;
inline constexpr DWORD Check = 32;

}  // namespace ButtonFlag

namespace ButtonStyle {

inline constexpr DWORD DropDown = 2;

}  // namespace ButtonStyle

namespace ButtonState {

inline constexpr DWORD Hot = 1;
inline constexpr DWORD Disabled = 2;
inline constexpr DWORD Default = 8;

}  // namespace ButtonState

// Keys of a button's colour table.
namespace ButtonColour {

inline constexpr DWORD Top = 1;
inline constexpr DWORD Bottom = 2;

}  // namespace ButtonColour

using button_colours = std::map<DWORD, COLORREF>;

struct SButtonLook {
    DWORD flags = 0;
    // Bits of ButtonState; whether the button is pressed stands apart.
    DWORD state = 0;
    bool pressed = false;
    bool focused = false;
    // There is a visual style.
    bool themed = false;
};

// A vertical gradient, the outline of a rounded one included.
struct SGradientFace {
    RECT rect = {};
    COLORREF top = 0;
    COLORREF bottom = 0;
    // 0 for a plain rectangle without an outline; a rounded one loses a pixel at each corner.
    int radius = 0;
    COLORREF outline = 0;
    int outline_alpha = 0;
};

// The state of the visual style's push button.
int themed_state(DWORD state, bool pressed);

// The gradient on the face of a button, nothing when there is none. A colour that the table lacks is
// reported, and what is drawn for it is of no importance.
std::optional<SGradientFace> gradient_face(const SButtonLook& look, const RECT& client,
                                           const button_colours& colours);

// A surface of 32 bits a pixel, rows from the top, blue in the lowest byte.
struct SPixels {
    std::uint32_t* first;
    int width;
    int height;
};

// Draws the face; parts outside the surface are left out.
void draw_gradient(const SPixels& surface, const SGradientFace& face);

// True for a point in the drop-down part, which is the client area from the split on.
bool is_drop_down_part(const RECT& client, LONG split, POINT at);
bool contains(const RECT& rect, POINT at);

}  // namespace WTLControls
