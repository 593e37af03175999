#include "diagnostics/debug_record.h"

#include <string_view>

#include "platform/utf8.h"

namespace BugSlayerUtil {
namespace {

VARIANT value_of_type(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
}

struct function_texts {
    std::string name;
    std::string signature;
};

// A lambda is a piece of the function that it stands in: that one is named.
function_texts function_of(const code_location& where) {
    const std::string_view signature = where.signature;
    const std::size_t lambda = signature.find("::<lambda");
    if (lambda == std::string_view::npos) {
        return {where.function, where.signature};
    }
    const std::string_view outer = signature.substr(0, lambda);
    const std::string_view full_name = outer.substr(0, outer.find('('));
    return {std::string(full_name.substr(full_name.find_last_of(" :*&") + 1)), std::string(outer)};
}

}  // namespace

HRESULT debug_record::Create() noexcept {
    if (!m_object) {
        return E_FAIL;
    }
    const HRESULT result = m_object->Command(platform::receive(m_record), L"CREATE", nullptr, 0);
    if (result != S_OK) {
        m_record.reset();
        return result;
    }
    return m_record ? S_OK : E_FAIL;
}

HRESULT debug_record::Send(const wchar_t* command) noexcept {
    IDebugObject* slot = m_record.get();
    return m_object->Command(&slot, command, nullptr, 0);
}

HRESULT debug_record::Process() noexcept {
    return Send(L"FILTER") == S_OK ? Send(L"PROCESS") : S_OK;
}

void debug_record::SetMark(const wchar_t* name) {
    Set(name, value_of_type(VT_EMPTY));
}

void debug_record::SetText(const wchar_t* name, const CString& text) {
    VARIANT value = value_of_type(VT_BSTR);
    value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (value.bstrVal == nullptr) {
        throw std::bad_alloc();
    }
    Set(name, value);
    SysFreeString(value.bstrVal);
}

void debug_record::SetText(const wchar_t* name, const char* utf8) {
    SetText(name, platform::from_utf8(utf8));
}

void debug_record::SetUnsigned(const wchar_t* name, DWORD number) {
    VARIANT value = value_of_type(VT_UI4);
    value.ulVal = number;
    Set(name, value);
}

void debug_record::SetInt(const wchar_t* name, int number) {
    VARIANT value = value_of_type(VT_INT);
    value.intVal = number;
    Set(name, value);
}

void debug_record::SetResult(const wchar_t* name, HRESULT result) {
    VARIANT value = value_of_type(VT_I4);
    value.lVal = result;
    Set(name, value);
}

void debug_record::SetAddress(const wchar_t* name, const void* address) noexcept {
    VARIANT value = value_of_type(VT_UI8);
    value.ullVal = reinterpret_cast<std::uintptr_t>(address);
    Set(name, value);
}

void debug_record::SetReal(const wchar_t* name, double number) {
    VARIANT value = value_of_type(VT_R8);
    value.dblVal = number;
    Set(name, value);
}

void debug_record::SetBool(const wchar_t* name, bool flag) {
    VARIANT value = value_of_type(VT_BOOL);
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    Set(name, value);
}

void debug_record::SetSource(const code_location& where, int group) {
    SetText(L"File", where.file);
    SetInt(L"Line", where.line);
    if (group != 0) {
        SetInt(L"$Group", group);
    }
}

void debug_record::SetFunction(const code_location& where) {
    const function_texts function = function_of(where);
    SetText(L"Function", function.name.c_str());
    SetText(L"$FuncSig", function.signature.c_str());
}

void debug_record::Set(const wchar_t* name, const VARIANT& value) noexcept {
    m_record->Set(name, &value);
}

}  // namespace BugSlayerUtil
