#include "charting/orderdeck/src/lookup/SymbolFields.h"

#include "charting/orderdeck/src/lookup/HostCall.h"
#include "diagnostics/BugSlayerUtil.h"
#include "platform/com_ptr.h"

namespace OV_OrderDeck {
namespace {

using BugSlayerUtil::code_location;

// Where each of a reader's three failures is reported.
struct failure_places {
    code_location field_request;
    code_location null_field;
    code_location value;
};

constexpr failure_places all_at(const code_location& where) {
    return {where, where, where};
}

constexpr code_location at_line(code_location where, int line) {
    where.line = line;
    return where;
}

template <class Value>
void read(tagOVFIELDID id, IovTable& table, HRESULT (STDMETHODCALLTYPE IovField::*reader)(Value*),
          Value* value, const failure_places& places) {
    com_ptr<IovField> field;
    HRESULT hr = table.get_Field(id, platform::receive(field));
    if (FAILED(hr)) {
        fail(places.field_request, "get_Field", hr);
    }
    if (!field) {
        fail(places.null_field, "field", E_POINTER);
    }
    hr = (field.get()->*reader)(value);
    if (FAILED(hr)) {
        fail(places.value, "get_Value", hr);
    }
}

}  // namespace

LONG GetAsLong(tagOVFIELDID id, IovTable& table) {
    // Deliberately fixed: logs in the field are searched by these lines.
    static constexpr failure_places places{at_line(BS_HERE, 199), at_line(BS_HERE, 200),
                                           at_line(BS_HERE, 201)};
    LONG value = 0;
    read(id, table, &IovField::get_AsLong, &value, places);
    return value;
}

double GetAsDouble(tagOVFIELDID id, IovTable& table) {
    static constexpr failure_places places = all_at(BS_HERE);
    double value = 0.0;
    read(id, table, &IovField::get_AsDouble, &value, places);
    return value;
}

owned_text read_text(tagOVFIELDID id, IovTable& table) {
    static constexpr failure_places places = all_at(BS_HERE);
    owned_text text;
    read(id, table, &IovField::get_AsString, text.receive(), places);
    return text;
}

_bstr_t GetAsString(tagOVFIELDID id, IovTable& table) {
    owned_text text = read_text(id, table);
    if (text.get() == nullptr) {
        return {};
    }
    return {text.release(), false};
}

CString GetAsStringStr(tagOVFIELDID id, IovTable& table) {
    return platform::text_of(read_text(id, table).get());
}

}  // namespace OV_OrderDeck
