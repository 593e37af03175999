#include "unicomp/Simples/interface/FillText.h"

#include <gtest/gtest.h>

namespace Unicomp {
namespace {

TEST(fill_text, replaces_the_placeholders_from_left_to_right) {
    EXPECT_EQ(L"請輸入 1 至 250000 的數值。", fill_text(L"請輸入 %d 至 %d 的數值。", {L"1", L"250000"}));
    EXPECT_EQ(L"at Alpha!", fill_text(L"at %s!", {L"Alpha"}));
}

TEST(fill_text, a_piece_is_data) {
    EXPECT_EQ(L"%s%n-b", fill_text(L"%s-%s", {L"%s%n", L"b"}));
}

TEST(fill_text, surplus_placeholders_stay_and_surplus_pieces_are_left_out) {
    EXPECT_EQ(L"a %d", fill_text(L"%s %d", {L"a"}));
    EXPECT_EQ(L"a", fill_text(L"%s", {L"a", L"b"}));
    EXPECT_EQ(L"", fill_text(L"", {L"a"}));
}

TEST(fill_text, every_other_use_of_the_percent_sign_is_text) {
    EXPECT_EQ(L"%x %% 1 %", fill_text(L"%x %% %d %", {L"1"}));
    EXPECT_EQ(L"%", fill_text(L"%", {L"1"}));
    EXPECT_EQ(L"%1", fill_text(L"%%d", {L"1"}));
}

}  // namespace
}  // namespace Unicomp
