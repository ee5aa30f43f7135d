#pragma once
// The panels' 8-bit character set. Texts are kept in UTF-8 and converted
// when a frame is built, and back when what a module holds is shown.
#include <string>
#include <string_view>

namespace filo::basic {

// Each character the set lacks, and each byte that is not valid UTF-8,
// becomes "?".
std::string utf8_to_windows1252(std::string_view utf8);
// Bytes the set leaves undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) become "?".
std::string windows1252_to_utf8(std::string_view bytes);

}  // namespace filo::basic
