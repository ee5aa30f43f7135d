#pragma once
// The checksum of a frame: 1 plus the codes of every character behind the two
// checksum digits, modulo 256, written as two hex digits behind the start
// mark. For "(" and "[" frames that is the kind character up to and including
// "]"; for a text frame, "1" up to and including its NUL.
#include <cstdint>
#include <string>
#include <string_view>

namespace filo::bus {

// 1 plus the codes of the characters, modulo 256.
std::uint8_t checksum(std::string_view covered);

// A frame written without its checksum, with the checksum put behind its first
// character and computed over everything after that character:
// "(600000055]" gives "(1E600000055]". An empty text stays empty.
std::string with_checksum(std::string_view frame_without_checksum);

// Whether characters 2 and 3 are the checksum of everything behind them.
// Too short a text, or digits that are not upper-case hex, are wrong.
bool checksum_ok(std::string_view frame);

}  // namespace filo::bus
