// Safe arrays for tests. Arrays that are given belong to the caller; arrays that are taken stay his.
#pragma once

#include <vector>

#include "platform/com_ptr.h"
#include "platform/text.h"

namespace test {

SAFEARRAY* bstr_array(const std::vector<CString>& texts);
SAFEARRAY* long_array(const std::vector<LONG>& values);
// Variants of VT_UNKNOWN; a null object stays null.
SAFEARRAY* object_array(const std::vector<com_ptr<IUnknown>>& objects);

std::vector<CString> texts_of(SAFEARRAY* array);
std::vector<LONG> longs_of(SAFEARRAY* array);

}  // namespace test
