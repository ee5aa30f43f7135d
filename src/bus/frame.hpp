#pragma once
// What a frame is made of: its marks, the literal frames, and the frame taken
// apart. Frames are text of 8-bit characters, one character a byte.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "bus/card_record.hpp"
#include "bus/link_record.hpp"

namespace filo::bus {

inline constexpr char kStartMark = '(';
inline constexpr char kSweepStartMark = '[';
inline constexpr char kEndMark = ']';
// A text frame runs from Chr(22) to Chr(23) and a NUL of its own.
inline constexpr char kTextStartMark = '\x16';
inline constexpr char kTextEndMark = '\x17';

// Mark, checksum, kind, address, command, value, mark.
inline constexpr std::size_t kShortFrameLength = 13;
inline constexpr std::size_t kMaxAnalogValues = 8;
// Ends the list of an analog answer that has fewer than eight values.
inline constexpr char kAnalogListEnd = '>';

// Stored whole, checksum included: they never change.
inline constexpr std::string_view kOpenProgramming = "(1E600000055]";
inline constexpr std::string_view kCloseProgramming = "(366000000AA]";

// Commands of the kind "8" frames that answer a query.
inline constexpr std::uint8_t kIdentificationCommand = 0xFF;
inline constexpr std::uint8_t kRegisterCommand = 0xFE;

enum class FrameKind : std::uint8_t {
    NotAFrame,             // no start mark, or no end mark
    Unknown,               // framed, but not laid out as any kind below
    Link,                  // "1": writes a link record
    Masks,                 // "2": writes the six input-type masks
    Parameter,             // "3": writes one parameter
    ReadRegister,          // "4": asks for one register
    BusControl,            // "6": meant for the programmer and the bus
    Card,                  // "7": writes a card record
    InputEvent,            // "8": an input of a module (or the PC simulating one)
    IdentificationAnswer,  // "8", command "FF": the value is the module's type
    RegisterAnswer,        // "8", command "FE": the value is the register read
    IdentificationQuery,   // "A"
    AnalogQuery,           // "B"
    AnalogAnswer,          // "C"
    Text,                  // Chr(22) ... Chr(23) NUL: a display text
};

struct AnalogValues {
    std::array<std::uint8_t, kMaxAnalogValues> values{};
    std::size_t count = 0;  // values past count stay 0
    bool operator==(const AnalogValues&) const = default;
};

// A frame taken apart. Only the fields of its kind are filled; the views point
// into the text that was parsed and live as long as it does.
struct Frame {
    FrameKind kind = FrameKind::NotAFrame;
    char start = 0;      // "(", "[" or Chr(22)
    char kind_char = 0;  // the character at position 4, 0 when there is none
    bool checksum_ok = false;
    std::string_view payload;  // all between the kind character and the end mark

    std::uint16_t address = 0;  // also the receiver of a link, the reader of a card
    std::uint8_t command = 0;   // the input of an event, the record of a text
    std::uint8_t value = 0;     // the type of an identification answer
    std::array<std::uint8_t, 6> masks{};
    LinkRecord link;
    CardRecord card;
    AnalogValues analog;
    std::string_view text;  // of a text frame, raw 8-bit
};

}  // namespace filo::bus
