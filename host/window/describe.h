// Tells a script what is on the screen: every window of this thread, in screen coordinates, with the
// texts and items of the standard controls.
#pragma once

#include <string>

namespace host {

// A JSON object: "count", which grows with every description, and "windows", each with handle, parent
// (0 for a top-level window), class, id, text, rect (left, top, right, bottom), visible, enabled and
// focus; combo boxes have items and selected, tab strips items (text, rect) and selected, list views
// rows (texts, rect) and selected, menus items (text, rect, enabled). UTF-8.
std::string describe_windows();

// Writes it in one step, so that a reader never sees half of it. A file that can't be written is left
// for the next time.
void write_description(const std::string& path);

}  // namespace host
