#pragma once

#include <utility>

#include "platform/com.h"

namespace platform {

// An owned one-dimensional SAFEARRAY. What it destroys frees its elements. Not thread-safe.
class safearray {
public:
    safearray() = default;
    explicit safearray(SAFEARRAY* array) : m_array(array) {}
    safearray(safearray&& other) noexcept : m_array(std::exchange(other.m_array, nullptr)) {}
    safearray& operator=(safearray&& other) noexcept {
        reset(std::exchange(other.m_array, nullptr));
        return *this;
    }
    ~safearray() { reset(); }

    SAFEARRAY* get() const { return m_array; }
    SAFEARRAY* detach() { return std::exchange(m_array, nullptr); }
    explicit operator bool() const { return m_array != nullptr; }

    void reset(SAFEARRAY* array = nullptr) {
        if (SAFEARRAY* const old = std::exchange(m_array, array); old != nullptr) {
            SafeArrayDestroy(old);
        }
    }

    // For an out-parameter; what was held is destroyed first.
    SAFEARRAY** receive() {
        reset();
        return &m_array;
    }

private:
    SAFEARRAY* m_array = nullptr;
};

// Number of elements of a one-dimensional array; 0 for null or for another number of dimensions.
inline LONG safearray_size(SAFEARRAY* array) {
    LONG low = 0;
    LONG high = -1;
    if (array == nullptr || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &low)) ||
        FAILED(SafeArrayGetUBound(array, 1, &high))) {
        return 0;
    }
    return high - low + 1;
}

}  // namespace platform
