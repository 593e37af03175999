// What one element of an array is: its size, and who owns what it points at.
#pragma once

#include <oleauto.h>

namespace posix_com {

// Bytes of an element; 0 for a type that has no place in an array.
ULONG element_size(VARTYPE vt) noexcept;

// Features of an array that come from its element type.
USHORT element_features(VARTYPE vt) noexcept;

// Makes raw memory an element of its own, equal to the source.
HRESULT copy_element(VARTYPE vt, void* target, const void* source) noexcept;

// Frees what an element owns and leaves zeros.
HRESULT clear_element(VARTYPE vt, void* element) noexcept;

}  // namespace posix_com
