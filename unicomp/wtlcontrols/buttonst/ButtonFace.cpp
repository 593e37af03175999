#include "unicomp/wtlcontrols/buttonst/ButtonFace.h"

#include <algorithm>

#include "diagnostics/BugSlayerUtil.h"
#include "unicomp/wtlcontrols/buttonst/Colours.h"

namespace WTLControls {

namespace {

constexpr int pressed_by = -15;
constexpr int outline_by = 30;
constexpr int outline_alpha = 140;
constexpr int corner_radius = 2;
constexpr LONG themed_margin = 3;
constexpr LONG classic_margin = 1;

COLORREF colour_of(const button_colours& colours, DWORD key) {
    const auto found = colours.find(key);
    return found != colours.end() ? found->second : no_colour;
}

RECT shrunk(const RECT& rect, LONG margin, LONG more) {
    return {rect.left + margin, rect.top + margin, rect.right - margin - more, rect.bottom - margin - more};
}

// Swaps red and blue: a surface holds them the other way round.
std::uint32_t pixel_of(COLORREF colour) {
    return (colour & 0xFFU) << 16U | (colour & 0xFF00U) | (colour >> 16U & 0xFFU);
}

// Whether a pixel belongs to the face, and to its outline. The corners of a rounded face are cut.
enum class place { outside, inside, edge };

place place_of(const SGradientFace& face, LONG x, LONG y) {
    if (face.radius == 0) {
        return place::inside;
    }
    const bool side = x == face.rect.left || x == face.rect.right - 1;
    const bool end = y == face.rect.top || y == face.rect.bottom - 1;
    if (side && end) {
        return place::outside;
    }
    return side || end ? place::edge : place::inside;
}

}  // namespace

int themed_state(DWORD state, bool pressed) {
    enum : int { normal = 1, hot = 2, pushed = 3, disabled = 4, defaulted = 5 };
    if ((state & ButtonState::Disabled) != 0) {
        return disabled;
    }
    if (pressed) {
        return pushed;
    }
    if ((state & ButtonState::Hot) != 0) {
        return hot;
    }
    return (state & ButtonState::Default) != 0 ? defaulted : normal;
}

std::optional<SGradientFace> gradient_face(const SButtonLook& look, const RECT& client,
                                           const button_colours& colours) {
    if ((look.flags & ButtonFlag::Gradient) == 0 || (look.state & ButtonState::Disabled) != 0) {
        return {};
    }
    COLORREF c0 = colour_of(colours, ButtonColour::Top);
    COLORREF c1 = colour_of(colours, ButtonColour::Bottom);
    BS_ASSERT_TEXT(no_colour != c0, "0xFFFFFFFFL != c0");
    BS_ASSERT_TEXT(no_colour != c1, "0xFFFFFFFFL != c1");
    if (look.pressed) {
        c0 = shifted(c0, pressed_by);
        c1 = shifted(c1, pressed_by);
    }
    SGradientFace face;
    face.top = c0;
    face.bottom = c1;
    if (look.themed) {
        face.rect = shrunk(client, themed_margin, 1);
        face.radius = corner_radius;
        face.outline = shifted(c0, outline_by);
        face.outline_alpha = outline_alpha;
    } else {
        face.rect = shrunk(client, classic_margin, look.focused ? 1 : 0);
    }
    return face;
}

void draw_gradient(const SPixels& surface, const SGradientFace& face) {
    const LONG last = std::max<LONG>(face.rect.bottom - face.rect.top - 1, 1);
    const LONG right = std::min<LONG>(face.rect.right, surface.width);
    for (LONG y = std::max<LONG>(face.rect.top, 0); y < std::min<LONG>(face.rect.bottom, surface.height);
         ++y) {
        const COLORREF fill = between(face.top, face.bottom, y - face.rect.top, last);
        const std::uint32_t inside = pixel_of(fill);
        const std::uint32_t edge = pixel_of(blended(face.outline, fill, face.outline_alpha));
        std::uint32_t* const row = surface.first + static_cast<std::ptrdiff_t>(y) * surface.width;
        for (LONG x = std::max<LONG>(face.rect.left, 0); x < right; ++x) {
            const place at = place_of(face, x, y);
            if (at != place::outside) {
                row[x] = at == place::edge ? edge : inside;
            }
        }
    }
}

bool contains(const RECT& rect, POINT at) {
    return at.x >= rect.left && at.x < rect.right && at.y >= rect.top && at.y < rect.bottom;
}

bool is_drop_down_part(const RECT& client, LONG split, POINT at) {
    return contains({split, client.top, client.right, client.bottom}, at);
}

}  // namespace WTLControls
