// Counted text, variants and safe arrays. Everything here may be called on every thread; one object belongs
// to one thread at a time.
#pragma once

#include "oaidl.h"

// --- Counted text. Null stands for the empty text in all that read.
BSTR SysAllocString(const OLECHAR* text) noexcept;
// A null text leaves the units as they come; the terminator is always set.
BSTR SysAllocStringLen(const OLECHAR* text, UINT length) noexcept;
BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length) noexcept;
INT SysReAllocString(BSTR* target, const OLECHAR* text) noexcept;
INT SysReAllocStringLen(BSTR* target, const OLECHAR* text, UINT length) noexcept;
void SysFreeString(BSTR text) noexcept;
UINT SysStringLen(BSTR text) noexcept;
UINT SysStringByteLen(BSTR text) noexcept;

// --- Variants.
#define VARIANT_NOVALUEPROP 0x01
#define VARIANT_ALPHABOOL 0x02
#define VARIANT_NOUSEROVERRIDE 0x04

void VariantInit(VARIANTARG* variant) noexcept;
// Frees what the variant owns and makes it VT_EMPTY. What VT_BYREF points at is the caller's.
HRESULT VariantClear(VARIANTARG* variant) noexcept;
HRESULT VariantCopy(VARIANTARG* target, const VARIANTARG* source) noexcept;
// Like VariantCopy, but what VT_BYREF points at is copied, not the pointer.
HRESULT VariantCopyInd(VARIANT* target, const VARIANTARG* source) noexcept;
// Halves go to the even neighbour. DISP_E_OVERFLOW out of range, DISP_E_TYPEMISMATCH when there is no such
// conversion or the text is no number. Numbers in text follow the user's conventions; the locale and the
// flags but VARIANT_ALPHABOOL are not looked at. Target and source may be one; on failure the target keeps
// its value.
HRESULT VariantChangeType(VARIANTARG* target, const VARIANTARG* source, USHORT flags, VARTYPE vt) noexcept;
HRESULT VariantChangeTypeEx(VARIANTARG* target, const VARIANTARG* source, LCID lcid, USHORT flags,
                            VARTYPE vt) noexcept;

// --- Safe arrays. Elements of VT_BSTR, VT_VARIANT, VT_UNKNOWN and VT_DISPATCH are owned by the array: a put
// copies or counts in, a get copies or counts out, destroying frees. Null for a type that has no place in an
// array.
SAFEARRAY* SafeArrayCreate(VARTYPE vt, UINT dimensions, SAFEARRAYBOUND* bounds) noexcept;
SAFEARRAY* SafeArrayCreateVector(VARTYPE vt, LONG lower_bound, ULONG count) noexcept;
// DISP_E_ARRAYISLOCKED while somebody has its data.
HRESULT SafeArrayDestroy(SAFEARRAY* array) noexcept;
HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy) noexcept;
UINT SafeArrayGetDim(SAFEARRAY* array) noexcept;
UINT SafeArrayGetElemsize(SAFEARRAY* array) noexcept;
HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* vt) noexcept;
// Dimensions are counted from 1, the leftmost; DISP_E_BADINDEX for others.
HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) noexcept;
HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) noexcept;
// One index per dimension, the leftmost first.
HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* value) noexcept;
// The value is a pointer to the element, but the pointer itself for VT_BSTR, VT_UNKNOWN and VT_DISPATCH.
HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value) noexcept;
HRESULT SafeArrayPtrOfIndex(SAFEARRAY* array, LONG* indices, void** data) noexcept;
HRESULT SafeArrayLock(SAFEARRAY* array) noexcept;
HRESULT SafeArrayUnlock(SAFEARRAY* array) noexcept;
HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) noexcept;
HRESULT SafeArrayUnaccessData(SAFEARRAY* array) noexcept;
