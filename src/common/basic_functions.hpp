#pragma once
// The string functions that stored data was designed around (fixed-width
// decimal fields, 1-based positions, lenient number parsing). Positions count
// bytes: every field they are used on is ASCII.

#include <string>
#include <string_view>

namespace filo::basic {

// Leading number of a text, as the classic Val: blanks, tabs and line feeds
// are skipped anywhere, "&H" and "&O" prefixes are understood, and parsing
// stops at the first character that cannot continue the number. "" is 0.
double val(std::string_view text);

// Val rounded half to even, as the classic CInt does.
long long cint(std::string_view text);
long long round_half_even(double value);

// Characters start..start+length-1 (1-based); clipped to the text.
std::string_view mid(std::string_view text, std::size_t start, std::size_t length);
// Characters start..end of the text (1-based).
std::string_view mid(std::string_view text, std::size_t start);
std::string_view left(std::string_view text, std::size_t length);
std::string_view right(std::string_view text, std::size_t length);
// The text without the blanks at either end, as Trim gives it.
std::string_view trim(std::string_view text);

// Replaces characters from 1-based position start with the given text, as the
// statement form of Mid does: the length of the text never changes.
void set_mid(std::string& text, std::size_t start, std::string_view replacement);

// The number as decimal digits, left-padded with "0" to width.
std::string zero_padded(long long value, std::size_t width);

// What the user typed, fit to be quoted in a message: control characters
// (and the backslash that would make them ambiguous) as \xNN, the rest as is.
std::string escaped_controls(std::string_view text);

// UTF-8 texts counted in characters, as the installer sees them.
inline bool is_continuation_byte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
std::size_t character_count(std::string_view utf8);
// The first n characters (all of them when there are fewer), and the rest.
std::string_view first_characters(std::string_view utf8, std::size_t n);
std::string_view characters_after(std::string_view utf8, std::size_t n);

}  // namespace filo::basic
