#include "platform/bstr_detach.h"

namespace platform {

BSTR detach(_bstr_t& text) {
    return text.Detach();
}

}  // namespace platform
