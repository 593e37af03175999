// Memory that runs out, at every place where this program's own code asks for some.
#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>
#include <new>

#include "platform/registry.h"
#include "tests/support/allocation_faults.h"
#include "unicomp/ProfileVsDataFeedAssociation/interface/ProfileVsDataFeedAssociation.h"

namespace {

// A key with one row, which needs no memory.
class one_row : public platform::registry {
public:
    LONG create_key(HKEY root, const CString&, REGSAM, HKEY& key) noexcept override {
        key = root;
        return ERROR_SUCCESS;
    }
    LONG open_key(HKEY root, const CString&, REGSAM, HKEY& key) noexcept override {
        key = root;
        return ERROR_SUCCESS;
    }
    LONG close_key(HKEY) noexcept override { return ERROR_SUCCESS; }
    LONG query_value(HKEY, const CString&, DWORD& type, BYTE* data, DWORD& bytes) noexcept override {
        const wchar_t feed[] = L"The feed of this row";
        type = REG_SZ;
        bytes = sizeof(feed);
        std::memcpy(data, feed, sizeof(feed));
        return ERROR_SUCCESS;
    }
    LONG set_value(HKEY, const CString&, DWORD, const BYTE*, DWORD) noexcept override {
        return ERROR_SUCCESS;
    }
    LONG delete_value(HKEY, const CString&) noexcept override { return ERROR_SUCCESS; }
    LONG enum_key(HKEY, DWORD, wchar_t*, DWORD&) noexcept override { return ERROR_NO_MORE_ITEMS; }
    LONG enum_value(HKEY, DWORD, wchar_t* name, DWORD& length) noexcept override {
        length = static_cast<DWORD>(std::wcslen(std::wcscpy(name, L"A plug-in with a long name")));
        return ERROR_SUCCESS;
    }
    LONG query_info(HKEY, DWORD& subkeys, DWORD& values) noexcept override {
        subkeys = 0;
        values = 1;
        return ERROR_SUCCESS;
    }
    LONG delete_tree(HKEY, const CString&) noexcept override { return ERROR_SUCCESS; }

private:
    platform::port<platform::registry>::replacement m_replacement{*this};
};

class ScarceMemory : public testing::Test {
protected:
    // Fails the first allocation, then the second and so on, until the operation needs no more of them.
    // Gives how many failed.
    template <class Operation>
    static int fail_each(const Operation& operation) {
        for (int nth = 0;; ++nth) {
            HRESULT hr = S_OK;
            test::fail_allocation(nth);
            try {
                const test::exposed here;
                operation();
            } catch (const _com_error& error) {
                hr = error.Error();
            } catch (const std::bad_alloc&) {
                hr = E_UNEXPECTED;
            }
            const bool failed = test::allocation_failed();
            EXPECT_EQ(failed ? E_OUTOFMEMORY : S_OK, hr) << nth;
            if (!failed) {
                return nth;
            }
        }
    }

    one_row registry;
};

using association = Unicomp::CProfileDataFeedAssociation<IUnknown>;

TEST_F(ScarceMemory, IsAComErrorOfTheConstruction) {
    EXPECT_LT(24, fail_each([] { const association feeds; })) << "a row each";
}

TEST_F(ScarceMemory, IsAComErrorOfTheContext) {
    const association feeds;
    EXPECT_LT(0, fail_each([&] { feeds.context(); }));
}

TEST_F(ScarceMemory, IsAComErrorOfReading) {
    association feeds;
    EXPECT_LT(fail_each([&] { feeds.context(); }), fail_each([&] { feeds.deserialize(); }));
}

TEST_F(ScarceMemory, IsAComErrorOfWriting) {
    const association feeds;
    EXPECT_LT(fail_each([&] { feeds.context(); }), fail_each([&] { feeds.serialize(); }));
}

}  // namespace
