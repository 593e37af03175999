// What hosts rely on in binary form: ids, numbers and slots of the interfaces to their symbols.
#include <gtest/gtest.h>

#include "OrderDeck.h"
#include "tests/support/interface_order.h"

namespace {

using test::has_id;
using test::place;

bool is(const GUID& guid, const wchar_t* text) {
    GUID id{};
    return SUCCEEDED(CLSIDFromString(text, &id)) && IsEqualGUID(id, guid);
}

TEST(SymbolInterfaces, HaveTheirFixedIds) {
    EXPECT_TRUE(has_id<IOV_ovudfcom::IovTable>(L"{54fceebc-4895-4218-ad5d-4585eed16187}"));
    EXPECT_TRUE(has_id<ISymbolQuery>(L"{108fc619-6494-44cd-a4d6-571ec824aa41}"));
    EXPECT_TRUE(has_id<ISymbolRequest>(L"{97f864c8-1c95-4172-8c6b-68253384606f}"));
    EXPECT_TRUE(has_id<ICurrencyLookup>(L"{f9b1e718-3cf5-4d69-9876-4eff1126aefc}"));
    EXPECT_TRUE(has_id<IDataProperty>(L"{b0d19e11-65ea-4486-80bb-78300bdcf497}"));
    EXPECT_TRUE(has_id<pManageSeries>(L"{1f22017b-73d7-4bcc-8804-8eed9fa24c17}"));
    EXPECT_TRUE(has_id<IQuickRequest>(L"{60bbe753-660d-4328-b19b-660d51f38dfa}"));
    EXPECT_TRUE(has_id<IQVPropertyContext>(L"{4d23fb77-547c-423d-a8cf-cea51d193bcb}"));
}

TEST(SymbolInterfaces, ClassesAndPagesHaveTheirFixedIds) {
    EXPECT_TRUE(is(CLSID_SymbolQuery, L"{6420c495-6565-4135-b8ae-9a60811b86d9}"));
    EXPECT_TRUE(is(CLSID_IovTable, L"{dc64887e-319c-4bdf-bc19-f70a04f5e9b5}"));
    EXPECT_TRUE(is(CLSID_SymbolRequest, L"{4b4f5bec-efc5-45da-858c-b3998695c802}"));
    EXPECT_TRUE(is(CLSID_DataProperty, L"{cfc3fbb8-5aa3-45c1-9c95-e106c5df8075}"));
    EXPECT_TRUE(is(GUID_SymbolPage, L"{c80796f8-ce0a-4678-a616-eb678e4c7260}"));
    EXPECT_TRUE(is(GUID_InstrumentPage, L"{2346c6b4-23b4-4473-86bd-34662521b552}"));
}

TEST(SymbolInterfaces, OperationsOfTheTablesKeepTheirPlaces) {
    EXPECT_EQ(place(&IovTable::get_Field), 15U);
    EXPECT_EQ(place(&IovTable::MoveFirst), 24U);
    EXPECT_EQ(place(&IovTable::MoveNext), 27U);
    EXPECT_EQ(place(&IovTable::get_EndOfTable), 28U);
    EXPECT_EQ(place(&ISymbolRequest::put_Symbol), 22U);
    EXPECT_EQ(place(&ISymbolQuery::QuerySymbols), 35U);
    EXPECT_EQ(place(&ISymbolQuery::get_DataFeedId), 43U);
    EXPECT_EQ(place(&ISymbolQuery::get_ExchangeId), 44U);
    EXPECT_EQ(place(&ISymbolQuery::get_SymbolId), 45U);
    EXPECT_EQ(place(&ISymbolQuery::QuerySecondTable), 49U);
    EXPECT_EQ(place(&ICurrencyLookup::get_Currency), 9U);
}

TEST(SymbolInterfaces, OperationsOfTheDialogKeepTheirPlaces) {
    EXPECT_EQ(place(&IDataProperty::Prepare), 4U);
    EXPECT_EQ(place(&IDataProperty::OnDialogEnd), 5U);
    EXPECT_EQ(place(&IDataProperty::get_Dialog), 10U);
    EXPECT_EQ(place(&pManageSeries::put_Mode), 4U);
    EXPECT_EQ(place(&IQuickRequest::get_DataFeed), 8U);
    EXPECT_EQ(place(&IQuickRequest::put_DataFeed), 9U);
    EXPECT_EQ(place(&IQuickRequest::put_Description), 13U);
    EXPECT_EQ(place(&IQuickRequest::put_Kind), 41U);
    EXPECT_EQ(place(&IQuickRequest::put_Name), 45U);
    EXPECT_EQ(place(&IQuickRequest::get_DataFeedId), 46U);
    EXPECT_EQ(place(&IQuickRequest::get_SymbolId), 47U);
    EXPECT_EQ(place(&IQuickRequest::Select), 50U);
    EXPECT_EQ(place(&IOV_QVDlg::IQVDlgSymbols::put_Filter), 25U);
}

TEST(SymbolInterfaces, ColumnsHaveTheirNumbers) {
    EXPECT_EQ(eOVF_PriceScaleCode, 5);
    EXPECT_EQ(eOVF_Exchange, 17);
    EXPECT_EQ(eOVF_Name, 31);
    EXPECT_EQ(eOVF_StrikePrice, 32);
    EXPECT_EQ(eOVF_Description, 62);
    EXPECT_EQ(eOVF_Expiry, 102);
    EXPECT_EQ(eOVF_Category, 190);
    EXPECT_EQ(eOVF_DataFeedId, 207);
    EXPECT_EQ(eOVF_DataFeed, 208);
    EXPECT_EQ(eOVF_Root, 209);
    EXPECT_EQ(eOVF_BigPointValue, 217);
    EXPECT_EQ(eOVF_MinMovement, 218);
    EXPECT_EQ(eOVF_PutOrCall, 224);
    EXPECT_EQ(eOVF_CurrencyKey, 1013);
    EXPECT_EQ(eOVF_ExchangeTZI, 1015);
    EXPECT_EQ(eOVF_Id, 1016);
    EXPECT_EQ(eOVF_SecondId, 1102);
    EXPECT_EQ(eSC_SecondTable, 18);
    EXPECT_EQ(eSC_None, 254);
}

TEST(LookupInterfaces, OperationsOfTheServiceKeepTheirPlaces) {
    EXPECT_TRUE(has_id<IOD_LookupImpl>(L"{8f5b5d00-d09c-4dc5-965c-98386dc2491d}"));
    EXPECT_TRUE(is(__uuidof(LookupImpl), L"{63afe10e-1d65-4006-aa5e-ab090a2876f8}"));
    EXPECT_EQ(place(&IOD_LookupImpl::Initialize), 4U);
    EXPECT_EQ(place(&IOD_LookupImpl::GetSymbolInfo), 5U);
    EXPECT_EQ(place(&IOD_LookupImpl::GetSymbolInfoById), 6U);
    EXPECT_EQ(place(&IOD_LookupImpl::GetSymbolInfoByReq), 7U);
    EXPECT_EQ(place(&IOD_LookupImpl::IsPluginSupported), 8U);
    EXPECT_EQ(place(&IOD_LookupImpl::SetDlgCaption), 9U);
    EXPECT_EQ(place(&IOD_LookupFilter::IsFiltered), 4U);
}

TEST(LookupInterfaces, ResultsHaveTheirNumbers) {
    EXPECT_EQ(eODLR_Selected, 0);
    EXPECT_EQ(eODLR_Canceled, 1);
    EXPECT_EQ(eODLR_NotSupported, 2);
    EXPECT_EQ(eODLR_NotFound, 3);
}

}  // namespace
