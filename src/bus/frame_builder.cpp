#include "bus/frame_builder.hpp"

#include <utility>

#include "bus/checksum.hpp"
#include "bus/conversions.hpp"

namespace filo::bus {
namespace {

// Start mark, room for the checksum, kind.
std::string begin(char start, char kind, std::size_t length) {
    std::string frame;
    frame.reserve(length);
    frame += start;
    frame += "00";
    frame += kind;
    return frame;
}

// Writes the checksum of everything behind its two digits into them.
void put_checksum(std::string& frame) {
    const std::uint8_t sum = checksum(std::string_view(frame).substr(3));
    std::string digits = hex_byte(sum);
    frame[1] = digits[0];
    frame[2] = digits[1];
}

std::string finished(std::string frame) {
    frame += kEndMark;
    put_checksum(frame);
    return frame;
}

}  // namespace

std::string short_frame(char kind, std::uint16_t address, std::uint8_t command, std::uint8_t value,
                        char start) {
    std::string frame = begin(start, kind, kShortFrameLength);
    append_hex_address(frame, address);
    append_hex_byte(frame, command);
    append_hex_byte(frame, value);
    return finished(std::move(frame));
}

std::string parameter_frame(std::uint16_t address, std::uint8_t command, std::uint8_t value) {
    return short_frame('3', address, command, value);
}

std::string read_register_frame(std::uint16_t address, std::uint8_t command) {
    return short_frame('4', address, command, 0);
}

std::string bus_control_frame(std::uint8_t value) {
    return short_frame('6', 0, 0, value);
}

std::string input_event_frame(std::uint16_t address, std::uint8_t input, std::uint8_t value) {
    return short_frame('8', address, input, value);
}

std::string identification_query_frame(std::uint16_t address, char start) {
    return short_frame('A', address, 0, 0, start);
}

std::string identification_answer_frame(std::uint16_t address, std::uint8_t type) {
    return short_frame('8', address, kIdentificationCommand, type);
}

std::string register_answer_frame(std::uint16_t address, std::uint8_t value) {
    return short_frame('8', address, kRegisterCommand, value);
}

namespace {

// Parsing keeps whatever stands in the field that is always "00" on the wire.
std::string analog_query_with(std::uint16_t address, std::uint8_t command) {
    std::string frame = begin(kStartMark, 'B', 11);
    append_hex_address(frame, address);
    append_hex_byte(frame, command);
    return finished(std::move(frame));
}

}  // namespace

std::string analog_query_frame(std::uint16_t address) {
    return analog_query_with(address, 0);
}

std::string analog_answer_frame(std::uint16_t address, const AnalogValues& values) {
    const std::size_t count = values.count < kMaxAnalogValues ? values.count : kMaxAnalogValues;
    std::string frame = begin(kStartMark, 'C', 10 + 2 * count);
    append_hex_address(frame, address);
    for (std::size_t i = 0; i < count; ++i) append_hex_byte(frame, values.values[i]);
    if (count < kMaxAnalogValues) frame += kAnalogListEnd;
    return finished(std::move(frame));
}

std::string masks_frame(std::uint16_t address, const std::array<std::uint8_t, 6>& masks) {
    std::string frame = begin(kStartMark, '2', 21);
    append_hex_address(frame, address);
    for (std::uint8_t mask : masks) append_hex_byte(frame, mask);
    return finished(std::move(frame));
}

std::string link_frame(const LinkRecord& record) {
    std::string frame = begin(kStartMark, '1', 5 + kLinkRecordLength);
    append_link_record(frame, record);
    return finished(std::move(frame));
}

std::string card_frame(const CardRecord& record) {
    std::string frame = begin(kStartMark, '7', 5 + kCardRecordLength);
    append_card_record(frame, record);
    return finished(std::move(frame));
}

std::string text_frame(std::uint16_t address, std::uint8_t record, std::string_view text) {
    std::string frame = begin(kTextStartMark, '1', 12 + text.size());
    append_hex_address(frame, address);
    append_hex_byte(frame, record);
    frame += text;
    frame += kTextEndMark;
    frame += '\0';
    put_checksum(frame);
    return frame;
}

namespace {

std::string build_by_kind(const Frame& f) {
    switch (f.kind) {
        case FrameKind::Parameter:
        case FrameKind::ReadRegister:
        case FrameKind::BusControl:
        case FrameKind::InputEvent:
        case FrameKind::IdentificationAnswer:
        case FrameKind::RegisterAnswer:
        case FrameKind::IdentificationQuery:
            return short_frame(f.kind_char, f.address, f.command, f.value, f.start);
        case FrameKind::Link:
            return link_frame(f.link);
        case FrameKind::Masks:
            return masks_frame(f.address, f.masks);
        case FrameKind::Card:
            return card_frame(f.card);
        case FrameKind::AnalogQuery:
            return analog_query_with(f.address, f.command);
        case FrameKind::AnalogAnswer:
            return analog_answer_frame(f.address, f.analog);
        case FrameKind::Text:
            return text_frame(f.address, f.command, f.text);
        case FrameKind::NotAFrame:
        case FrameKind::Unknown:
            break;
    }
    return {};
}

}  // namespace

std::string build_frame(const Frame& parsed) {
    std::string frame = build_by_kind(parsed);
    // The checksum leaves the start mark out, so any kind may go out as "[".
    if (!frame.empty() && parsed.start == kSweepStartMark) frame[0] = kSweepStartMark;
    return frame;
}

}  // namespace filo::bus
