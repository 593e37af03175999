// GUID and its operations: the subset of the platform header of this name that the native build uses.
#pragma once

#include <cstdint>
#include <cstring>

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};

using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

// Sixteen bytes without padding, so comparing memory is comparing values.
inline bool IsEqualGUID(REFGUID left, REFGUID right) noexcept {
    return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}
inline bool IsEqualIID(REFIID left, REFIID right) noexcept {
    return IsEqualGUID(left, right);
}
inline bool IsEqualCLSID(REFCLSID left, REFCLSID right) noexcept {
    return IsEqualGUID(left, right);
}
inline bool operator==(REFGUID left, REFGUID right) noexcept {
    return IsEqualGUID(left, right);
}

#define EXTERN_C extern "C"

// One translation unit that defines INITGUID before this header gives the definitions.
#ifdef INITGUID
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
    EXTERN_C const GUID name;                                        \
    EXTERN_C const GUID __attribute__((weak)) name = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#else
#define DEFINE_GUID(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) EXTERN_C const GUID name
#endif

// Id of an interface type; only types declared with __CRT_UUID_DECL have one.
template <class T>
struct com_uuid;

#define __CRT_UUID_DECL(type, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8)             \
    extern "C++" {                                                                   \
    template <>                                                                      \
    struct com_uuid<type> {                                                          \
        static constexpr GUID value = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}; \
    };                                                                               \
    template <>                                                                      \
    struct com_uuid<type*> : com_uuid<type> {};                                      \
    }

// Takes a type or an expression, as the cross compiler's does.
#define __uuidof(type) (com_uuid<__typeof__(type)>::value)
