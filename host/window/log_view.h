// A pane of lines, the newest at the end.
#pragma once

#include <windows.h>

#include <string>

namespace host {

class log_view {
public:
    log_view(HWND parent, int id);

    HWND handle() const { return m_window; }

    // Appends one line, UTF-8. When the pane is full its older half goes.
    void append(const std::string& line);

private:
    HWND m_window;
};

}  // namespace host
