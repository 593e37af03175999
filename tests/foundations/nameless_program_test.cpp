// For programs whose version block names no company or no product, or that have none.
#include <gtest/gtest.h>

#include "unicomp/Simples/interface/settings_root.h"

namespace {

TEST(NamelessProgram, HasNoSettingsRoot) {
    EXPECT_EQ(Unicomp::settings_root(), L"");
}

}  // namespace
