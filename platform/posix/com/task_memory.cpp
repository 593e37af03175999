#include <objbase.h>

#include <cstdlib>

LPVOID CoTaskMemAlloc(SIZE_T cb) noexcept {
    return std::malloc(cb);
}

LPVOID CoTaskMemRealloc(LPVOID pv, SIZE_T cb) noexcept {
    return std::realloc(pv, cb);
}

void CoTaskMemFree(LPVOID pv) noexcept {
    std::free(pv);
}
