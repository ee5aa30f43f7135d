#pragma once
// The check digits of a module code. The code printed on a module is its
// 6-character code followed by them, and a typed code is compared against
// them wherever an installer enters one.
#include <optional>
#include <string>
#include <string_view>

namespace filo::bus {

// CODICE_CONTROLLO: the sum of the code of character i times 2 to the power
// i, for i from 1 to 6, modulo 256, as two hex digits. Characters count as
// given (the typing filter has already made them upper case); characters
// beyond the sixth are ignored and missing ones count as 0.
std::string CODICE_CONTROLLO(std::string_view code);

// The 8 characters printed on the module: the code and its check digits.
std::string printed_code(std::string_view code);

// Whether a typed 8-character code carries the right check digits in
// characters 7 and 8. Any other length is wrong.
bool check_digits_match(std::string_view typed);

// A code as the typing filter of a code box passes it: "a" to "f" become
// capitals; nothing when any other character than a hex digit is typed.
std::optional<std::string> filtered_code(std::string_view typed);

}  // namespace filo::bus
