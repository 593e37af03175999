#include "propds2/sheet_layout.h"

#include <algorithm>

namespace host {

sheet_places lay_out_sheet(int width, int height, int thousand) {
    const auto scale = [&](int length) { return length * thousand / 1000; };
    const int margin = scale(14);
    const int button_width = scale(88);
    const int button_height = scale(28);
    const int bottom = height - margin;
    const int top = bottom - button_height;
    const int right = width - margin;
    sheet_places places;
    places.cancel = {right - button_width, top, right, bottom};
    places.ok = {places.cancel.left - scale(8) - button_width, top, places.cancel.left - scale(8), bottom};
    places.page = {margin, margin, std::max(right, margin), std::max(top - margin, margin)};
    return places;
}

}  // namespace host
