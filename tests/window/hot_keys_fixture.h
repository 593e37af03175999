// The hot key library that lies beside this program, with the keys that a test binds.
#pragma once

#include <gtest/gtest.h>

#include "platform/module.h"
#include "tests/hot_keys_library/told_hot_keys.h"

namespace window_tests {

// Forgets everything at its start and at its end.
class hot_keys {
public:
    hot_keys() { told().clear(); }
    ~hot_keys() { told().clear(); }
    hot_keys(const hot_keys&) = delete;
    hot_keys& operator=(const hot_keys&) = delete;

    static told_hot_keys& told() {
        static told_hot_keys& library = *reinterpret_cast<HK_ToldFunction>(
            platform::find_export(platform::load_library(L"HotKeyServices.dll"), "HK_Told"))();
        return library;
    }
};

}  // namespace window_tests
