// The profile menu: the bar's own lines, then those of this application, each with its key.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "window/bar.h"

namespace host {

// A line of this application, and a command that keys are bound to.
struct menu_command {
    // As the keys know it.
    std::string name;
    // As the menu shows it; empty for one that the menu doesn't show.
    std::string text;
    bool enabled = true;
    std::function<void()> run;
};

class trading_menu {
public:
    explicit trading_menu(const bar& order_bar) : m_bar(order_bar) {}

    // What the bar and the application offer now. active is the name of the profile that the bar shows.
    void refresh(const std::string& active, std::vector<menu_command> own);

    // Appends the lines of the last refresh.
    void fill(HMENU menu) const;

    // Runs a line, by its id in the menu or by the name under which keys know it. False when there is none
    // such, or when it can't be used now.
    bool run_line(int id);
    bool run_command(const std::string& name);

    // Gives the bar's objects back.
    void clear();

private:
    struct line {
        std::string command;
        std::string text;
        bool enabled = true;
        bool checked = false;
        std::function<void()> run;
    };
    void add_bar_lines(const std::string& active);

    const bar& m_bar;
    // An empty text is a separator.
    std::vector<line> m_lines;
};

// A text that a menu then shows letter by letter: a single & would only underline what follows it.
std::string literal_menu_text(std::string text);

// The key that a message presses, with its modifiers; 0 for any other message and for a key held down.
std::uint32_t pressed_key(const MSG& message);

}  // namespace host
