#include <gtest/gtest.h>

#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/ValidationMessages.h"

namespace {

using namespace WTLControls::NumberEditors;

TEST(SystemMessages, TheTranslatedLibraryIsTakenAlone) {
    const validation_messages texts = load_validation_messages(system_messages());
    EXPECT_EQ(texts.at(61712), L"Bitte eine ganze Zahl eingeben.");
    EXPECT_EQ(texts.at(61719), L"Bitte eine positive ganze Zahl eingeben.");
    EXPECT_EQ(texts.at(61713), L"Please enter a number.") << "not that of the second library";
    EXPECT_EQ(texts.at(65209), L"Invalid property value");
}

TEST(SystemMessages, TheirNumbersBecomeForms) {
    const validation_messages texts = load_validation_messages(system_messages());
    EXPECT_EQ(texts.at(61714), L"Bitte eine ganze Zahl von %i bis %i eingeben, 100%i genau.");
    EXPECT_EQ(texts.at(61715), L"Zahl von %f bis %f!");
}

}  // namespace
