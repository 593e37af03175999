#include "platform/desktop.h"

#include "platform/headless_desktop.h"

namespace platform {

template <>
desktop& port<desktop>::system() {
    static headless_desktop instance;
    return instance;
}

}  // namespace platform
