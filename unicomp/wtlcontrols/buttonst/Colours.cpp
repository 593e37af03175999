#include "unicomp/wtlcontrols/buttonst/Colours.h"

#include <algorithm>
#include <cmath>

namespace WTLControls {

namespace {

constexpr COLORREF black = make_colour(0, 0, 0);
constexpr COLORREF white = make_colour(255, 255, 255);
// What readers with weak sight need.
constexpr double readable_contrast = 4.5;
constexpr int opaque = 255;

constexpr int channel(COLORREF colour, unsigned index) {
    return static_cast<int>(colour >> (8U * index) & 0xFFU);
}

template <class Operation>
COLORREF each_channel(Operation&& operation) {
    COLORREF result = 0;
    for (unsigned index = 0; index < 3; ++index) {
        result |= static_cast<COLORREF>(std::clamp(operation(index), 0, 255)) << (8U * index);
    }
    return result;
}

double linear(int value) {
    const double part = value / 255.0;
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(COLORREF colour) {
    return 0.2126 * linear(channel(colour, 0)) + 0.7152 * linear(channel(colour, 1)) +
           0.0722 * linear(channel(colour, 2));
}

double worst_contrast(COLORREF text, COLORREF top, COLORREF bottom) {
    return std::min(contrast(text, top), contrast(text, bottom));
}

}  // namespace

COLORREF shifted(COLORREF colour, int by) {
    return each_channel([&](unsigned index) { return channel(colour, index) + by; });
}

COLORREF between(COLORREF from, COLORREF to, int step, int last) {
    return each_channel([&](unsigned index) {
        const int start = channel(from, index);
        return static_cast<int>(std::lround(start + (channel(to, index) - start) * (1.0 * step / last)));
    });
}

COLORREF blended(COLORREF over, COLORREF under, int alpha) {
    return between(under, over, alpha, opaque);
}

double contrast(COLORREF one, COLORREF other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

COLORREF readable_text(COLORREF preferred, COLORREF top, COLORREF bottom) {
    if (worst_contrast(preferred, top, bottom) >= readable_contrast) {
        return preferred;
    }
    return worst_contrast(black, top, bottom) >= worst_contrast(white, top, bottom) ? black : white;
}

}  // namespace WTLControls
