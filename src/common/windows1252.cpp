#include "common/windows1252.hpp"

#include <array>
#include <cstdint>

namespace filo::basic {
namespace {

// Code points of bytes 0x80 to 0x9F; 0 where the set defines nothing. The
// rest of the set is Latin-1: byte and code point are the same.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char byte_of(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (std::size_t i = 0; i < kHighControls.size(); ++i)
        if (kHighControls[i] == c) return static_cast<char>(0x80 + i);
    return '?';
}

void append_utf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

}  // namespace

std::string utf8_to_windows1252(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto lead = static_cast<std::uint8_t>(utf8[i]);
        int length = lead < 0x80           ? 1
                     : (lead >> 5) == 0x6  ? 2
                     : (lead >> 4) == 0xE  ? 3
                     : (lead >> 3) == 0x1E ? 4
                                           : 0;
        char32_t c = length == 1   ? lead
                     : length == 2 ? lead & 0x1F
                     : length == 3 ? lead & 0x0F
                                   : lead & 0x07;
        bool valid = length > 0 && i + static_cast<std::size_t>(length) <= utf8.size();
        for (int k = 1; valid && k < length; ++k) {
            const auto next = static_cast<std::uint8_t>(utf8[i + static_cast<std::size_t>(k)]);
            if ((next & 0xC0) != 0x80) valid = false;
            c = (c << 6) | (next & 0x3F);
        }
        // Overlong forms would smuggle in characters by another spelling.
        if (valid && ((length == 2 && c < 0x80) || (length == 3 && c < 0x800) ||
                      (length == 4 && c < 0x10000)))
            valid = false;
        if (!valid) {
            out += '?';
            ++i;
            continue;
        }
        out += byte_of(c);
        i += static_cast<std::size_t>(length);
    }
    return out;
}

std::string windows1252_to_utf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (char ch : bytes) {
        const auto b = static_cast<std::uint8_t>(ch);
        const char32_t c = b >= 0x80 && b < 0xA0 ? kHighControls[b - 0x80] : b;
        if (c == 0 && b != 0)
            out += '?';
        else
            append_utf8(out, c);
    }
    return out;
}

}  // namespace filo::basic
