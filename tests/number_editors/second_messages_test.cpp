#include <gtest/gtest.h>

#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/ValidationMessages.h"

namespace {

using namespace WTLControls::NumberEditors;

TEST(SystemMessages, WithoutTheTranslatedLibraryTheOtherIsTaken) {
    const validation_messages texts = load_validation_messages(system_messages());
    EXPECT_EQ(texts.at(61712), L"An integer, please.");
    EXPECT_EQ(texts.at(61713), L"A number, please.");
    EXPECT_EQ(texts.at(61714), L"From %i to %i, please.");
    EXPECT_EQ(texts.at(61719), L"Please enter a positive integer.");
}

}  // namespace
