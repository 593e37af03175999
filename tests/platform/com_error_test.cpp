#include <gtest/gtest.h>

#include <string>

#include "platform/com.h"

namespace {

TEST(ComError, CarriesItsResult) {
    try {
        _com_issue_error(E_ACCESSDENIED);
        FAIL() << "nothing was raised";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Error(), E_ACCESSDENIED);
    }
}

TEST(ComError, CheckErrorRaisesFailuresOnly) {
    EXPECT_NO_THROW(_com_util::CheckError(S_OK));
    EXPECT_NO_THROW(_com_util::CheckError(S_FALSE));
    EXPECT_THROW(_com_util::CheckError(E_FAIL), _com_error);
}

TEST(ComError, CopiesAndAssigns) {
    const _com_error first(E_POINTER);
    _com_error second(first);
    EXPECT_EQ(second.Error(), E_POINTER);
    second = _com_error(E_FAIL);
    EXPECT_EQ(second.Error(), E_FAIL);
    EXPECT_EQ(first.Error(), E_POINTER);
}

TEST(ComError, HasAMessage) {
    EXPECT_STRNE(_com_error(E_OUTOFMEMORY).ErrorMessage(), L"");
    EXPECT_STRNE(_com_error(E_INVALIDARG).ErrorMessage(), L"");
    EXPECT_STRNE(_com_error(E_OUTOFMEMORY).ErrorMessage(), _com_error(E_INVALIDARG).ErrorMessage());
}

TEST(ComError, ACodeWithoutAMessageIsShown) {
    const _com_error unknown(static_cast<HRESULT>(0x8ABC1234));
    EXPECT_STREQ(unknown.ErrorMessage(), L"Unknown error 0x8ABC1234");
    EXPECT_STREQ(unknown.ErrorMessage(), L"Unknown error 0x8ABC1234");
    EXPECT_STREQ(_com_error(static_cast<HRESULT>(0x80041234)).ErrorMessage(), L"IDispatch error #4148");
}

TEST(ComError, AMessageFollowsItsErrorThroughAnAssignment) {
    _com_error error(static_cast<HRESULT>(0x8ABC1234));
    const std::wstring before = error.ErrorMessage();
    error = _com_error(static_cast<HRESULT>(0x8ABC5678));
    EXPECT_EQ(before, L"Unknown error 0x8ABC1234");
    EXPECT_STREQ(error.ErrorMessage(), L"Unknown error 0x8ABC5678");
}

}  // namespace
