#include "platform/module.h"

namespace platform {

// Both separators are taken on both systems: source names and registry texts use either.
CString file_name_of(const CString& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

CString folder_of(const CString& path) {
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

}  // namespace platform
