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
// The photo-sensor module that keeps a room's light at a set point.
inline constexpr std::uint8_t kPhotoSensorType = 0x19;

// What a module is doing now; bit n-1 stands for point n.
struct ModuleState {
    std::uint8_t relays = 0;  // as its links drive them, before the inversion mask
    std::uint16_t flags = 0;
    std::uint8_t inputs = 0;  // pressed (or closed) now
    std::uint8_t held = 0;    // held down past the short press
    std::uint8_t lamps = 0;   // the eight group lamps
};

// The room of a photo-sensor module: daylight plus what its lamps give at
// the command it drives them with, both on the sensor's 0-255 scale.
struct Room {
    int daylight = 60;
    int lamps = 160;          // what the lamps add at full command
    int command = 0;          // 0-255, to the lamps
    bool setup = false;       // in set-up mode: it regulates towards the set point
    bool regulating = false;  // a regulation step is due
    int reading() const;
};

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
    std::vector<bus::LinkRecord> link_records;       // the same, taken apart
    std::map<int, TaughtRemote> remotes;             // receivers only: remote number -> code
    int resets = 0;
    std::optional<std::uint8_t> reset_value;  // of the last reset: 0x68, or 0xFF short message off
    unsigned long frames = 0;                 // frames taken, since the start

    // What it tells when asked, set through the control lines.
    std::map<std::uint8_t, std::uint8_t> readable;  // kind "4": register -> value ("00" if unset)
    bus::AnalogValues analog{{}, bus::kMaxAnalogValues};
    bool analog_set = false;  // by an "analog" line, over what the module reads itself

    ModuleState state;
    Room room;  // photo-sensor modules only

    // The relays as they stand at the terminals: the links' state through
    // the inversion mask, which is also how the outputs are tested.
    std::uint8_t relay_outputs() const;
    // What a register read answers: the live state, unless a "register"
    // line set the register.
    std::uint8_t read_register(std::uint8_t reg) const;
    // What an analog query answers now.
    bus::AnalogValues analog_values() const;
    // Whether a change of relay n puts its event on the bus: a link of the
    // module to that relay asks for it.
    bool emits_event(int relay) const;

    // A reset forgets everything programmed; the counters stay.
    void reset(std::uint8_t value);
    // A frame that the bus carried to this module's address; the frame it
    // answers with, checksum included, if the frame asks for one.
    std::optional<std::string> take(const bus::Frame& frame);
};

// A module made from its code: 6 hex digits, either case; nothing otherwise.
std::optional<SimModule> module_from_code(const std::string& code);

}  // namespace filo::sim
