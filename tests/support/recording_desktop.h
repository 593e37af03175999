#pragma once

#include "platform/headless_desktop.h"

namespace test {

// Stands in for the system's desktop while it lives, on both systems.
class recording_desktop : public platform::headless_desktop {
    platform::port<platform::desktop>::replacement m_replacement{*this};
};

}  // namespace test
