#pragma once
// The card record of a kind "7" frame: one card written into one list of a
// card reader.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace filo::bus {

inline constexpr std::size_t kCardRecordLength = 33;

struct CardRecord {
    std::uint16_t reader = 0;
    std::string entry;      // the six characters of the card as the project keeps them
    std::uint8_t list = 1;  // 1-8
    bool operator==(const CardRecord&) const = default;
};

// Reader, characters 5-6 of the entry, "0", characters 1-4 of the entry, the
// list, twenty "0". The entry's characters are taken as they stand, so an
// entry shorter than six gives a shorter record, as it always did.
std::string card_record_text(const CardRecord& record);
void append_card_record(std::string& out, const CardRecord& record);

// The record of exactly 33 upper-case hex digits with its fixed "0"s in place;
// nothing for any other text.
std::optional<CardRecord> parse_card_record(std::string_view text);

}  // namespace filo::bus
