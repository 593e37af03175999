#include "com/array.h"

#include "com/text.h"

namespace host {
namespace {

array_ptr make_vector(VARTYPE type, std::size_t count) {
    array_ptr array(SafeArrayCreateVector(type, 0, static_cast<ULONG>(count)));
    if (array == nullptr) {
        throw std::bad_alloc();
    }
    return array;
}

// Gives each element of the locked array to the step, by index.
template <class Element, class Step>
void for_each(SAFEARRAY* array, Step step) {
    Element* data = nullptr;
    _com_util::CheckError(SafeArrayAccessData(array, reinterpret_cast<void**>(&data)));
    for (ULONG index = 0; index < array->rgsabound[0].cElements; ++index) {
        step(data[index], index);
    }
    SafeArrayUnaccessData(array);
}

}  // namespace

array_ptr make_array(const std::vector<std::string>& texts) {
    array_ptr array = make_vector(VT_BSTR, texts.size());
    for_each<BSTR>(array.get(), [&](BSTR& element, ULONG index) { element = to_bstr(texts[index]); });
    return array;
}

array_ptr make_array(const std::vector<int>& numbers) {
    array_ptr array = make_vector(VT_I4, numbers.size());
    for_each<LONG>(array.get(), [&](LONG& element, ULONG index) { element = numbers[index]; });
    return array;
}

array_ptr make_array(const std::vector<ref<IUnknown>>& objects) {
    array_ptr array = make_vector(VT_VARIANT, objects.size());
    for_each<VARIANT>(array.get(), [&](VARIANT& element, ULONG index) {
        element.vt = VT_UNKNOWN;
        element.punkVal = ref<IUnknown>(objects[index]).detach();
    });
    return array;
}

std::vector<ref<IUnknown>> read_objects(SAFEARRAY* array) {
    std::vector<ref<IUnknown>> objects;
    if (array != nullptr) {
        for_each<VARIANT>(array, [&](VARIANT& element, ULONG) {
            const bool is_object = element.vt == VT_UNKNOWN || element.vt == VT_DISPATCH;
            objects.emplace_back(is_object ? element.punkVal : nullptr);
        });
    }
    return objects;
}

}  // namespace host
