#pragma once
// The link record as it travels in a kind "1" frame: 35 characters that tell
// one module what one of its inputs or another module's input does to one of
// its outputs. The rules that make these fields from the stored columns of a
// link belong to the links library; here they are already bytes.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace filo::bus {

inline constexpr std::size_t kLinkRecordLength = 35;

// Fields in wire order; those with a column behind them keep its name.
struct LinkRecord {
    std::uint16_t receiver = 0;  // the module that keeps the link
    std::uint8_t numero_ingresso = 0;
    std::uint8_t numero_uscita = 0;  // 0-34, one character on the wire
    std::uint16_t transmitter = 0;
    std::uint8_t tempo_on1 = 0;  // times are pairs of bytes, high first
    std::uint8_t tempo_on2 = 0;
    std::uint8_t tempo_off1 = 0;
    std::uint8_t tempo_off2 = 0;
    std::uint8_t modo_ = 0;
    std::uint8_t and_ = 0;
    std::uint8_t on_ = 0;
    std::uint8_t off_ = 0;
    std::uint8_t minuto = 0;
    std::uint8_t ora = 0;
    std::uint8_t giorno = 0;
    std::uint8_t settimana = 0;

    bool operator==(const LinkRecord&) const = default;
};

// The 35 characters. An output number outside 0-34 is written "0", as
// NUM_A_CIFRA writes it.
std::string link_record_text(const LinkRecord& record);
void append_link_record(std::string& out, const LinkRecord& record);

// The record of exactly 35 characters, upper-case hex but for the output
// digit ("0"-"9", "A"-"Y"); nothing for any other text.
std::optional<LinkRecord> parse_link_record(std::string_view text);

}  // namespace filo::bus
