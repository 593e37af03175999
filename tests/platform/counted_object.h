// A COM object whose count and end a test can see.
#pragma once

#include "platform/com.h"

namespace platform_tests {

// Lives on the test's stack, so a reference too few or too many shows as a wrong count and as nothing
// worse.
class counted_object : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        *out = nullptr;
        if (!IsEqualIID(iid, __uuidof(IUnknown))) {
            return E_NOINTERFACE;
        }
        *out = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    ULONG references = 1;
};

}  // namespace platform_tests
