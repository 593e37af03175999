#include "charting/orderdeck/src/tab/ManualSymbol.h"

#include <cstddef>
#include <cstring>

#include "charting/orderdeck/src/tab/Truncate.h"
#include "unicomp/FormatUtil/interface/PriceSteps.h"

namespace OV_OrderDeck {

static_assert(sizeof(SManualSymbol) == 96);
static_assert(offsetof(SManualSymbol, Name) == 0);
static_assert(offsetof(SManualSymbol, Root) == 8);
static_assert(offsetof(SManualSymbol, Description) == 16);
static_assert(offsetof(SManualSymbol, Exchange) == 24);
static_assert(offsetof(SManualSymbol, Category) == 32);
static_assert(offsetof(SManualSymbol, Currency) == 36);
static_assert(offsetof(SManualSymbol, Expiry) == 40);
static_assert(offsetof(SManualSymbol, MinMovement) == 48);
static_assert(offsetof(SManualSymbol, PriceStep) == 56);
static_assert(offsetof(SManualSymbol, BigPointValue) == 64);
static_assert(offsetof(SManualSymbol, PutOrCall) == 72);
static_assert(offsetof(SManualSymbol, StrikePrice) == 80);
static_assert(offsetof(SManualSymbol, Reserved) == 88);

SManualSymbol make_manual_symbol(const CSymbolInfo& symbol) {
    SManualSymbol result;
    std::memset(&result, 0, sizeof(result));
    if (!symbol.valid()) {
        return result;
    }
    result.Name = symbol.Name.copy(false);
    result.Root = symbol.Root.copy(false);
    result.Description = symbol.Description.copy(false);
    result.Exchange = symbol.Exchange.copy(false);
    result.Category = symbol.Category;
    result.Currency = symbol.Currency;
    result.Expiry = symbol.Expiry.ToOleDate();
    result.MinMovement = truncate(symbol.MinMovement);
    // Deliberate: decimal codes are sent as 0.0. Hosts know those scales by the symbol itself.
    result.PriceStep = order_price_step(symbol.PriceScaleCode);
    result.BigPointValue = symbol.BigPointValue;
    result.PutOrCall = symbol.PutOrCall == 1 ? VARIANT_TRUE : VARIANT_FALSE;
    result.StrikePrice = symbol.StrikePrice;
    return result;
}

}  // namespace OV_OrderDeck
