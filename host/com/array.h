// One-dimensional SAFEARRAYs, made and read.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "com/object.h"

namespace host {

struct safearray_deleter {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};
// Owns an array.
using array_ptr = std::unique_ptr<SAFEARRAY, safearray_deleter>;

// VT_BSTR.
array_ptr make_array(const std::vector<std::string>& texts);

// VT_I4.
array_ptr make_array(const std::vector<int>& numbers);

// VT_VARIANT, each VT_UNKNOWN.
array_ptr make_array(const std::vector<ref<IUnknown>>& objects);

// The objects of an array of VT_VARIANT, null for an element that is none. The array may be null.
std::vector<ref<IUnknown>> read_objects(SAFEARRAY* array);

}  // namespace host
