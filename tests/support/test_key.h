// A registry key of this test program's own, new at the start and gone at the end.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/registry.h"
#include "platform/utf8.h"
#include "tests/support/own_names.h"

class test_key {
public:
    explicit test_key(const CString& name)
        : m_path(L"Software\\OrderDeck Tests\\" + name + L" " +
                 platform::from_utf8(test_support::own_name())) {
        platform::registry_key earlier;
        EXPECT_EQ(earlier.Open(HKEY_CURRENT_USER, m_path, KEY_READ), ERROR_FILE_NOT_FOUND)
            << "the key must be new";
        EXPECT_EQ(m_key.Create(HKEY_CURRENT_USER, m_path), ERROR_SUCCESS);
    }
    ~test_key() {
        m_key.Close();
        EXPECT_EQ(platform::registry_key::DeleteTree(HKEY_CURRENT_USER, m_path), ERROR_SUCCESS);
    }
    test_key(const test_key&) = delete;
    test_key& operator=(const test_key&) = delete;

    // Below HKEY_CURRENT_USER.
    const CString& path() const { return m_path; }

    platform::registry_key& key() { return m_key; }

private:
    CString m_path;
    platform::registry_key m_key;
};
