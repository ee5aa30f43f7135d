#include "bus/link_record.hpp"

#include <array>

#include "bus/conversions.hpp"

namespace filo::bus {
namespace {

// The twelve one-byte fields behind the transmitter, in wire order, for both
// directions: LinkRecord or const LinkRecord.
template <typename Record>
auto byte_fields(Record& r) {
    return std::array{&r.tempo_on1, &r.tempo_on2, &r.tempo_off1, &r.tempo_off2,
                      &r.modo_,     &r.and_,      &r.on_,        &r.off_,
                      &r.minuto,    &r.ora,       &r.giorno,     &r.settimana};
}

}  // namespace

void append_link_record(std::string& out, const LinkRecord& r) {
    append_hex_address(out, r.receiver);
    append_hex_byte(out, r.numero_ingresso);
    out += digit_of(r.numero_uscita);
    append_hex_address(out, r.transmitter);
    for (const std::uint8_t* byte : byte_fields(r)) append_hex_byte(out, *byte);
}

std::string link_record_text(const LinkRecord& record) {
    std::string text;
    text.reserve(kLinkRecordLength);
    append_link_record(text, record);
    return text;
}

std::optional<LinkRecord> parse_link_record(std::string_view text) {
    if (text.size() != kLinkRecordLength) return std::nullopt;
    LinkRecord r;
    const auto receiver = read_hex_address(text.substr(0, 4));
    const auto input = read_hex_byte(text.substr(4, 2));
    const auto output = number_of_digit(text[6]);
    const auto transmitter = read_hex_address(text.substr(7, 4));
    if (!receiver || !input || !output || !transmitter) return std::nullopt;
    r.receiver = *receiver;
    r.numero_ingresso = *input;
    r.numero_uscita = static_cast<std::uint8_t>(*output);
    r.transmitter = *transmitter;
    std::size_t at = 11;
    for (std::uint8_t* byte : byte_fields(r)) {
        const auto value = read_hex_byte(text.substr(at, 2));
        if (!value) return std::nullopt;
        *byte = *value;
        at += 2;
    }
    return r;
}

}  // namespace filo::bus
