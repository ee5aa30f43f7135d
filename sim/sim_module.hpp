#pragma once
// One module of the simulated installation: what it is, what it shows when
// asked, and everything programming has written into it.
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "bus/frame.hpp"

namespace filo::sim {

// The type of a radio receiver, which learns remote controls by number.
inline constexpr std::uint8_t kRadioReceiverType = 0x4A;

// A remote control as a receiver learnt it: the two bytes of its code, each
// written by its own command ("10" + n - 1 and "90" + n - 1).
struct TaughtRemote {
    std::optional<std::uint8_t> first;
    std::optional<std::uint8_t> second;
};

struct SimModule {
    std::string code;  // 6 characters: address and type
    std::uint16_t address = 0;
    std::uint8_t type = 0;
    bool silent = false;  // never answers, keeps nothing: as if disconnected

    // What programming wrote since the last reset.
    std::map<std::uint8_t, std::uint8_t> registers;  // kind "3": command -> last value
    std::string tipologie;                           // kind "2": 12 hex digits, "" if none
    std::map<std::uint8_t, std::string> texts;       // text records by number, raw 8-bit
    std::vector<bus::CardRecord> cards;              // each card once, in order of arrival
    std::vector<std::string> links;                  // each link record once, in order
    std::map<int, TaughtRemote> remotes;             // receivers only: remote number -> code
    int resets = 0;
    std::optional<std::uint8_t> reset_value;  // of the last reset: 0x68, or 0xFF short message off
    unsigned long frames = 0;                 // frames taken, since the start

    // What it tells when asked, set through the control lines.
    std::map<std::uint8_t, std::uint8_t> readable;  // kind "4": register -> value ("00" if unset)
    bus::AnalogValues analog{{}, bus::kMaxAnalogValues};

    // A reset forgets everything programmed; the counters stay.
    void reset(std::uint8_t value);
    // A frame that the bus carried to this module's address; the frame it
    // answers with, checksum included, if the frame asks for one.
    std::optional<std::string> take(const bus::Frame& frame);
};

// A module made from its code: 6 hex digits, either case; nothing otherwise.
std::optional<SimModule> module_from_code(const std::string& code);

}  // namespace filo::sim
