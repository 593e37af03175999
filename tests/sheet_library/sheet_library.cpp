#include "tests/sheet_library/sheet_library.h"

#include "platform/com.h"

namespace {

sheet_maker the_maker = nullptr;

}  // namespace

extern "C" __attribute__((visibility("default"))) HRESULT STDAPICALLTYPE
CreateResizablePropertySheet(IUnknown** sheet) {
    return the_maker != nullptr ? the_maker(sheet) : E_UNEXPECTED;
}

extern "C" __attribute__((visibility("default"))) void SetSheetMaker(sheet_maker maker) {
    the_maker = maker;
}
