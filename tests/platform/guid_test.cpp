#include <gtest/gtest.h>

#include <string>

#include "platform/com.h"

namespace {

constexpr GUID k_sample = {0x2686F9D2, 0x457E, 0x44E7, {0xB6, 0x56, 0x9A, 0xBC, 0xC8, 0x02, 0xD3, 0x8A}};
constexpr wchar_t k_sample_text[] = L"{2686F9D2-457E-44E7-B656-9ABCC802D38A}";

TEST(Guid, TextHasBracesAndCapitals) {
    wchar_t text[39];
    EXPECT_EQ(StringFromGUID2(k_sample, text, 39), 39);
    EXPECT_STREQ(text, k_sample_text);
}

TEST(Guid, AShortBufferGetsNothing) {
    wchar_t text[39] = L"untouched";
    EXPECT_EQ(StringFromGUID2(k_sample, text, 38), 0);
}

TEST(Guid, TextOnTheTaskHeap) {
    LPOLESTR text = nullptr;
    ASSERT_EQ(StringFromCLSID(k_sample, &text), S_OK);
    EXPECT_STREQ(text, k_sample_text);
    CoTaskMemFree(text);
    ASSERT_EQ(StringFromIID(k_sample, &text), S_OK);
    EXPECT_STREQ(text, k_sample_text);
    CoTaskMemFree(text);
}

TEST(Guid, IsReadInEitherCase) {
    CLSID id = {};
    EXPECT_EQ(CLSIDFromString(L"{2686F9D2-457E-44e7-B656-9abcc802d38a}", &id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, k_sample));
    IID iid = {};
    EXPECT_EQ(IIDFromString(k_sample_text, &iid), S_OK);
    EXPECT_TRUE(IsEqualIID(iid, k_sample));
}

TEST(Guid, ANullTextIsTheNullId) {
    CLSID id = k_sample;
    EXPECT_EQ(CLSIDFromString(nullptr, &id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, GUID{}));
}

TEST(Guid, WrongTextIsRefused) {
    CLSID id = {};
    for (const wchar_t* text :
         {L"{2686F9D2-457E-44E7-B656-9ABCC802D38G}", L"2686F9D2-457E-44E7-B656-9ABCC802D38A",
          L"{2686F9D2-457E-44E7-B656-9ABCC802D3}", L"{2686F9D2-457E-44E7-B656-9ABCC802D38A}x",
          L"{2686F9D2 457E-44E7-B656-9ABCC802D38A}"}) {
        EXPECT_EQ(CLSIDFromString(text, &id), CO_E_CLASSSTRING) << std::wstring(text).size();
    }
    EXPECT_EQ(IIDFromString(L"{2686F9D2-457E-44E7-B656-9ABCC802D38G}", &id), CO_E_IIDSTRING);
    EXPECT_EQ(IIDFromString(L"nothing", &id), E_INVALIDARG);
}

TEST(Guid, NewOnesDifferAndSayThatTheyAreRandom) {
    GUID first = {};
    GUID second = {};
    ASSERT_EQ(CoCreateGuid(&first), S_OK);
    ASSERT_EQ(CoCreateGuid(&second), S_OK);
    EXPECT_FALSE(first == second);
    EXPECT_EQ(first.Data3 >> 12, 4);
    EXPECT_EQ(first.Data4[0] >> 6, 2);
}

TEST(Guid, EqualityIsOfAllBytes) {
    GUID other = k_sample;
    EXPECT_TRUE(other == k_sample);
    EXPECT_TRUE(IsEqualGUID(other, k_sample));
    other.Data4[7] ^= 1;
    EXPECT_FALSE(other == k_sample);
    EXPECT_TRUE(other != k_sample);
    EXPECT_FALSE(IsEqualCLSID(other, k_sample));
}

TEST(Guid, IdsOfThePlatformsInterfaces) {
    EXPECT_TRUE(IsEqualIID(IID_IUnknown, __uuidof(IUnknown)));
    EXPECT_TRUE(IsEqualIID(IID_IClassFactory, __uuidof(IClassFactory)));
    const auto text_of = [](REFIID iid) {
        wchar_t text[39];
        StringFromGUID2(iid, text, 39);
        return std::wstring(text);
    };
    EXPECT_EQ(text_of(__uuidof(IUnknown)), L"{00000000-0000-0000-C000-000000000046}");
    EXPECT_EQ(text_of(__uuidof(IClassFactory)), L"{00000001-0000-0000-C000-000000000046}");
    EXPECT_EQ(text_of(__uuidof(IDispatch)), L"{00020400-0000-0000-C000-000000000046}");
    EXPECT_EQ(text_of(__uuidof(IRunnableObject)), L"{00000126-0000-0000-C000-000000000046}");
    EXPECT_EQ(text_of(__uuidof(IProvideClassInfo)), L"{B196B283-BAB4-101A-B69C-00AA00341D07}");
    EXPECT_EQ(text_of(__uuidof(IConnectionPointContainer)), L"{B196B284-BAB4-101A-B69C-00AA00341D07}");
    EXPECT_EQ(text_of(__uuidof(IEnumConnectionPoints)), L"{B196B285-BAB4-101A-B69C-00AA00341D07}");
    EXPECT_EQ(text_of(__uuidof(IConnectionPoint)), L"{B196B286-BAB4-101A-B69C-00AA00341D07}");
    EXPECT_EQ(text_of(__uuidof(IEnumConnections)), L"{B196B287-BAB4-101A-B69C-00AA00341D07}");
}

}  // namespace
