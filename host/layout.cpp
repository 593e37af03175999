#include "layout.h"

#include <algorithm>

namespace host {
namespace {

// A title above a pane, in one column.
void split_title(const box& column, int title_height, box& title, box& pane) {
    title = {column.left, column.top, column.right, std::min(column.top + title_height, column.bottom)};
    pane = {column.left, title.bottom, column.right, column.bottom};
}

}  // namespace

frame_layout lay_out(const frame_metrics& metrics) {
    frame_layout result;
    const int width = std::max(metrics.width, 0);
    const int bar_bottom = std::max(metrics.height - metrics.status_height, 0);
    const int bar_top = std::max(bar_bottom - metrics.bar_height, 0);
    result.bar = {0, bar_top, width, bar_bottom};

    const int margin = metrics.margin;
    const int right = std::max(width - margin, margin);
    const int bottom = std::max(bar_top - margin, 0);
    const int middle = std::clamp(margin + metrics.list_width, margin, std::max(width / 2, margin));
    split_title({margin, 0, middle, bottom}, metrics.title_height, result.instruments_title,
                result.instruments);

    // Two thirds for the orders, one for the log.
    const int left = std::min(middle + margin, right);
    const int fold = bottom * 2 / 3;
    split_title({left, 0, right, fold}, metrics.title_height, result.blotter_title, result.blotter);
    split_title({left, fold, right, bottom}, metrics.title_height, result.log_title, result.log);
    return result;
}

}  // namespace host
