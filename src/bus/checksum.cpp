#include "bus/checksum.hpp"

#include "bus/conversions.hpp"

namespace filo::bus {

std::uint8_t checksum(std::string_view covered) {
    unsigned sum = 1;
    for (char c : covered) sum += static_cast<unsigned char>(c);
    return static_cast<std::uint8_t>(sum & 0xFF);
}

std::string with_checksum(std::string_view frame_without_checksum) {
    if (frame_without_checksum.empty()) return {};
    std::string frame;
    frame.reserve(frame_without_checksum.size() + 2);
    frame += frame_without_checksum[0];
    append_hex_byte(frame, checksum(frame_without_checksum.substr(1)));
    frame += frame_without_checksum.substr(1);
    return frame;
}

bool checksum_ok(std::string_view frame) {
    if (frame.size() < 3) return false;
    const auto written = read_hex_byte(frame.substr(1, 2));
    return written && *written == checksum(frame.substr(3));
}

}  // namespace filo::bus
