#pragma once

#include <functional>

#include "platform/com_object.h"
#include "tests/support/host_record.h"

namespace test {

// A class that CoCreateInstance finds as long as this object lives, on the thread that made it.
// Creating records `Class("name").CreateInstance()`, which can be failed like every other operation.
class fake_class {
public:
    // Gives a new object, or the same one each time; null makes creating fail with E_OUTOFMEMORY.
    using maker = std::function<com_ptr<IUnknown>()>;

    // Needs an apartment. Throws _com_error when the class can't be registered.
    fake_class(fake_host host, const CLSID& clsid, CString name, maker make);
    ~fake_class();
    fake_class(const fake_class&) = delete;
    fake_class& operator=(const fake_class&) = delete;

private:
    DWORD m_cookie = 0;
};

}  // namespace test
