#include "common/basic_functions.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace filo::basic {
namespace {

bool is_skipped(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

int digit_value(char c, int base) {
    int v = -1;
    if (c >= '0' && c <= '9')
        v = c - '0';
    else if (c >= 'a' && c <= 'f')
        v = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
        v = c - 'A' + 10;
    return v < base ? v : -1;
}

// Yields the characters of a text with blanks removed, as Val reads them.
class Reader {
  public:
    explicit Reader(std::string_view t) : text_(t) { skip(); }
    bool done() const { return pos_ >= text_.size(); }
    char peek() const { return done() ? '\0' : text_[pos_]; }
    void next() {
        ++pos_;
        skip();
    }

  private:
    void skip() {
        while (pos_ < text_.size() && is_skipped(text_[pos_])) ++pos_;
    }
    std::string_view text_;
    std::size_t pos_ = 0;
};

double prefixed(Reader& r, int base) {
    // Hexadecimal and octal literals are 16-bit (or 32-bit when longer) signed
    // values in the classic dialect; the stored data never relies on the sign.
    std::uint64_t v = 0;
    int digits = 0;
    for (int d; (d = digit_value(r.peek(), base)) >= 0 && digits < 16; r.next(), ++digits)
        v = v * static_cast<unsigned>(base) + static_cast<unsigned>(d);
    if (digits == 0) return 0.0;
    if (v <= 0xFFFF) return static_cast<double>(static_cast<std::int16_t>(v));
    if (v <= 0xFFFFFFFFu) return static_cast<double>(static_cast<std::int32_t>(v));
    return static_cast<double>(v);
}

}  // namespace

double val(std::string_view text) {
    Reader r(text);
    if (r.peek() == '&') {
        r.next();
        char p = r.peek();
        if (p == 'H' || p == 'h') {
            r.next();
            return prefixed(r, 16);
        }
        if (p == 'O' || p == 'o') {
            r.next();
            return prefixed(r, 8);
        }
        return 0.0;
    }
    std::string number;
    if (r.peek() == '+' || r.peek() == '-') {
        number += r.peek();
        r.next();
    }
    bool digits = false, point = false;
    while (!r.done()) {
        char c = r.peek();
        if (c >= '0' && c <= '9')
            digits = true;
        else if (c == '.' && !point)
            point = true;
        else
            break;
        number += c;
        r.next();
    }
    if (!digits) return 0.0;
    char e = r.peek();
    if (e == 'e' || e == 'E' || e == 'd' || e == 'D') {
        std::string exponent = "e";
        r.next();
        if (r.peek() == '+' || r.peek() == '-') {
            exponent += r.peek();
            r.next();
        }
        bool exp_digits = false;
        while (r.peek() >= '0' && r.peek() <= '9') {
            exponent += r.peek();
            exp_digits = true;
            r.next();
        }
        if (exp_digits) number += exponent;
    }
    return std::strtod(number.c_str(), nullptr);
}

long long round_half_even(double value) {
    if (!std::isfinite(value)) return 0;
    return static_cast<long long>(std::nearbyint(value));  // default mode: to nearest even
}

long long cint(std::string_view text) {
    return round_half_even(val(text));
}

std::string_view mid(std::string_view text, std::size_t start, std::size_t length) {
    if (start == 0) start = 1;
    if (start > text.size()) return {};
    return text.substr(start - 1, length);
}

std::string_view mid(std::string_view text, std::size_t start) {
    return mid(text, start, std::string_view::npos);
}

std::string_view trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view left(std::string_view text, std::size_t length) {
    return text.substr(0, length);
}

std::string_view right(std::string_view text, std::size_t length) {
    return length >= text.size() ? text : text.substr(text.size() - length);
}

void set_mid(std::string& text, std::size_t start, std::string_view replacement) {
    if (start == 0 || start > text.size()) return;
    std::size_t n = std::min(replacement.size(), text.size() - (start - 1));
    text.replace(start - 1, n, replacement.substr(0, n));
}

std::string escaped_controls(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        const auto b = static_cast<unsigned char>(c);
        if (b >= 0x20 && b != 0x7F && c != '\\') {
            out += c;
            continue;
        }
        static constexpr char kHex[] = "0123456789ABCDEF";
        out += "\\x";
        out += kHex[b >> 4];
        out += kHex[b & 0xF];
    }
    return out;
}

std::string zero_padded(long long value, std::size_t width) {
    std::string digits = std::to_string(value < 0 ? -value : value);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return value < 0 ? "-" + digits : digits;
}

namespace {

// The byte where character n begins (the size when there are fewer).
std::size_t byte_of_character(std::string_view utf8, std::size_t n) {
    std::size_t i = 0;
    for (std::size_t seen = 0; i < utf8.size(); ++i) {
        if (is_continuation_byte(utf8[i])) continue;
        if (seen++ == n) return i;
    }
    return utf8.size();
}

}  // namespace

std::size_t character_count(std::string_view utf8) {
    std::size_t n = 0;
    for (char c : utf8) n += !is_continuation_byte(c);
    return n;
}

std::string_view first_characters(std::string_view utf8, std::size_t n) {
    return utf8.substr(0, byte_of_character(utf8, n));
}

std::string_view characters_after(std::string_view utf8, std::size_t n) {
    return utf8.substr(byte_of_character(utf8, n));
}

}  // namespace filo::basic
