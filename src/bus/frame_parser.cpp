#include "bus/frame_parser.hpp"

#include "bus/checksum.hpp"
#include "bus/conversions.hpp"

namespace filo::bus {
namespace {

// Address and command: the 6 characters of an analog query, the first 6 of
// a short frame.
bool read_address_command(std::string_view payload, Frame& f) {
    if (payload.size() != 6) return false;
    const auto address = read_hex_address(payload.substr(0, 4));
    const auto command = read_hex_byte(payload.substr(4, 2));
    if (!address || !command) return false;
    f.address = *address;
    f.command = *command;
    return true;
}

// Address, command and value of the 8 characters between kind and end mark.
bool read_short(std::string_view payload, Frame& f) {
    if (payload.size() != 8) return false;
    const auto value = read_hex_byte(payload.substr(6, 2));
    if (!value || !read_address_command(payload.substr(0, 6), f)) return false;
    f.value = *value;
    return true;
}

bool read_masks(std::string_view payload, Frame& f) {
    if (payload.size() != 4 + 2 * f.masks.size()) return false;
    const auto address = read_hex_address(payload.substr(0, 4));
    if (!address) return false;
    f.address = *address;
    for (std::size_t i = 0; i < f.masks.size(); ++i) {
        const auto mask = read_hex_byte(payload.substr(4 + 2 * i, 2));
        if (!mask) return false;
        f.masks[i] = *mask;
    }
    return true;
}

// Values of two digits until the end mark, the eighth value, or a field that
// begins with ">"; whatever follows that mark is not looked at.
bool read_analog_answer(std::string_view payload, Frame& f) {
    if (payload.size() < 4) return false;
    const auto address = read_hex_address(payload.substr(0, 4));
    if (!address) return false;
    f.address = *address;
    std::string_view rest = payload.substr(4);
    while (!rest.empty() && rest[0] != kAnalogListEnd) {
        if (f.analog.count == kMaxAnalogValues) return false;
        const auto value = read_hex_byte(rest.substr(0, 2));
        if (!value) return false;
        f.analog.values[f.analog.count++] = *value;
        rest.remove_prefix(2);
    }
    return true;
}

FrameKind short_kind(char kind_char, std::uint8_t command) {
    switch (kind_char) {
        case '3':
            return FrameKind::Parameter;
        case '4':
            return FrameKind::ReadRegister;
        case '6':
            return FrameKind::BusControl;
        case 'A':
            return FrameKind::IdentificationQuery;
        case '8':
            if (command == kIdentificationCommand) return FrameKind::IdentificationAnswer;
            if (command == kRegisterCommand) return FrameKind::RegisterAnswer;
            return FrameKind::InputEvent;
    }
    return FrameKind::Unknown;
}

FrameKind marked_kind(Frame& f) {
    const std::string_view p = f.payload;
    switch (f.kind_char) {
        case '3':
        case '4':
        case '6':
        case '8':
        case 'A':
            return read_short(p, f) ? short_kind(f.kind_char, f.command) : FrameKind::Unknown;
        case '1':
            if (auto link = parse_link_record(p)) {
                f.link = *link;
                f.address = link->receiver;
                return FrameKind::Link;
            }
            return FrameKind::Unknown;
        case '2':
            return read_masks(p, f) ? FrameKind::Masks : FrameKind::Unknown;
        case '7':
            if (auto card = parse_card_record(p)) {
                f.card = std::move(*card);
                f.address = f.card.reader;
                return FrameKind::Card;
            }
            return FrameKind::Unknown;
        case 'B':
            return read_address_command(p, f) ? FrameKind::AnalogQuery : FrameKind::Unknown;
        case 'C':
            return read_analog_answer(p, f) ? FrameKind::AnalogAnswer : FrameKind::Unknown;
    }
    return FrameKind::Unknown;
}

Frame parse_text_frame(std::string_view t) {
    Frame f;
    const std::size_t n = t.size();
    if (n < 3 || t[n - 2] != kTextEndMark || t[n - 1] != '\0') return f;
    f.kind = FrameKind::Unknown;
    f.start = kTextStartMark;
    f.checksum_ok = checksum_ok(t);
    if (n < 6) return f;
    f.kind_char = t[3];
    f.payload = t.substr(4, n - 6);
    if (f.kind_char != '1' || f.payload.size() < 6) return f;
    const auto address = read_hex_address(f.payload.substr(0, 4));
    const auto record = read_hex_byte(f.payload.substr(4, 2));
    if (!address || !record) return f;
    f.kind = FrameKind::Text;
    f.address = *address;
    f.command = *record;
    f.text = f.payload.substr(6);
    return f;
}

}  // namespace

Frame parse_frame(std::string_view t) {
    if (t.empty()) return {};
    if (t[0] == kTextStartMark) return parse_text_frame(t);
    Frame f;
    if ((t[0] != kStartMark && t[0] != kSweepStartMark) || t.size() < 2 || t.back() != kEndMark)
        return f;
    f.kind = FrameKind::Unknown;
    f.start = t[0];
    f.checksum_ok = checksum_ok(t);
    if (t.size() < 5) return f;
    f.kind_char = t[3];
    f.payload = t.substr(4, t.size() - 5);
    f.kind = marked_kind(f);
    if (f.kind == FrameKind::Unknown) {
        // Nothing half-read stays behind.
        Frame unknown;
        unknown.kind = FrameKind::Unknown;
        unknown.start = f.start;
        unknown.kind_char = f.kind_char;
        unknown.checksum_ok = f.checksum_ok;
        unknown.payload = f.payload;
        return unknown;
    }
    return f;
}

}  // namespace filo::bus
