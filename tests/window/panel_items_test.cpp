#include "charting/orderdeck/src/window/PanelItems.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <stdexcept>
#include <string>

namespace {

using namespace OV_OrderDeck;

const std::map<int, unsigned> bits = {
    {203, 0x80},   {206, 0x100},  {209, 0x200},  {213, 0x400},  {214, 0x400},   {216, 0x800},  {217, 0x800},
    {220, 0x1000}, {222, 0x2000}, {228, 0x4000}, {231, 0x8000}, {225, 0x10000}, {227, 0x20000}};

template <class Call>
std::string out_of_range_text(Call call) {
    try {
        call();
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "nothing raised";
}

TEST(PanelItems, EachItemStandsForItsFieldAndASpinForItsPrice) {
    for (const auto& [item, bit] : bits) {
        EXPECT_EQ(static_cast<unsigned>(entity_of_item(item)), bit) << item;
    }
}

TEST(PanelItems, AnyOtherItemIsAnUnknownControlId) {
    for (int item = -300; item < 600; ++item) {
        if (!bits.contains(item)) {
            EXPECT_EQ(out_of_range_text([&] { entity_of_item(item); }), "Unknown control id") << item;
        }
    }
}

TEST(PanelItems, AFieldIsShownByItsItemAndAPriceByItsEdit) {
    for (const auto& [item, bit] : bits) {
        const int shown_by = item == 213 ? 214 : item == 216 ? 217 : item;
        EXPECT_EQ(item_of_entity(static_cast<OD_UpdateEntity>(bit)), shown_by);
    }
}

TEST(PanelItems, AnyOtherBitIsAnUnknownSourceId) {
    for (const unsigned bit : {0u, 1u, 2u, 4u, 0x40u, 0x180u, 0xC00u, 0x40000u, 0x3FF80u}) {
        EXPECT_EQ(out_of_range_text([&] { item_of_entity(static_cast<OD_UpdateEntity>(bit)); }),
                  "Unknown source id")
            << bit;
    }
}

TEST(PanelItems, OnlyThePricesHaveASpin) {
    EXPECT_EQ(spin_of_entity(eODUE_FirstPrice), 213);
    EXPECT_EQ(spin_of_entity(eODUE_SecondPrice), 216);
    for (unsigned bit = 1; bit <= 0x80000; bit <<= 1) {
        const auto entity = static_cast<OD_UpdateEntity>(bit);
        const bool price = bit == 0x400 || bit == 0x800;
        EXPECT_EQ(has_spin(entity), price) << bit;
        if (!price) {
            EXPECT_EQ(out_of_range_text([&] { spin_of_entity(entity); }), "Unknown control id") << bit;
        }
    }
}

}  // namespace
