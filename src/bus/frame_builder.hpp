#pragma once
// Frames built whole, checksum included, by kind. Addresses, commands and
// values are bytes here; the conversions make them from the stored texts.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "bus/frame.hpp"

namespace filo::bus {

// The 13-character frame of kinds "3", "4", "6", "8" and "A".
std::string short_frame(char kind, std::uint16_t address, std::uint8_t command, std::uint8_t value,
                        char start = kStartMark);

std::string parameter_frame(std::uint16_t address, std::uint8_t command, std::uint8_t value);
std::string read_register_frame(std::uint16_t address, std::uint8_t command);
// Address "0000", command "00": kOpenProgramming has value 0x55.
std::string bus_control_frame(std::uint8_t value);
std::string input_event_frame(std::uint16_t address, std::uint8_t input, std::uint8_t value);
// The sweep asks with start "[".
std::string identification_query_frame(std::uint16_t address, char start = kStartMark);
std::string identification_answer_frame(std::uint16_t address, std::uint8_t type);
std::string register_answer_frame(std::uint16_t address, std::uint8_t value);
// 11 characters: no value field.
std::string analog_query_frame(std::uint16_t address);
// Up to eight values; a shorter list ends with ">".
std::string analog_answer_frame(std::uint16_t address, const AnalogValues& values);
std::string masks_frame(std::uint16_t address, const std::array<std::uint8_t, 6>& masks);
std::string link_frame(const LinkRecord& record);
std::string card_frame(const CardRecord& record);
// Chr(22), checksum, "1", address, record, the text unchanged, Chr(23), NUL.
std::string text_frame(std::uint16_t address, std::uint8_t record, std::string_view text);

// The frame written again from what parse_frame found; "" for a text that
// was not a frame of a known kind. The checksum is always the right one.
std::string build_frame(const Frame& parsed);

}  // namespace filo::bus
