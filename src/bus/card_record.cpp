#include "bus/card_record.hpp"

#include "bus/conversions.hpp"
#include "common/basic_functions.hpp"

namespace filo::bus {
namespace {

constexpr std::string_view kTrailingZeros = "00000000000000000000";

bool all_hex(std::string_view text) {
    for (char c : text)
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'))) return false;
    return true;
}

}  // namespace

void append_card_record(std::string& out, const CardRecord& r) {
    append_hex_address(out, r.reader);
    out += basic::mid(r.entry, 5, 2);
    out += '0';
    out += basic::mid(r.entry, 1, 4);
    append_hex_byte(out, r.list);
    out += kTrailingZeros;
}

std::string card_record_text(const CardRecord& record) {
    std::string text;
    text.reserve(kCardRecordLength);
    append_card_record(text, record);
    return text;
}

std::optional<CardRecord> parse_card_record(std::string_view text) {
    if (text.size() != kCardRecordLength || !all_hex(text)) return std::nullopt;
    if (text[6] != '0' || text.substr(13) != kTrailingZeros) return std::nullopt;
    CardRecord r;
    r.reader = *read_hex_address(text.substr(0, 4));
    r.entry.assign(text.substr(7, 4));
    r.entry.append(text.substr(4, 2));
    r.list = *read_hex_byte(text.substr(11, 2));
    return r;
}

}  // namespace filo::bus
