// The dialog items of the panel and the fields that they stand for.
#pragma once

#include "charting/orderdeck/interface/OD_UpdateEntity.h"

namespace OV_OrderDeck {

namespace PanelItem {

inline constexpr int Symbol = 203;
inline constexpr int OrderType = 206;
inline constexpr int Quantity = 209;
inline constexpr int FirstSpin = 213;
inline constexpr int FirstPrice = 214;
inline constexpr int SecondSpin = 216;
inline constexpr int SecondPrice = 217;
inline constexpr int Account = 220;
inline constexpr int TimeInForce = 222;
inline constexpr int Buy = 225;
inline constexpr int Sell = 227;
inline constexpr int GtdDate = 228;
inline constexpr int AskBid = 231;

}  // namespace PanelItem

// The field of a dialog item; a spin stands for its price. Throws std::out_of_range.
OD_UpdateEntity entity_of_item(int item);

// The dialog item that shows a field, the edit for a price. Throws std::out_of_range for anything but
// one bit of a field.
int item_of_entity(OD_UpdateEntity entity);

// True for the two prices.
bool has_spin(OD_UpdateEntity entity);

// The dialog item of a price's spin. Throws std::out_of_range for any other field.
int spin_of_entity(OD_UpdateEntity entity);

}  // namespace OV_OrderDeck
