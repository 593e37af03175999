#include "unicomp/FormatUtil/src/QuantityLetters.h"

#include "unicomp/Simples/interface/resource_string.h"

namespace {

constexpr UINT thousands_string = 109;
constexpr UINT millions_string = 110;

}  // namespace

const CString& thousands_letter() {
    static const CString text = resource_string::text(thousands_string);
    return text;
}

const CString& millions_letter() {
    static const CString text = resource_string::text(millions_string);
    return text;
}
