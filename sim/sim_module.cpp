#include "sim/sim_module.hpp"

#include <algorithm>
#include <cctype>

#include "bus/card_record.hpp"
#include "bus/conversions.hpp"
#include "bus/frame_builder.hpp"

namespace filo::sim {
namespace {

constexpr std::uint8_t kResetCommand = 0x6F;
// A receiver keeps remote n under "10" + n - 1 and "90" + n - 1: 100 remotes.
constexpr std::uint8_t kRemoteFirstBase = 0x10;
constexpr std::uint8_t kRemoteSecondBase = 0x90;
constexpr int kMaxRemotes = 100;
constexpr std::uint8_t kInversionCommand = 0x67;
// The photo-sensor's set-up mode: "65" with "01" enters it, "81" leaves it.
constexpr std::uint8_t kSetupCommand = 0x65;
constexpr std::uint8_t kSetupOn = 0x01;
constexpr std::uint8_t kSetupOff = 0x81;
// Registers of the state, as the analysis reads them.
enum Register : std::uint8_t {
    kRelays = 0x65,
    kFlagsLow = 0xA1,
    kFlagsHigh = 0xA2,
    kInputs = 0x61,
    kHeld = 0x62,
    kLamps = 0x86,
};
// Both "EVENTO SI" bits of a link's mode byte.
constexpr std::uint8_t kEventBits = 0x18;

void write_parameter(SimModule& m, std::uint8_t command, std::uint8_t value) {
    if (command == kResetCommand) {
        m.reset(value);
        return;
    }
    m.registers[command] = value;
    if (m.type == kPhotoSensorType && command == kSetupCommand) {
        if (value == kSetupOn) m.room.setup = true;
        if (value == kSetupOff) m.room.setup = false;
    }
    if (m.type != kRadioReceiverType) return;
    if (command >= kRemoteFirstBase && command < kRemoteFirstBase + kMaxRemotes)
        m.remotes[command - kRemoteFirstBase + 1].first = value;
    else if (command >= kRemoteSecondBase && command < kRemoteSecondBase + kMaxRemotes)
        m.remotes[command - kRemoteSecondBase + 1].second = value;
}

}  // namespace

int Room::reading() const {
    return std::min(255, daylight + command * lamps / 255);
}

std::uint8_t SimModule::relay_outputs() const {
    const auto it = registers.find(kInversionCommand);
    return static_cast<std::uint8_t>(state.relays ^ (it == registers.end() ? 0 : it->second));
}

std::uint8_t SimModule::read_register(std::uint8_t reg) const {
    if (const auto it = readable.find(reg); it != readable.end()) return it->second;
    switch (reg) {
        case kRelays:
            return relay_outputs();
        case kFlagsLow:
            return static_cast<std::uint8_t>(state.flags & 0xFF);
        case kFlagsHigh:
            return static_cast<std::uint8_t>(state.flags >> 8);
        case kInputs:
            return state.inputs;
        case kHeld:
            return state.held;
        case kLamps:
            return state.lamps;
        default:
            return 0;
    }
}

bus::AnalogValues SimModule::analog_values() const {
    if (analog_set || type != kPhotoSensorType) return analog;
    bus::AnalogValues values{{}, bus::kMaxAnalogValues};
    values.values[0] = static_cast<std::uint8_t>(room.reading());
    values.values[1] = static_cast<std::uint8_t>(room.command);
    return values;
}

bool SimModule::emits_event(int relay) const {
    return std::any_of(link_records.begin(), link_records.end(), [&](const bus::LinkRecord& r) {
        return r.numero_uscita == relay && (r.modo_ & kEventBits) == kEventBits;
    });
}

void SimModule::reset(std::uint8_t value) {
    registers.clear();
    tipologie.clear();
    texts.clear();
    cards.clear();
    links.clear();
    link_records.clear();
    remotes.clear();
    ++resets;
    reset_value = value;
}

std::optional<std::string> SimModule::take(const bus::Frame& frame) {
    ++frames;
    switch (frame.kind) {
        case bus::FrameKind::IdentificationQuery:
            return bus::identification_answer_frame(address, type);
        case bus::FrameKind::ReadRegister:
            return bus::register_answer_frame(address, read_register(frame.command));
        case bus::FrameKind::AnalogQuery:
            return bus::analog_answer_frame(address, analog_values());
        case bus::FrameKind::Parameter:
            write_parameter(*this, frame.command, frame.value);
            break;
        case bus::FrameKind::Masks:
            tipologie.clear();
            for (std::uint8_t mask : frame.masks) bus::append_hex_byte(tipologie, mask);
            break;
        case bus::FrameKind::Link: {
            std::string record(frame.payload);  // the 35 characters as they came
            if (std::find(links.begin(), links.end(), record) == links.end()) {
                links.push_back(std::move(record));
                link_records.push_back(frame.link);
            }
            break;
        }
        case bus::FrameKind::Card:
            if (std::find(cards.begin(), cards.end(), frame.card) == cards.end())
                cards.push_back(frame.card);
            break;
        case bus::FrameKind::Text:
            texts[frame.command] = std::string(frame.text);
            break;
        default:
            break;  // events simulated by the PC, answers of other modules
    }
    return std::nullopt;
}

std::optional<SimModule> module_from_code(const std::string& code) {
    if (code.size() != 6) return std::nullopt;
    std::string upper = code;
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const auto address = bus::read_hex_address(std::string_view(upper).substr(0, 4));
    const auto type = bus::read_hex_byte(std::string_view(upper).substr(4, 2));
    if (!address || !type) return std::nullopt;
    SimModule m;
    m.code = upper;
    m.address = *address;
    m.type = *type;
    return m;
}

}  // namespace filo::sim
