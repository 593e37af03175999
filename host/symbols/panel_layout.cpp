#include "symbols/panel_layout.h"

#include <algorithm>

namespace host {

symbol_panel_places lay_out_symbols(int width, int height, int line_height, int thousand) {
    const auto scale = [&](int length) { return length * thousand / 1000; };
    const int gap = scale(8);
    const int label_height = scale(18);
    const int feed_width = std::clamp(width / 3, scale(120), scale(220));
    const int feed_left = std::max(width - feed_width, 0);
    const int text_right = std::max(feed_left - gap, 0);
    const int list_top = label_height + line_height + gap;
    const int count_top = std::max(height - label_height, list_top);
    symbol_panel_places places;
    places.text_label = {0, 0, text_right, label_height};
    places.text = {0, label_height, text_right, label_height + line_height};
    places.feed_label = {feed_left, 0, width, label_height};
    places.feed = {feed_left, label_height, width, label_height + line_height};
    places.list = {0, list_top, width, std::max(count_top - scale(6), list_top)};
    places.count = {0, count_top, width, count_top + label_height};
    return places;
}

}  // namespace host
