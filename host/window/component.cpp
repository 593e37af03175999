#include "window/component.h"

#include <array>
#include <cstdio>
#include <filesystem>

#include "com/text.h"

namespace host {
namespace {

using get_class_object = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

ref<IClassFactory> factory_of(get_class_object get, REFCLSID clsid) {
    IClassFactory* factory = nullptr;
    const HRESULT hr = get(clsid, IID_IClassFactory, reinterpret_cast<void**>(&factory));
    return ref<IClassFactory>(SUCCEEDED(hr) ? factory : nullptr, false);
}

}  // namespace

std::wstring beside_program(const std::wstring& name) {
    std::array<wchar_t, 1024> program{};
    GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    return std::filesystem::path(program.data()).replace_filename(name).wstring();
}

component::component(const std::string& path) {
    if (!path.empty()) {
        load_library(std::filesystem::absolute(to_wide(path)).wstring());
    } else if (!load_registered()) {
        load_library(beside_program(L"OrderDeck.dll"));
    }
}

bool component::load_registered() {
    ISWUnifyAccess* root = nullptr;
    const HRESULT hr = CoCreateInstance(__uuidof(OrderDeckObj), nullptr, CLSCTX_INPROC_SERVER,
                                        __uuidof(ISWUnifyAccess), reinterpret_cast<void**>(&root));
    if (FAILED(hr)) {
        return false;
    }
    m_root = ref<ISWUnifyAccess>(root, false);
    m_origin = "the registered class";
    return true;
}

// The library is never freed: windows and objects of it may live until the process ends.
void component::load_library(const std::wstring& path) {
    const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (library == nullptr) {
        fail(to_utf8(path) + " can't be loaded", GetLastError());
        return;
    }
    const auto get = reinterpret_cast<get_class_object>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    const ref<IClassFactory> factory = get == nullptr ? nullptr : factory_of(get, __uuidof(OrderDeckObj));
    if (factory == nullptr) {
        fail(to_utf8(path) + " has no order bar", static_cast<unsigned long>(CLASS_E_CLASSNOTAVAILABLE));
        return;
    }
    ISWUnifyAccess* root = nullptr;
    const HRESULT hr =
        factory->CreateInstance(nullptr, __uuidof(ISWUnifyAccess), reinterpret_cast<void**>(&root));
    if (FAILED(hr)) {
        fail("The order bar can't be created", static_cast<unsigned long>(hr));
        return;
    }
    m_root = ref<ISWUnifyAccess>(root, false);
    m_origin = to_utf8(path);
}

void component::fail(const std::string& what, unsigned long code) {
    std::array<char, 32> number{};
    std::snprintf(number.data(), number.size(), " (0x%08lX)", code);
    m_origin = what + number.data();
}

}  // namespace host
