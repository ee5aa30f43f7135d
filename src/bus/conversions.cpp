#include "bus/conversions.hpp"

#include "common/basic_functions.hpp"

namespace filo::bus {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

int upper_hex_value(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

int any_hex_value(char c) {
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return upper_hex_value(c);
}

// A decimal text as a whole number in [0, max], or nothing. The range is
// tested before rounding: "254.6" is 255, "255.4" is out.
std::optional<int> whole_number(std::string_view decimal, int max) {
    const double v = basic::val(decimal);
    if (!(v >= 0.0 && v <= max)) return std::nullopt;
    return static_cast<int>(basic::round_half_even(v));
}

}  // namespace

void append_hex_byte(std::string& out, std::uint8_t value) {
    out += kHexDigits[value >> 4];
    out += kHexDigits[value & 0xF];
}

void append_hex_address(std::string& out, std::uint16_t address) {
    append_hex_byte(out, static_cast<std::uint8_t>(address >> 8));
    append_hex_byte(out, static_cast<std::uint8_t>(address & 0xFF));
}

std::string hex_byte(std::uint8_t value) {
    std::string s;
    append_hex_byte(s, value);
    return s;
}

std::string hex_address(std::uint16_t address) {
    std::string s;
    append_hex_address(s, address);
    return s;
}

std::optional<std::uint8_t> read_hex_byte(std::string_view two_digits) {
    if (two_digits.size() != 2) return std::nullopt;
    const int high = upper_hex_value(two_digits[0]);
    const int low = upper_hex_value(two_digits[1]);
    if (high < 0 || low < 0) return std::nullopt;
    return static_cast<std::uint8_t>(high * 16 + low);
}

std::optional<std::uint16_t> read_hex_address(std::string_view four_digits) {
    if (four_digits.size() != 4) return std::nullopt;
    const auto high = read_hex_byte(four_digits.substr(0, 2));
    const auto low = read_hex_byte(four_digits.substr(2, 2));
    if (!high || !low) return std::nullopt;
    return static_cast<std::uint16_t>(*high << 8 | *low);
}

std::uint8_t decimal_byte(std::string_view decimal) {
    return static_cast<std::uint8_t>(whole_number(decimal, 255).value_or(0));
}

std::uint8_t bits_byte(std::string_view bits) {
    unsigned value = 0;
    for (std::size_t i = 0; i < 8; ++i)
        if (i < bits.size() && bits[i] == '1') value |= 0x80u >> i;
    return static_cast<std::uint8_t>(value);
}

std::uint8_t bits_byte_inv(std::string_view bits) {
    unsigned value = 0;
    for (std::size_t i = 0; i < 8; ++i)
        if (i < bits.size() && bits[i] == '1') value |= 1u << i;
    return static_cast<std::uint8_t>(value);
}

char digit_of(int number) {
    if (number >= 0 && number <= 9) return static_cast<char>('0' + number);
    if (number >= 10 && number <= 34) return static_cast<char>('A' + number - 10);
    return '0';
}

std::optional<int> number_of_digit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'A' && digit <= 'Y') return digit - 'A' + 10;
    return std::nullopt;
}

std::string DEC_A_HEX(std::string_view decimal) {
    return hex_byte(decimal_byte(decimal));
}

std::string DEC_A_BIN(std::string_view decimal) {
    const std::uint8_t value = decimal_byte(decimal);
    std::string bits(8, '0');
    for (std::size_t i = 0; i < 8; ++i)
        if (value & (0x80u >> i)) bits[i] = '1';
    return bits;
}

std::string BIN_A_DEC(std::string_view bits) {
    const std::uint8_t value = bits_byte(bits);
    return value == 0 ? std::string("00") : std::to_string(value);
}

std::string BIN_A_HEX(std::string_view bits) {
    return hex_byte(bits_byte(bits));
}

std::string BIN_A_HEX_INV(std::string_view bits) {
    return hex_byte(bits_byte_inv(bits));
}

std::string SOMMA_HEX(long long n, std::string_view hex) {
    if (n < 0 || n > 255) n = 0;
    unsigned long long value = 0;
    for (std::size_t i = 0; i < hex.size() && i < 14; ++i) {
        const int d = any_hex_value(hex[i]);
        if (d < 0) break;
        value = value * 16 + static_cast<unsigned>(d);
    }
    value += static_cast<unsigned long long>(n);
    std::string digits;
    do {
        digits.insert(digits.begin(), kHexDigits[value & 0xF]);
        value >>= 4;
    } while (value != 0);
    if (digits.size() < 2) digits.insert(digits.begin(), '0');
    return digits;
}

std::string NUM_A_CIFRA(std::string_view decimal) {
    return std::string(1, digit_of(whole_number(decimal, 34).value_or(0)));
}

}  // namespace filo::bus
