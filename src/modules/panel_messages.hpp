#pragma once
// The record of one message of a luminous panel and the control codes in its
// text: plain functions that the panel window, the run and the tests share.
//
// A message record (RECORD_MESSAGGIO) is up to 64 characters: two digits of
// persistence, the mode letter, then the text with its colour codes in line.
// It is stored in two halves, riserva2 and riserva3, of 32 characters each.
// Lengths count characters, not bytes: what is typed in UTF-8 becomes one
// 8-bit character on the panel.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "texts/text_key.hpp"

namespace filo::modules {

// The rows of a panel interface. A link carries 96 message bits (message n at
// position 97 - n), so only rows 1 to 96 can ever be called by a link: the
// window offers free places up to row 96 and no further. Row 97 lies beyond
// those bits: a message written there could never be called, so the window
// leaves it empty (the run would still send one that another tool wrote).
// Row 98 holds the idle text, edited under "MESSAGGIO A VUOTO", which has no
// name and no place in the list; row 99 is not used.
inline constexpr int kLastMessageRow = 96;
inline constexpr int kUncallableRow = 97;
inline constexpr int kIdleMessageRow = 98;
inline constexpr int kPanelRows = 99;

inline constexpr std::size_t kRecordLength = 64;
inline constexpr std::size_t kHalfLength = 32;
inline constexpr int kMaxPersistence = 20;
// A text shorter than this leaves the record empty, and the run skips it.
inline constexpr std::size_t kShortestText = 5;

struct MessageMode {
    char letter;
    texts::Text caption;
};
// MODI_MESSAGGIO, in the order of the window's list.
inline constexpr std::array<MessageMode, 4> MODI_MESSAGGIO = {{
    {.letter = 'B', .caption = texts::Text::PANEL_MODE_DIRECT},
    {.letter = 'K', .caption = texts::Text::PANEL_MODE_UP},
    {.letter = 'L', .caption = texts::Text::PANEL_MODE_DOWN},
    {.letter = 'V', .caption = texts::Text::PANEL_MODE_BLINK},
}};
inline constexpr char kBlinkingMode = 'V';
// The index of a mode letter in MODI_MESSAGGIO, -1 for any other.
int mode_index(char letter);

struct Rgb {
    std::uint8_t red, green, blue;
    bool operator==(const Rgb&) const = default;
};
struct MessageColour {
    std::string_view code;  // two characters of the text
    texts::Text caption;
    std::optional<Rgb> preview;  // none: not a colour
};
// COLORI_MESSAGGIO, in the order of the window's list; what follows a colour
// code takes its colour on the panel. The last, "^s", sounds and colours
// nothing.
inline constexpr std::array<MessageColour, 8> COLORI_MESSAGGIO = {{
    {.code = "\\b", .caption = texts::Text::PANEL_RED, .preview = Rgb{0xFF, 0x00, 0x00}},
    {.code = "\\a", .caption = texts::Text::PANEL_DIM_RED, .preview = Rgb{0xB0, 0x00, 0x00}},
    {.code = "\\h", .caption = texts::Text::PANEL_GREEN, .preview = Rgb{0x00, 0xFF, 0x00}},
    {.code = "\\g", .caption = texts::Text::PANEL_DIM_GREEN, .preview = Rgb{0x00, 0xB0, 0x00}},
    {.code = "\\d", .caption = texts::Text::PANEL_YELLOW, .preview = Rgb{0xFF, 0xFF, 0x00}},
    {.code = "\\f", .caption = texts::Text::PANEL_ORANGE, .preview = Rgb{0xFF, 0x80, 0x00}},
    {.code = "\\e", .caption = texts::Text::PANEL_DIM_ORANGE, .preview = Rgb{0xFF, 0xC0, 0x80}},
    {.code = "^s", .caption = texts::Text::PANEL_SOUND, .preview = std::nullopt},
}};
inline constexpr int kSoundCode = 7;
inline constexpr Rgb kCodeColour{0xFF, 0xFF, 0xFF};  // codes show in white
// The colour a message starts in: a new text begins with red's code.
inline constexpr Rgb kStartColour{0xFF, 0x00, 0x00};

// The colour code (index 0 to 6) at byte `pos` of the text, -1 if none.
int colour_code_at(std::string_view text, std::size_t pos);

// One message as the window holds it.
struct MessageRecord {
    std::string persistence;  // as typed in TEMPO DI PERSISTENZA
    char mode = 'B';
    std::string text;  // with its codes in line
    bool operator==(const MessageRecord&) const = default;
};
// RECORD_MESSAGGIO of a message: the persistence padded to two digits, the
// letter and the text, cut at 64 characters; "" for a text of fewer than 5.
std::string RECORD_MESSAGGIO(const MessageRecord& message);
struct RecordHalves {
    std::string riserva2, riserva3;
    bool operator==(const RecordHalves&) const = default;
};
RecordHalves split_record(std::string_view record);
// A record read back; what it lacks stays at the defaults (mode 'B', "").
MessageRecord read_record(std::string_view riserva2, std::string_view riserva3);

// Text5 after a change of the text to `length` characters, codes included.
std::string persistence_for_length(std::size_t length, std::string_view current);
// Text5 as typed: digits only, above 20 it reads "20".
std::string typed_persistence(std::string_view typed);

// The text after a colour was chosen with the caret selection given in
// characters: code k goes in at the selection, replacing the code that ends
// the text when one does. caret: where typing goes on.
struct ColourInsertion {
    std::string text;
    std::size_t caret = 0;
};
ColourInsertion insert_colour_code(std::string_view text, std::size_t selection_start,
                                   std::size_t selection_length, int k);

// A piece of text in one colour. `code`: a control code, drawn in white in
// the editor and not shown on the panel.
struct ColouredRun {
    std::string text;
    Rgb colour;
    bool code = false;
    bool operator==(const ColouredRun&) const = default;
};
// The text as the editor draws it: codes in white, the rest in the colour of
// the last colour code before it (red before any). "^s" is text here.
std::vector<ColouredRun> coloured_runs(std::string_view text);

// What the panel shows: the coloured text without its codes, whether it
// blinks (mode V), scrolls up or down, and where it sounds.
struct PanelPreview {
    std::vector<ColouredRun> runs;
    char mode = 'B';
    bool sounds = false;
};
PanelPreview panel_preview(const MessageRecord& message);

}  // namespace filo::modules
