#pragma once
// The conversions with which every field of a frame is written. The named
// ones take the stored text and give text, as the columns they read are text;
// none of them throws. Decimal texts are read as Val reads them (blanks
// skipped, "&H" understood, a text that is not a number reads as 0), and a
// fraction inside the range rounds half to even, as the classic conversions
// to a whole number do.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace filo::bus {

// Two upper-case hexadecimal digits a byte, four an address.
std::string hex_byte(std::uint8_t value);
std::string hex_address(std::uint16_t address);
void append_hex_byte(std::string& out, std::uint8_t value);
void append_hex_address(std::string& out, std::uint16_t address);

// Exactly two (four) upper-case hexadecimal digits, as frames hold them;
// nothing for any other text, lower case included.
std::optional<std::uint8_t> read_hex_byte(std::string_view two_digits);
std::optional<std::uint16_t> read_hex_address(std::string_view four_digits);

// The byte behind DEC_A_HEX and DEC_A_BIN: 0 to 255, and 0 for a value
// outside that range or a text that is not a number.
std::uint8_t decimal_byte(std::string_view decimal);

// The byte of a bit string of "0" and "1". bits_byte weighs the first
// character 128, bits_byte_inv weighs it 1. Only the first eight characters
// count; a "1" is a set bit, any other character and any missing character
// (a short text) a clear one.
std::uint8_t bits_byte(std::string_view bits);
std::uint8_t bits_byte_inv(std::string_view bits);

// The one character that stands for a number on the wire: 0-9 as "0"-"9",
// 10-34 as "A"-"Y", anything else as "0"; and back, nothing for a character
// that no number gives.
char digit_of(int number);
std::optional<int> number_of_digit(char digit);

// DEC_A_HEX: two hex digits; "00" outside 0-255 ("256" gives "00").
std::string DEC_A_HEX(std::string_view decimal);
// DEC_A_BIN: eight characters "0"/"1", first weighing 128; "00000000"
// outside 0-255.
std::string DEC_A_BIN(std::string_view decimal);
// BIN_A_DEC: the decimal value of a bit string (as bits_byte reads it),
// without leading zeros, except that 0 comes back as "00".
std::string BIN_A_DEC(std::string_view bits);
// BIN_A_HEX / BIN_A_HEX_INV: two hex digits of bits_byte / bits_byte_inv.
std::string BIN_A_HEX(std::string_view bits);
std::string BIN_A_HEX_INV(std::string_view bits);
// SOMMA_HEX: the text read as hexadecimal plus n, in upper-case digits, at
// least two and not cut to two. n outside 0-255 counts as 0. The text is read
// from its leading hexadecimal digits (either case, at most 14); reading
// stops at the first other character, and a text without any reads as 0.
std::string SOMMA_HEX(long long n, std::string_view hex);
// NUM_A_CIFRA: digit_of the decimal value; "0" outside 0-34.
std::string NUM_A_CIFRA(std::string_view decimal);

}  // namespace filo::bus
