#include "charting/orderdeck/src/window/PanelItems.h"

#include <stdexcept>

namespace OV_OrderDeck {

namespace {

struct row {
    int item;
    OD_UpdateEntity entity;
};

constexpr row rows[] = {
    {PanelItem::Symbol, eODUE_Symbol},
    {PanelItem::OrderType, eODUE_OrderType},
    {PanelItem::Quantity, eODUE_Quantity},
    {PanelItem::FirstPrice, eODUE_FirstPrice},
    {PanelItem::SecondPrice, eODUE_SecondPrice},
    {PanelItem::Account, eODUE_Account},
    {PanelItem::TimeInForce, eODUE_TimeInForce},
    {PanelItem::GtdDate, eODUE_GtdDate},
    {PanelItem::AskBid, eODUE_AskBid},
    {PanelItem::Buy, eODUE_Buy},
    {PanelItem::Sell, eODUE_Sell},
};

constexpr row spins[] = {
    {PanelItem::FirstSpin, eODUE_FirstPrice},
    {PanelItem::SecondSpin, eODUE_SecondPrice},
};

template <std::size_t Count>
const row* find_item(const row (&table)[Count], int item) {
    for (const row& each : table) {
        if (each.item == item) {
            return &each;
        }
    }
    return nullptr;
}

template <std::size_t Count>
const row* find_entity(const row (&table)[Count], OD_UpdateEntity entity) {
    for (const row& each : table) {
        if (each.entity == entity) {
            return &each;
        }
    }
    return nullptr;
}

}  // namespace

OD_UpdateEntity entity_of_item(int item) {
    const row* found = find_item(rows, item);
    if (found == nullptr) {
        found = find_item(spins, item);
    }
    if (found == nullptr) {
        throw std::out_of_range("Unknown control id");
    }
    return found->entity;
}

int item_of_entity(OD_UpdateEntity entity) {
    const row* const found = find_entity(rows, entity);
    if (found == nullptr) {
        throw std::out_of_range("Unknown source id");
    }
    return found->item;
}

bool has_spin(OD_UpdateEntity entity) {
    return find_entity(spins, entity) != nullptr;
}

int spin_of_entity(OD_UpdateEntity entity) {
    const row* const found = find_entity(spins, entity);
    if (found == nullptr) {
        throw std::out_of_range("Unknown control id");
    }
    return found->item;
}

}  // namespace OV_OrderDeck
