#pragma once

#include <string>
#include <vector>

#include "platform/com_ptr.h"

namespace test {

inline constexpr CLSID clsid_order_deck = {
    0x44b37a4c, 0x17ef, 0x4301, {0xb0, 0x5a, 0xa5, 0x4b, 0x61, 0x1d, 0xb7, 0xc2}};

// The built OrderDeck.dll, loaded by its full path while the object lives.
class component {
public:
    // Throws std::runtime_error when it can't be loaded.
    component();
    ~component();
    component(const component&) = delete;
    component& operator=(const component&) = delete;

    static std::wstring path();

    // Names of its export table, in order.
    std::vector<std::string> exports() const;
    // Names of the libraries that it is linked to.
    std::vector<std::string> imports() const;
    // Of the image's optional header.
    WORD dll_characteristics() const;

    HRESULT get_class_object(REFCLSID clsid, REFIID iid, void** out) const;
    com_ptr<IClassFactory> factory(REFCLSID clsid) const;
    HRESULT can_unload_now() const;
    HRESULT register_server() const;
    HRESULT unregister_server() const;
    HMODULE handle() const { return m_handle; }

private:
    const IMAGE_OPTIONAL_HEADER& header() const;
    template <class Function>
    Function* find(const char* name) const;

    HMODULE m_handle;
};

}  // namespace test
