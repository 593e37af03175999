#pragma once

namespace OV_OrderDeck {

// One bit per field of the order row. The same bits, with those of UpdateMask, make up an update mask.
enum OD_UpdateEntity : unsigned {
    eODUE_Symbol = 0x80,
    eODUE_OrderType = 0x100,
    eODUE_Quantity = 0x200,
    // The trigger of stop and stop limit orders.
    eODUE_FirstPrice = 0x400,
    // The limit of limit and stop limit orders.
    eODUE_SecondPrice = 0x800,
    eODUE_Account = 0x1000,
    eODUE_TimeInForce = 0x2000,
    eODUE_GtdDate = 0x4000,
    eODUE_AskBid = 0x8000,
    eODUE_Buy = 0x10000,
    eODUE_Sell = 0x20000
};

namespace UpdateMask {

// The three bits that are not fields.
inline constexpr unsigned Name = 0x1;
inline constexpr unsigned Repaint = 0x2;
inline constexpr unsigned ConnectionState = 0x4;

inline constexpr unsigned AllFields = 0x3FF80;
inline constexpr unsigned AllFieldsAndRepaint = 0x3FF82;
inline constexpr unsigned AllFieldsRepaintConnection = 0x3FF86;
inline constexpr unsigned Everything = 0x3FF87;
// Sell, Buy, time in force and both prices. The date has no part in a change of order type.
inline constexpr unsigned OrderType = 0x32C00;
inline constexpr unsigned Buttons = 0x30000;
inline constexpr unsigned Prices = 0xC00;

}  // namespace UpdateMask

}  // namespace OV_OrderDeck
