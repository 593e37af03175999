// The user's registry: keys, values and subtrees.
#pragma once

#include "platform/port.h"
#include "platform/text.h"

namespace platform {

// The operations on keys. Every one gives a native result code (ERROR_SUCCESS and its kin) and throws
// nothing. Names are compared without case and keep the case they were made with. A path is a row of
// key names with "\" between them and none in front, no longer than 255 characters each; the empty path is
// the key itself. A root is HKEY_CURRENT_USER, HKEY_CLASSES_ROOT or an open key. Text data is stored as it is
// given: units of wchar_t, with the terminator when the caller gave one. Any thread.
//
// Natively the registry is a database file of the user: ORDERDECK_REGISTRY_FILE names it, else it lies
// in the user's data folder. Processes that use one file see each other's changes at once.
class registry {
public:
    virtual ~registry() = default;

    // Makes the key and those above it unless they exist, and opens it. The caller closes it.
    virtual LONG create_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept = 0;

    // ERROR_FILE_NOT_FOUND when there is no such key. The caller closes it.
    virtual LONG open_key(HKEY root, const CString& path, REGSAM access, HKEY& key) noexcept = 0;

    virtual LONG close_key(HKEY key) noexcept = 0;

    // bytes: the room at data, then the size of the value. With a null data only the size is told.
    // ERROR_MORE_DATA with the needed size when there is not enough room, ERROR_FILE_NOT_FOUND when there
    // is no such value.
    virtual LONG query_value(HKEY key, const CString& name, DWORD& type, BYTE* data,
                             DWORD& bytes) noexcept = 0;

    virtual LONG set_value(HKEY key, const CString& name, DWORD type, const BYTE* data,
                           DWORD bytes) noexcept = 0;

    virtual LONG delete_value(HKEY key, const CString& name) noexcept = 0;

    // The name of one subkey. length: the room at name in characters, terminator included, then the
    // characters written without it. ERROR_MORE_DATA when there is not enough room, ERROR_NO_MORE_ITEMS
    // when index is past the last.
    virtual LONG enum_key(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept = 0;

    // The name of one value, as enum_key.
    virtual LONG enum_value(HKEY key, DWORD index, wchar_t* name, DWORD& length) noexcept = 0;

    virtual LONG query_info(HKEY key, DWORD& subkeys, DWORD& values) noexcept = 0;

    // Deletes a key, which is not the root itself, with everything below it. Keys of it that are open give
    // ERROR_KEY_DELETED from then on.
    virtual LONG delete_tree(HKEY root, const CString& path) noexcept = 0;
};

template <>
registry& port<registry>::system();

// An open key, closed at the end. Closing keeps the thread's last error.
class registry_key {
public:
    registry_key() = default;
    ~registry_key() { Close(); }
    registry_key(registry_key&& other) noexcept;
    registry_key& operator=(registry_key&& other) noexcept;

    // Both close what was open, and leave the key closed when they fail.
    LONG Create(HKEY root, const CString& path, REGSAM access = KEY_READ | KEY_WRITE) noexcept;
    LONG Open(HKEY root, const CString& path, REGSAM access = KEY_READ | KEY_WRITE) noexcept;
    void Close() noexcept;

    // Null while closed; still this object's.
    HKEY get() const noexcept { return m_key; }

    // As the operations of the registry above.
    LONG QueryValue(const CString& name, DWORD& type, BYTE* data, DWORD& bytes) const noexcept;
    LONG SetValue(const CString& name, DWORD type, const BYTE* data, DWORD bytes) const noexcept;
    LONG DeleteValue(const CString& name) const noexcept;
    LONG EnumKey(DWORD index, wchar_t* name, DWORD& length) const noexcept;
    LONG EnumValue(DWORD index, wchar_t* name, DWORD& length) const noexcept;
    LONG QueryInfo(DWORD& subkeys, DWORD& values) const noexcept;

    // ERROR_INVALID_DATA when the value is not a REG_DWORD; value is then untouched, as at any failure.
    LONG QueryDWORD(const CString& name, DWORD& value) const noexcept;
    LONG SetDWORD(const CString& name, DWORD value) const noexcept;

    // A REG_SZ with its terminator.
    LONG SetString(const CString& name, const CString& text) const noexcept;

    static LONG DeleteTree(HKEY root, const CString& path) noexcept;

private:
    HKEY m_key = nullptr;
};

}  // namespace platform
