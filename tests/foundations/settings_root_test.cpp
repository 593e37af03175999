#include "unicomp/Simples/interface/settings_root.h"

#include <gtest/gtest.h>

namespace {

TEST(SettingsRoot, IsMadeOfTheProgramsCompanyAndProduct) {
    EXPECT_EQ(Unicomp::settings_root(), L"SOFTWARE\\OrderDeck Tests\\foundations_tests");
}

}  // namespace
