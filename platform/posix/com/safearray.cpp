#include <oleauto.h>
#include <windows.h>

#include <cstdlib>
#include <limits>

#include "platform/posix/com/safearray_elements.h"

namespace {

// The element type stands in front of the descriptor, whose own fields have no room for it.
constexpr std::size_t k_prefix = 16;

char* block_of(SAFEARRAY* array) {
    return reinterpret_cast<char*>(array) - k_prefix;
}

VARTYPE type_of(SAFEARRAY* array) {
    return *reinterpret_cast<VARTYPE*>(block_of(array));
}

// Bounds lie with the last dimension first; this counts dimensions from the first, at 0.
SAFEARRAYBOUND& bound_of(SAFEARRAY* array, UINT dimension) {
    SAFEARRAYBOUND* const first = array->rgsabound;
    return first[array->cDims - 1U - dimension];
}

// Elements of all dimensions together.
std::size_t count_of(SAFEARRAY* array) {
    std::size_t count = 1;
    for (UINT d = 0; d < array->cDims; ++d) {
        count *= bound_of(array, d).cElements;
    }
    return count;
}

bool fits(VARTYPE vt, UINT dimensions, const SAFEARRAYBOUND* bounds) {
    std::size_t bytes = posix_com::element_size(vt);
    for (UINT d = 0; d < dimensions; ++d) {
        if (__builtin_mul_overflow(bytes, std::size_t{bounds[d].cElements}, &bytes)) {
            return false;
        }
    }
    return bytes <= std::numeric_limits<ULONG>::max();
}

SAFEARRAY* allocate_descriptor(VARTYPE vt, UINT dimensions, const SAFEARRAYBOUND* bounds) {
    const std::size_t size = k_prefix + sizeof(SAFEARRAY) + (dimensions - 1U) * sizeof(SAFEARRAYBOUND);
    auto* const block = static_cast<char*>(std::calloc(1, size));
    if (block == nullptr) {
        return nullptr;
    }
    auto* const array = reinterpret_cast<SAFEARRAY*>(block + k_prefix);
    *reinterpret_cast<VARTYPE*>(block) = vt;
    array->cDims = static_cast<USHORT>(dimensions);
    array->fFeatures = posix_com::element_features(vt);
    array->cbElements = posix_com::element_size(vt);
    for (UINT d = 0; d < dimensions; ++d) {
        bound_of(array, d) = bounds[d];
    }
    return array;
}

char* element_at(SAFEARRAY* array, std::size_t place) {
    return static_cast<char*>(array->pvData) + place * array->cbElements;
}

}  // namespace

SAFEARRAY* SafeArrayCreate(VARTYPE vt, UINT dimensions, SAFEARRAYBOUND* bounds) noexcept {
    if (posix_com::element_size(vt) == 0 || dimensions == 0 || dimensions > 0xFFFF || bounds == nullptr ||
        !fits(vt, dimensions, bounds)) {
        return nullptr;
    }
    SAFEARRAY* const array = allocate_descriptor(vt, dimensions, bounds);
    if (array == nullptr) {
        return nullptr;
    }
    // An array without elements has data too, so that access gives a pointer.
    const std::size_t count = count_of(array);
    array->pvData = std::calloc(count == 0 ? 1 : count, array->cbElements);
    if (array->pvData == nullptr) {
        std::free(block_of(array));
        return nullptr;
    }
    return array;
}

SAFEARRAY* SafeArrayCreateVector(VARTYPE vt, LONG lower_bound, ULONG count) noexcept {
    SAFEARRAYBOUND bound = {count, lower_bound};
    SAFEARRAY* const array = SafeArrayCreate(vt, 1, &bound);
    if (array != nullptr) {
        array->fFeatures |= FADF_CREATEVECTOR;
    }
    return array;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array) noexcept {
    if (array == nullptr) {
        return S_OK;
    }
    if (array->cLocks != 0) {
        return DISP_E_ARRAYISLOCKED;
    }
    const VARTYPE vt = type_of(array);
    for (std::size_t place = 0, count = count_of(array); place < count; ++place) {
        if (const HRESULT hr = posix_com::clear_element(vt, element_at(array, place)); FAILED(hr)) {
            return hr;
        }
    }
    std::free(array->pvData);
    std::free(block_of(array));
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy) noexcept {
    if (copy == nullptr) {
        return E_INVALIDARG;
    }
    *copy = nullptr;
    if (array == nullptr) {
        return S_OK;
    }
    const VARTYPE vt = type_of(array);
    SAFEARRAY* const made = allocate_descriptor(vt, array->cDims, array->rgsabound);
    if (made == nullptr) {
        return E_OUTOFMEMORY;
    }
    for (UINT d = 0; d < array->cDims; ++d) {
        bound_of(made, d) = bound_of(array, d);
    }
    made->fFeatures = array->fFeatures;
    const std::size_t count = count_of(array);
    made->pvData = std::calloc(count == 0 ? 1 : count, made->cbElements);
    HRESULT hr = made->pvData == nullptr ? E_OUTOFMEMORY : S_OK;
    for (std::size_t place = 0; SUCCEEDED(hr) && place < count; ++place) {
        hr = posix_com::copy_element(vt, element_at(made, place), element_at(array, place));
    }
    if (SUCCEEDED(hr)) {
        *copy = made;
    } else if (made->pvData == nullptr) {
        std::free(block_of(made));
    } else {
        SafeArrayDestroy(made);
    }
    return hr;
}

UINT SafeArrayGetDim(SAFEARRAY* array) noexcept {
    return array == nullptr ? 0 : array->cDims;
}

UINT SafeArrayGetElemsize(SAFEARRAY* array) noexcept {
    return array == nullptr ? 0 : array->cbElements;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* vt) noexcept {
    if (array == nullptr || vt == nullptr) {
        return E_INVALIDARG;
    }
    *vt = type_of(array);
    return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) noexcept {
    if (array == nullptr || bound == nullptr) {
        return E_INVALIDARG;
    }
    if (dimension == 0 || dimension > array->cDims) {
        return DISP_E_BADINDEX;
    }
    *bound = bound_of(array, dimension - 1).lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) noexcept {
    const HRESULT hr = SafeArrayGetLBound(array, dimension, bound);
    if (SUCCEEDED(hr)) {
        // The upper bound is inside, so an empty dimension has it below the lower one.
        *bound += static_cast<LONG>(bound_of(array, dimension - 1).cElements) - 1;
    }
    return hr;
}

HRESULT SafeArrayPtrOfIndex(SAFEARRAY* array, LONG* indices, void** data) noexcept {
    if (array == nullptr || indices == nullptr || data == nullptr) {
        return E_INVALIDARG;
    }
    // The first index runs fastest.
    std::size_t place = 0;
    std::size_t stride = 1;
    for (UINT d = 0; d < array->cDims; ++d) {
        const SAFEARRAYBOUND& bound = bound_of(array, d);
        const LONGLONG offset = LONGLONG{indices[d]} - bound.lLbound;
        if (offset < 0 || offset >= LONGLONG{bound.cElements}) {
            return DISP_E_BADINDEX;
        }
        place += static_cast<std::size_t>(offset) * stride;
        stride *= bound.cElements;
    }
    *data = element_at(array, place);
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value) noexcept {
    if (value == nullptr) {
        return E_INVALIDARG;
    }
    void* element = nullptr;
    const HRESULT hr = SafeArrayPtrOfIndex(array, indices, &element);
    return FAILED(hr) ? hr : posix_com::copy_element(type_of(array), value, element);
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value) noexcept {
    void* element = nullptr;
    if (const HRESULT hr = SafeArrayPtrOfIndex(array, indices, &element); FAILED(hr)) {
        return hr;
    }
    const VARTYPE vt = type_of(array);
    const bool by_pointer = vt == VT_BSTR || vt == VT_UNKNOWN || vt == VT_DISPATCH;
    if (value == nullptr && !by_pointer) {
        return E_INVALIDARG;
    }
    // The copy is made first: the value may be the element itself.
    alignas(VARIANT) char copy[sizeof(VARIANT)];
    HRESULT hr = posix_com::copy_element(vt, copy, by_pointer ? static_cast<void*>(&value) : value);
    if (SUCCEEDED(hr)) {
        hr = posix_com::clear_element(vt, element);
    }
    if (SUCCEEDED(hr)) {
        std::memcpy(element, copy, array->cbElements);
    }
    return hr;
}

HRESULT SafeArrayLock(SAFEARRAY* array) noexcept {
    if (array == nullptr) {
        return E_INVALIDARG;
    }
    __atomic_add_fetch(&array->cLocks, 1U, __ATOMIC_SEQ_CST);
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY* array) noexcept {
    if (array == nullptr) {
        return E_INVALIDARG;
    }
    if (array->cLocks == 0) {
        return E_UNEXPECTED;
    }
    __atomic_sub_fetch(&array->cLocks, 1U, __ATOMIC_SEQ_CST);
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) noexcept {
    if (array == nullptr || data == nullptr) {
        return E_INVALIDARG;
    }
    const HRESULT hr = SafeArrayLock(array);
    *data = array->pvData;
    return hr;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array) noexcept {
    return SafeArrayUnlock(array);
}
