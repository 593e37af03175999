// The symbol records as the type library tells them to every language.
#include <gtest/gtest.h>

#include "platform/com_ptr.h"

namespace {

struct expected_field {
    const wchar_t* name;
    ULONG offset;
    VARTYPE type;
};

// A type library as the system reads it.
class symbol_type_library : public ::testing::Test {
protected:
    symbol_type_library() {
        loaded = LoadTypeLibEx(ORDERDECK_TYPELIB_PATH, REGKIND_NONE, platform::receive(library));
    }

    void expect_record(const GUID& id, ULONG size, const std::vector<expected_field>& fields) {
        ASSERT_EQ(S_OK, loaded);
        com_ptr<ITypeInfo> info;
        ASSERT_EQ(S_OK, library->GetTypeInfoOfGuid(id, platform::receive(info)));
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(S_OK, info->GetTypeAttr(&attributes));
        EXPECT_EQ(TKIND_RECORD, attributes->typekind);
        EXPECT_EQ(size, attributes->cbSizeInstance);
        EXPECT_EQ(fields.size(), attributes->cVars);
        info->ReleaseTypeAttr(attributes);
        for (UINT i = 0; i < fields.size(); ++i) {
            expect_field(*info, i, fields[i]);
        }
    }

    com_ptr<ITypeLib> library;
    HRESULT loaded = E_FAIL;

private:
    static void expect_field(ITypeInfo& info, UINT index, const expected_field& expected) {
        VARDESC* field = nullptr;
        ASSERT_EQ(S_OK, info.GetVarDesc(index, &field));
        EXPECT_EQ(expected.offset, field->oInst) << index;
        EXPECT_EQ(expected.type, field->elemdescVar.tdesc.vt) << index;
        _bstr_t name;
        UINT count = 0;
        EXPECT_EQ(S_OK, info.GetNames(field->memid, name.GetAddress(), 1, &count));
        EXPECT_STREQ(expected.name, name);
        info.ReleaseVarDesc(field);
    }
};

TEST_F(symbol_type_library, holds_the_symbol_under_its_id) {
    const GUID id = {0x1780c0bd, 0x28ed, 0x4e51, {0x93, 0xc4, 0x54, 0x4f, 0x1b, 0x85, 0x39, 0x91}};
    expect_record(id, 112,
                  {{L"id", 0, VT_I4},
                   {L"DataFeed", 8, VT_BSTR},
                   {L"Name", 16, VT_BSTR},
                   {L"Root", 24, VT_BSTR},
                   {L"Description", 32, VT_BSTR},
                   {L"Exchange", 40, VT_BSTR},
                   {L"ExchangeTZI", 48, VT_BSTR},
                   {L"Category", 56, VT_I4},
                   {L"Currency", 60, VT_I4},
                   {L"Expiry", 64, VT_R8},
                   {L"PriceScaleCode", 72, VT_I4},
                   {L"MinMovement", 80, VT_R8},
                   {L"BigPointValue", 88, VT_R8},
                   {L"PutOrCall", 96, VT_BOOL},
                   {L"StrikePrice", 104, VT_R8}});
}

TEST_F(symbol_type_library, holds_the_request_under_its_id) {
    const GUID id = {0x736dc08d, 0x1ade, 0x4e44, {0xab, 0x05, 0x5b, 0x83, 0x2e, 0x04, 0x45, 0xfe}};
    expect_record(id, 32,
                  {{L"Name", 0, VT_BSTR},
                   {L"Exchange", 8, VT_BSTR},
                   {L"DataFeed", 16, VT_BSTR},
                   {L"Category", 24, VT_I4}});
}

}  // namespace
