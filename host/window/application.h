// The whole application: the desk, the classes that the bar creates, the frame and the bar.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "centre/trading_centre.h"
#include "com/class_object.h"
#include "window/bar.h"
#include "window/component.h"
#include "window/frame.h"
#include "window/timer_scheduler.h"
#include "window/trading_menu.h"

namespace host {

class application final : public frame_events {
public:
    // Throws std::runtime_error. COM must be initialised on this thread, as an apartment.
    explicit application(const options& settings);
    ~application() override;

    // Runs the message loop until the window is closed; gives the exit code.
    int run();

private:
    // A file with faults, or none, is told in the log; what is traded from the start needs no file.
    void load_symbols();
    void register_classes();
    void start_bar();
    // The problem is kept for the log.
    profile_list read_profiles();
    void keep_profiles();
    std::filesystem::path profiles_file() const;
    void edit_profiles(HWND owner);
    void map_symbols(HWND owner, const std::string& name);
    void show_settings(const std::string& outer_id);
    void load_hot_keys();
    // The profile whose tab shows; null for none.
    const profile* active_profile() const;
    void refresh_menu();
    void log(const std::string& text);
    void refresh_status();

    void on_choose(int instrument_id) override;
    void on_cancel(int order_id) override;
    void on_cancel_all() override;
    void on_tick() override;
    void on_describe() override;
    void fill_profile_menu(HMENU menu) override;
    bool on_key(std::uint32_t key) override;
    void on_profile_command(int id) override;
    bool may_close() override;
    void on_closing() override;

    options m_settings;
    desk m_desk;
    timer_scheduler m_scheduler;
    LONG m_masters = 0;
    std::string m_profiles_problem;
    ref<profiles> m_profiles;
    // Before the registry, so that no class is created while the frame is gone.
    std::unique_ptr<frame> m_frame;
    class_registry m_classes;
    std::unique_ptr<component> m_component;
    bar m_bar;
    trading_menu m_menu{m_bar};
};

}  // namespace host
