// Where the panes of the frame stand, in client pixels.
#pragma once

namespace host {

struct box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool operator==(const box&) const = default;
};

struct frame_layout {
    box instruments_title;
    box instruments;
    box blotter_title;
    box blotter;
    box log_title;
    box log;
    // Over the full width, directly above the status line.
    box bar;
};

// What the layout goes by; all lengths in pixels.
struct frame_metrics {
    int width = 0;
    int height = 0;
    int status_height = 0;
    int bar_height = 0;
    int margin = 0;
    int title_height = 0;
    // The width that the list of instruments would like; it never gets more than half.
    int list_width = 0;
};

// The bar keeps its height as long as the frame has any; the panes share what is left, and never have a
// negative size.
frame_layout lay_out(const frame_metrics& metrics);

}  // namespace host
