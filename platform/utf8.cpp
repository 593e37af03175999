#include "platform/utf8.h"

namespace platform {
namespace {

constexpr char32_t bad = 0xFFFFFFFF;

struct decoded {
    char32_t point;
    std::size_t length;
};

// One code point at the start of the bytes; bad when they are not UTF-8.
decoded decode(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 0 || lead > 0xF4 || bytes.size() < length) {
        return {bad, 1};
    }
    char32_t point = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0) != 0x80) {
            return {bad, 1};
        }
        point = (point << 6) | (next & 0x3Fu);
    }
    const bool overlong = (length == 3 && point < 0x800) || (length == 4 && point < 0x10000);
    const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
    if (overlong || surrogate || point > 0x10FFFF) {
        return {bad, 1};
    }
    return {point, length};
}

void append(CString& text, char32_t point) {
    if (sizeof(wchar_t) == 2 && point >= 0x10000) {
        text += static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
    } else {
        text += static_cast<wchar_t>(point);
    }
}

void append(std::string& bytes, char32_t point) {
    if (point < 0x80) {
        bytes += static_cast<char>(point);
        return;
    }
    const int rest = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    bytes += static_cast<char>((0xFF80u >> rest) | (point >> (6 * rest)));
    for (int i = rest - 1; i >= 0; --i) {
        bytes += static_cast<char>(0x80 | ((point >> (6 * i)) & 0x3F));
    }
}

}  // namespace

CString from_utf8(std::string_view bytes) {
    CString text;
    while (!bytes.empty()) {
        const decoded next = decode(bytes);
        append(text, next.point == bad ? static_cast<unsigned char>(bytes[0]) : next.point);
        bytes.remove_prefix(next.length);
    }
    return text;
}

std::string to_utf8(const CString& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto point = static_cast<char32_t>(text[i]);
        const char32_t next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) : 0;
        if (point >= 0xD800 && point <= 0xDBFF && next >= 0xDC00 && next <= 0xDFFF) {
            point = 0x10000 + ((point - 0xD800) << 10) + (next - 0xDC00);
            ++i;
        } else if ((point >= 0xD800 && point <= 0xDFFF) || point > 0x10FFFF) {
            point = 0xFFFD;
        }
        append(bytes, point);
    }
    return bytes;
}

}  // namespace platform
