// The frame window: instruments, orders, log, the order bar at the bottom and the status line.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include "market/desk.h"
#include "options.h"
#include "window/blotter_view.h"
#include "window/instrument_view.h"
#include "window/log_view.h"

namespace host {

// What the user and the clock do to the frame. All on the thread of the frame.
class frame_events {
public:
    virtual ~frame_events() = default;

    virtual void on_choose(int instrument_id) = 0;
    virtual void on_cancel(int order_id) = 0;
    virtual void on_cancel_all() = 0;
    // Twice a second.
    virtual void on_tick() = 0;
    // Ten times a second, when windows are to be described.
    virtual void on_describe() = 0;
    // The profile menu is about to open; it is empty.
    virtual void fill_profile_menu(HMENU menu) = 0;
    // A key with its modifiers, as hot keys are told; true when it ran a command.
    virtual bool on_key(std::uint32_t key) = 0;
    // id: from IDM_PROFILE_FIRST on.
    virtual void on_profile_command(int id) = 0;
    // The user wants to close the window; false keeps it.
    virtual bool may_close() = 0;
    // The window goes now, its children still live.
    virtual void on_closing() = 0;
};

class frame {
public:
    // The window is made but not shown. Throws std::runtime_error.
    frame(const options& settings, const desk& paper, frame_events& events);
    ~frame();
    frame(const frame&) = delete;
    frame& operator=(const frame&) = delete;

    HWND handle() const { return m_window; }
    void show() { ShowWindow(m_window, SW_SHOW); }

    // Docks a child window at the bottom.
    void dock(HWND bar, int height);
    // Says in the place of the bar why there is none.
    void show_no_bar(const std::string& why);

    instrument_view& instruments() { return *m_instruments; }
    blotter_view& blotter() { return *m_blotter; }
    log_view& log() { return *m_log; }
    void set_status(const std::string& left, const std::string& right);

    // Greys the menus while a modal action of the bar runs.
    void lock(bool locked);

    // Gives a message of the loop to the accelerators and to the bar's dialog keys first. True when it
    // was used up.
    bool translate(MSG& message);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handle_message(UINT message, WPARAM wparam, LPARAM lparam);
    void make_children(const desk& paper);
    HWND make_static(int id, const wchar_t* text);
    void arrange();
    LRESULT on_notify(const NMHDR& notice);
    void on_list_notice(const NMHDR& notice);
    void on_command(int id);
    void on_menu_popup(HMENU menu);
    void on_context_menu(HWND source, POINT where);
    void on_container_notice(HWND dialog, bool registered);
    void on_timer(WPARAM id);
    void next_pane();

    frame_events& m_events;
    HWND m_window = nullptr;
    HWND m_status = nullptr;
    HWND m_bar = nullptr;
    int m_bar_height;
    HACCEL m_accelerators;
    std::unique_ptr<instrument_view> m_instruments;
    std::unique_ptr<blotter_view> m_blotter;
    std::unique_ptr<log_view> m_log;
    // Child windows with dialog keys, as they registered themselves.
    std::set<HWND> m_dialogs;
    // Where the focus was when the window was left.
    HWND m_last_focus = nullptr;
};

}  // namespace host
