#pragma once

#include <windows.h>

namespace frame {

// Windows made while this lives get version 6 of the common controls, whatever the manifest of the
// process says: the module carries its own as resource 2. Without that resource nothing changes.
class common_controls_scope {
public:
    common_controls_scope();
    ~common_controls_scope();
    common_controls_scope(const common_controls_scope&) = delete;
    common_controls_scope& operator=(const common_controls_scope&) = delete;

private:
    bool m_active = false;
    ULONG_PTR m_cookie = 0;
};

}  // namespace frame
