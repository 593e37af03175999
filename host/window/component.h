// Finds the order bar's component and makes its root object.
#pragma once

#include <OrderDeck.h>

#include <string>

#include "com/object.h"

namespace host {

class component {
public:
    // Looks in this order: the library at the path, when one is given; the registered class; the library
    // beside this program. A library by path needs no registration: its class objects are asked for
    // directly, and the bar makes its symbol lookup itself.
    explicit component(const std::string& path);

    // Null when there is no component.
    ISWUnifyAccess* root() const { return m_root.get(); }

    // Where the root came from, or why there is none, for people.
    const std::string& origin() const { return m_origin; }

private:
    bool load_registered();
    void load_library(const std::wstring& path);
    void fail(const std::string& what, unsigned long code);

    ref<ISWUnifyAccess> m_root;
    std::string m_origin;
};

// "name" in the folder of this program.
std::wstring beside_program(const std::wstring& name);

}  // namespace host
