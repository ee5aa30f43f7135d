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

void write_parameter(SimModule& m, std::uint8_t command, std::uint8_t value) {
    if (command == kResetCommand) {
        m.reset(value);
        return;
    }
    m.registers[command] = value;
    if (m.type != kRadioReceiverType) return;
    if (command >= kRemoteFirstBase && command < kRemoteFirstBase + kMaxRemotes)
        m.remotes[command - kRemoteFirstBase + 1].first = value;
    else if (command >= kRemoteSecondBase && command < kRemoteSecondBase + kMaxRemotes)
        m.remotes[command - kRemoteSecondBase + 1].second = value;
}

}  // namespace

void SimModule::reset(std::uint8_t value) {
    registers.clear();
    tipologie.clear();
    texts.clear();
    cards.clear();
    links.clear();
    remotes.clear();
    ++resets;
    reset_value = value;
}

std::optional<std::string> SimModule::take(const bus::Frame& frame) {
    ++frames;
    switch (frame.kind) {
        case bus::FrameKind::IdentificationQuery:
            return bus::identification_answer_frame(address, type);
        case bus::FrameKind::ReadRegister: {
            const auto it = readable.find(frame.command);
            return bus::register_answer_frame(address, it == readable.end() ? 0 : it->second);
        }
        case bus::FrameKind::AnalogQuery:
            return bus::analog_answer_frame(address, analog);
        case bus::FrameKind::Parameter:
            write_parameter(*this, frame.command, frame.value);
            break;
        case bus::FrameKind::Masks:
            tipologie.clear();
            for (std::uint8_t mask : frame.masks) bus::append_hex_byte(tipologie, mask);
            break;
        case bus::FrameKind::Link: {
            std::string record(frame.payload);  // the 35 characters as they came
            if (std::find(links.begin(), links.end(), record) == links.end())
                links.push_back(std::move(record));
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
