#pragma once
#include <cstddef>
#include <cstdint>

namespace filo::texts {

// One key per entry of the text tables (data/texts.def, then
// data/texts_filo.def, data/texts_captions.def). Every text the user reads is looked up by one of these.
enum class Text : std::uint16_t {
#define FILO_TEXT(key, ...) key,
#include "texts.def"
#include "texts_filo.def"
#include "texts_captions.def"
#undef FILO_TEXT
};

// Entries of the classic table (texts.def), and of both tables together.
inline constexpr std::size_t kClassicTextCount = 0
#define FILO_TEXT(...) +1
#include "texts.def"
#undef FILO_TEXT
    ;
inline constexpr std::size_t kTextCount = kClassicTextCount
#define FILO_TEXT(...) +1
#include "texts_filo.def"
#include "texts_captions.def"
#undef FILO_TEXT
    ;

}  // namespace filo::texts
