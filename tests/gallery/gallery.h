// Pictures of the controls. An entry names a control, lists its states and puts it on a stage in one of
// them; the gallery does the rest: every state at every resolution in every look becomes a PNG file, and
// a picture that shows nothing, or a text that is hard to read, fails. To add a control, write a file
// beside this one with a constant of type gallery::entry and list it in CMakeLists.txt.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace gallery {

enum class look { styled, classic, high_contrast };

// The ground that a control stands on: a window of its own with a font for its resolution. What is put on
// it ends with it.
class stage {
public:
    stage(look wanted, UINT dpi);
    ~stage();
    stage(const stage&) = delete;
    stage& operator=(const stage&) = delete;

    HWND parent() const { return m_parent; }
    HFONT font() const { return m_font; }
    look get_look() const { return m_look; }
    // Pixels of this resolution for pixels of 96 to the inch.
    int scaled(int pixels) const { return MulDiv(pixels, static_cast<int>(m_dpi), 96); }
    // A visible child in the stage's font; the size is that of 96 to the inch.
    HWND put(const wchar_t* window_class, const wchar_t* text, DWORD style, SIZE size, DWORD ex_style = 0);

private:
    look m_look;
    UINT m_dpi;
    HFONT m_font;
    HWND m_parent;
};

// A text and the ground that a painter puts it on, as it tells them.
struct face {
    COLORREF text;
    COLORREF ground;
};

// What is photographed. The owner is the control's object and lives until the picture is made.
struct shown {
    HWND window = nullptr;
    std::shared_ptr<void> owner;
    std::vector<face> faces;
};

struct state {
    std::string name;
    // Its text must stand out. Not for what can't be used, and for what has no text.
    bool readable = true;
};

class entry {
public:
    using maker = std::function<shown(stage& on, const std::string& state)>;

    entry(std::string name, std::vector<state> states, maker make);

    std::string name;
    std::vector<state> states;
    maker make;

    // Every entry of the program.
    static std::vector<const entry*>& all();
};

// Serves the messages that wait.
void pump();

}  // namespace gallery
