#include "links/command_point.hpp"

#include <array>

#include "common/basic_functions.hpp"

namespace filo::links {
namespace {

struct Block {
    std::int64_t base;
    const char* event;
    int number_offset;
    int fixed_number;
    bool rgb_master;
};

// Highest block first: decoding takes the first block strictly below the value.
constexpr std::array<Block, 15> kBlocks = {{
    {1500000, "ANALOGICO", 0, 0, false},
    {1400000, "TAG", 0, 0, false},
    {1300000, "ON", 16, 0, true},
    {1200000, "TUTTIc", 0, 31, false},
    {1100000, "ALMENO1c", 0, 30, false},
    {1000000, "TUTTIb", 0, 29, false},
    {900000, "ALMENO1b", 0, 28, false},
    {800000, "TUTTIa", 0, 27, false},
    {700000, "ALMENO1a", 0, 26, false},
    {600000, "PRESENZA", 0, 252, false},
    {500000, "TUTTI", 0, 27, false},
    {400000, "ALMENO1", 0, 26, false},
    {300000, "TENUTO", 8, 0, false},
    {200000, "OFF", 16, 0, false},
    {100000, "ON", 16, 0, false},
}};

bool is_aggregate(std::string_view e) {
    return e.starts_with("TUTTI") || e.starts_with("ALMENO1");
}

}  // namespace

std::optional<CommandEvent> decode_command_item(std::int64_t item_data) {
    if (item_data == kHeadingItemData || item_data < 0 || item_data > kLargestRowItemData)
        return std::nullopt;
    CommandEvent e;
    e.id = item_data;
    for (const Block& b : kBlocks) {
        if (item_data > b.base) {
            e.id = item_data - b.base;
            e.EVENTO_COMANDO = b.event;
            e.number_offset = b.number_offset;
            e.fixed_number = b.fixed_number;
            if (b.fixed_number != 0) e.fixed_name = b.event;
            e.rgb_master = b.rgb_master;
            break;
        }
    }
    if (e.id >= 100000) return std::nullopt;  // beyond the last block
    return e;
}

CommandPoint compose_command(const CommandEvent& event, const PointRow& row) {
    CommandPoint c;
    c.EVENTO_COMANDO = event.EVENTO_COMANDO;
    c.COMANDO_DI_RGB = event.rgb_master ? "DI_RGB" : "";
    const long long number =
        event.fixed_number != 0
            ? event.fixed_number
            : static_cast<long long>(basic::val(row.numero_filo)) + event.number_offset;
    c.numero_ingresso = std::to_string(number);
    c.identificativoTX = row.codice + "/" + c.numero_ingresso;
    c.nick_trasmittente = event.fixed_name.empty() ? row.nick : event.fixed_name;

    const std::string letter(basic::left(row.modo, 1));
    const std::string& e = event.EVENTO_COMANDO;
    if (e == "ON" || e == "OFF")
        c.TIPO_COMANDO = "E";
    else if (is_aggregate(e))
        c.TIPO_COMANDO = "ES";
    else if (e == "PRESENZA")
        c.TIPO_COMANDO = "EP";
    else if (e == "ANALOGICO")
        c.TIPO_COMANDO = "EA";
    else if (letter == "T")
        c.TIPO_COMANDO = e == "TENUTO" ? "T" : "t";
    else if (letter == "P" && e == "TAG")
        c.TIPO_COMANDO = "card";
    else
        c.TIPO_COMANDO = letter;

    if (c.TIPO_COMANDO == "E" || c.TIPO_COMANDO == "ES" || c.TIPO_COMANDO == "EA")
        c.CLASSE_COMANDO = "EVENTO";
    else if (c.TIPO_COMANDO == "EP")
        c.CLASSE_COMANDO = "PRESENZA";
    else
        c.CLASSE_COMANDO = row.tipologia;
    return c;
}

UserPoint compose_user(const PointRow& row) {
    UserPoint u;
    u.numero_uscita = row.numero_filo;
    u.identificativoRX = row.codice + "/" + row.numero_filo;
    u.nick_ricevente = row.nick;
    u.TIPO_UTILIZZATORE = row.tipologia;
    return u;
}

}  // namespace filo::links
