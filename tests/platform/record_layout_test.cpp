#include <OrderDeck.h>
#include <TradingCenter.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "platform/com.h"

// Hosts are built apart from the component, so these numbers are the contract.
static_assert(sizeof(OD_SSymbolInfo) == 112);
static_assert(offsetof(OD_SSymbolInfo, id) == 0);
static_assert(offsetof(OD_SSymbolInfo, DataFeed) == 8);
static_assert(offsetof(OD_SSymbolInfo, Name) == 16);
static_assert(offsetof(OD_SSymbolInfo, Root) == 24);
static_assert(offsetof(OD_SSymbolInfo, Description) == 32);
static_assert(offsetof(OD_SSymbolInfo, Exchange) == 40);
static_assert(offsetof(OD_SSymbolInfo, ExchangeTZI) == 48);
static_assert(offsetof(OD_SSymbolInfo, Category) == 56);
static_assert(offsetof(OD_SSymbolInfo, Currency) == 60);
static_assert(offsetof(OD_SSymbolInfo, Expiry) == 64);
static_assert(offsetof(OD_SSymbolInfo, PriceScaleCode) == 72);
static_assert(offsetof(OD_SSymbolInfo, MinMovement) == 80);
static_assert(offsetof(OD_SSymbolInfo, BigPointValue) == 88);
static_assert(offsetof(OD_SSymbolInfo, PutOrCall) == 96);
static_assert(offsetof(OD_SSymbolInfo, StrikePrice) == 104);

static_assert(sizeof(OD_SSymbolReq) == 32);
static_assert(offsetof(OD_SSymbolReq, Name) == 0);
static_assert(offsetof(OD_SSymbolReq, Exchange) == 8);
static_assert(offsetof(OD_SSymbolReq, DataFeed) == 16);
static_assert(offsetof(OD_SSymbolReq, Category) == 24);

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

// Fixed, so that any number of a host's fits: were it left to the compiler, one that the enumeration does not
// name could be out of its range.
template <class Enumeration>
constexpr bool is_long = std::is_same_v<std::underlying_type_t<Enumeration>, LONG>;
static_assert(std::is_signed_v<LONG>);
static_assert(is_long<ETM_ConnectionChanged> && is_long<ETM_ChangeTypeOfEvent>);
static_assert(is_long<MTPA_OrdrActn> && is_long<MTPA_OrdrCtgry> && is_long<MTPA_TimeInForce> &&
              is_long<OD_PressSource>);
static_assert(is_long<OD_LookupResult> && is_long<OD_Commands>);
static_assert(is_long<tagOVFIELDID> && is_long<ESymbolCategory>);
// Without a fixed type these would be no constants.
static_assert(static_cast<LONG>(ETM_ConnectionChanged{0x400}) == 0x400);
static_assert(static_cast<LONG>(OD_LookupResult{-1}) == -1);

static_assert(sizeof(LONG) == 4 && sizeof(ULONG) == 4 && sizeof(DWORD) == 4 && sizeof(HRESULT) == 4);
static_assert(sizeof(BOOL) == 4 && sizeof(VARIANT_BOOL) == 2 && sizeof(VARTYPE) == 2);
static_assert(sizeof(LONGLONG) == 8 && sizeof(ULONGLONG) == 8 && sizeof(DATE) == 8);
static_assert(sizeof(WPARAM) == 8 && sizeof(LPARAM) == 8 && sizeof(LRESULT) == 8 && sizeof(HWND) == 8);
static_assert(sizeof(GUID) == 16);
static_assert(sizeof(VARIANT) == 24);
static_assert(offsetof(VARIANT, vt) == 0);
static_assert(offsetof(VARIANT, llVal) == 8);
static_assert(sizeof(SAFEARRAYBOUND) == 8);
static_assert(sizeof(RECT) == 16 && sizeof(POINT) == 8 && sizeof(SYSTEMTIME) == 16 && sizeof(FILETIME) == 8);

static_assert(VT_EMPTY == 0 && VT_NULL == 1 && VT_I2 == 2 && VT_I4 == 3 && VT_R4 == 4 && VT_R8 == 5);
static_assert(VT_DATE == 7 && VT_BSTR == 8 && VT_DISPATCH == 9 && VT_ERROR == 10 && VT_BOOL == 11);
static_assert(VT_VARIANT == 12 && VT_UNKNOWN == 13 && VT_UI1 == 17 && VT_UI2 == 18 && VT_UI4 == 19);
static_assert(VT_I8 == 20 && VT_UI8 == 21 && VT_INT == 22 && VT_UINT == 23);
static_assert(VT_ARRAY == 0x2000 && VT_BYREF == 0x4000);
static_assert(VARIANT_TRUE == -1 && VARIANT_FALSE == 0);

namespace {

TEST(RecordLayout, InterfaceIdsComeFromTheDefinition) {
    wchar_t text[39];
    ASSERT_EQ(StringFromGUID2(__uuidof(IOD_OrderDeckDriver), text, 39), 39);
    EXPECT_STREQ(text, L"{86B13C72-9902-432D-8AFB-EB88AFC2D043}");
    ASSERT_EQ(StringFromGUID2(__uuidof(ITC_ItemsChanged), text, 39), 39);
    EXPECT_STREQ(text, L"{3DD2CE32-61B4-483C-A7F2-765BDA9C5992}");
    ASSERT_EQ(StringFromGUID2(CLSID_TradingCenter, text, 39), 39);
    EXPECT_STREQ(text, L"{CBF382C6-F391-4D87-8EB7-866434CC0D8C}");
}

TEST(RecordLayout, AnIdIsThatOfThePointedToType) {
    ITC_ManualTrading* pointer = nullptr;
    EXPECT_TRUE(IsEqualIID(__uuidof(pointer), __uuidof(ITC_ManualTrading)));
    EXPECT_TRUE(IsEqualIID(__uuidof(ITC_ManualTrading*), __uuidof(ITC_ManualTrading)));
}

}  // namespace
