// The order bar as its host uses it.
#pragma once

#include <OrderDeck.h>

#include <string>
#include <vector>

#include "com/object.h"
#include "market/instruments.h"

namespace host {

// One line of the profile menu. An empty name is a separator.
struct bar_command {
    std::string name;
    bool enabled = false;
    bool checked = false;
    ref<IOD_ProfileCmd> command;
};

class bar {
public:
    bar() = default;
    ~bar() { destroy(); }
    bar(const bar&) = delete;
    bar& operator=(const bar&) = delete;

    // Makes the bar in the parent. on_command may be null. Gives the result of the component.
    HRESULT create(ISWUnifyAccess* root, HWND parent, IUnknown* on_command);

    // Null before create and after destroy.
    HWND window() const { return m_window; }

    // Asks the bar to make its tabs now, without waiting for the first demand.
    void fill();

    // The height in pixels at which the whole order row shows.
    int height() const;

    std::vector<bar_command> commands() const;
    std::string status_line() const;

    // The outer id of the profile whose tab shows; empty for none.
    std::string active_tab() const;

    // Gives the instrument to the tab that shows. False when there is no tab or it refused.
    bool choose(const instrument& one);

    // False when the user wants to go on. Nothing is lost then.
    bool close();
    void destroy();

private:
    ref<ISWUnifyAccess> m_root;
    ref<IOD_BrokerProfiles> m_profiles;
    ref<IOD_OrderDeckDriver> m_driver;
    HWND m_window = nullptr;
};

}  // namespace host
