#include "services/quantity_calculator.h"

#include <gtest/gtest.h>

namespace host {
namespace {

class HostQuantity : public ::testing::Test {
protected:
    ref<quantity_calculator> m_calculator =
        make<quantity_calculator>([this](HWND owner, LONG quantity, LONG category) {
            m_owner = owner;
            m_quantity = quantity;
            m_category = category;
            return m_answer;
        });
    HWND m_owner = nullptr;
    LONG m_quantity = 0;
    LONG m_category = 0;
    std::optional<LONG> m_answer;
};

TEST_F(HostQuantity, TheCalculatorIsAskedOverTheEditsWindow) {
    m_answer = 700;
    LONG result = 0;
    EXPECT_EQ(m_calculator->Calculate(0x456, 300, 2, &result), S_OK);
    EXPECT_EQ(result, 700);
    EXPECT_EQ(m_owner, reinterpret_cast<HWND>(0x456));
    EXPECT_EQ(m_quantity, 300);
    EXPECT_EQ(m_category, 2);
}

TEST_F(HostQuantity, GivingUpIsAFailureThatWritesNothing) {
    LONG result = 300;
    EXPECT_EQ(m_calculator->Calculate(0x456, 300, 2, &result), E_ABORT);
    EXPECT_EQ(result, 300);
}

TEST_F(HostQuantity, AnAnswerNeedsAPlace) {
    EXPECT_EQ(m_calculator->Calculate(0x456, 300, 2, nullptr), E_POINTER);
    EXPECT_EQ(m_owner, nullptr);
}

TEST_F(HostQuantity, ItIsFoundByItsOwnInterfaceOnly) {
    EXPECT_TRUE(query<IQuantityCalculator>(m_calculator->unknown()));
    EXPECT_FALSE(query<IProfileEditor>(m_calculator->unknown()));
}

}  // namespace
}  // namespace host
