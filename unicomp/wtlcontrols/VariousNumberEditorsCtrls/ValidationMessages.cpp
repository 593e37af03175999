#include "unicomp/wtlcontrols/VariousNumberEditorsCtrls/ValidationMessages.h"

#include <array>
#include <charconv>
#include <limits>
#include <string>

#include "platform/module.h"
#include "platform/resources.h"
#include "unicomp/FormatUtil/interface/LocaleNumberFormat.h"

namespace WTLControls::NumberEditors {

namespace {

constexpr std::size_t longest_message = 256;
constexpr const wchar_t* integer_form = L"%i";
constexpr const wchar_t* double_form = L"%f";

struct known_message {
    UINT id;
    const wchar_t* text;
    // Null for a text without numbers.
    const wchar_t* form;
};

constexpr std::array<known_message, 6> known_messages{{
    {ValidationMessage::Integer, L"Please enter an integer.", nullptr},
    {ValidationMessage::Number, L"Please enter a number.", nullptr},
    {ValidationMessage::IntegerRange, L"Please enter an integer between %1 and %2.", integer_form},
    {ValidationMessage::NumberRange, L"Please enter a number between %1 and %2.", double_form},
    {ValidationMessage::PositiveInteger, L"Please enter a positive integer.", nullptr},
    {ValidationMessage::Title, L"Invalid property value", nullptr},
}};

CString with_form(const CString& text, const wchar_t* form) {
    CString result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'%' && at + 1 < text.size()) {
            result += form;
            ++at;
        } else {
            result += text[at];
        }
    }
    return result;
}

CString filled(const CString& text, const CString& form, const std::array<CString, 2>& numbers) {
    CString result;
    std::size_t at = 0;
    for (const CString& number : numbers) {
        const std::size_t place = text.find(form, at);
        if (place == CString::npos) {
            break;
        }
        result += text.substr(at, place - at) + number;
        at = place + form.size();
    }
    return (result + text.substr(at)).substr(0, longest_message);
}

CString fixed_text(double value) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> buffer{};
    constexpr int decimals = 6;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, decimals);
    CString text(buffer.data(), end.ptr);
    const std::size_t point = text.find(L'.');
    if (point != CString::npos) {
        text.replace(point, 1, locale_records::number().m_sDecimalSeparator);
    }
    return text;
}

HMODULE find_library() {
    const HMODULE translated = platform::load_library(CString(L"mfc42loc.dll"));
    return translated != nullptr ? translated : platform::load_library(CString(L"mfc42.dll"));
}

}  // namespace

message_source system_messages() {
    // Looked for once: a search of the folders for each editor would be felt.
    static const HMODULE library = find_library();
    return [](UINT id) {
        return library != nullptr ? platform::load_string(id, library) : std::optional<CString>();
    };
}

validation_messages load_validation_messages(const message_source& source) {
    validation_messages result;
    for (const known_message& each : known_messages) {
        const CString text = source(each.id).value_or(each.text).substr(0, longest_message);
        result[each.id] = each.form != nullptr ? with_form(text, each.form) : text;
    }
    return result;
}

CString fill_integers(const CString& text, LONG low, LONG high) {
    return filled(text, integer_form, {std::to_wstring(low), std::to_wstring(high)});
}

CString fill_doubles(const CString& text, double low, double high) {
    return filled(text, double_form, {fixed_text(low), fixed_text(high)});
}

}  // namespace WTLControls::NumberEditors
