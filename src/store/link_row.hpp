#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace filo::store {

// One row of table associazioni: a link, or a continuation of the link above
// it. Fields are the columns; `and` is a keyword of C++, so its column is and_.
struct LinkRow {
    std::int64_t ID = 0;
    std::string identificativoRX;
    std::string identificativoTX;
    std::string numero_uscita;
    std::string nick_ricevente;
    std::string numero_ingresso;
    std::string nick_trasmittente;
    std::string opzione;
    std::string tempo_on1;
    std::string tempo_on2;
    std::string modo_;
    std::string on_;
    std::string off_;
    std::string note;
    std::string tempo_off1;
    std::string tempo_off2;
    std::string and_;
    std::string minuto;
    std::string ora;
    std::string giorno;
    std::string settimana;
    std::string dato13;
    std::string dato14;

    bool operator==(const LinkRow&) const = default;
};

// The columns of a row after ID, in the table's order: their names and fields.
struct LinkColumn {
    std::string_view name;
    std::string LinkRow::*field;
};
inline constexpr std::array<LinkColumn, 22> kLinkColumns = {{
    {"identificativoRX", &LinkRow::identificativoRX},
    {"identificativoTX", &LinkRow::identificativoTX},
    {"numero_uscita", &LinkRow::numero_uscita},
    {"nick_ricevente", &LinkRow::nick_ricevente},
    {"numero_ingresso", &LinkRow::numero_ingresso},
    {"nick_trasmittente", &LinkRow::nick_trasmittente},
    {"opzione", &LinkRow::opzione},
    {"tempo_on1", &LinkRow::tempo_on1},
    {"tempo_on2", &LinkRow::tempo_on2},
    {"modo_", &LinkRow::modo_},
    {"on_", &LinkRow::on_},
    {"off_", &LinkRow::off_},
    {"note", &LinkRow::note},
    {"tempo_off1", &LinkRow::tempo_off1},
    {"tempo_off2", &LinkRow::tempo_off2},
    {"and", &LinkRow::and_},
    {"minuto", &LinkRow::minuto},
    {"ora", &LinkRow::ora},
    {"giorno", &LinkRow::giorno},
    {"settimana", &LinkRow::settimana},
    {"dato13", &LinkRow::dato13},
    {"dato14", &LinkRow::dato14},
}};

// Markers of continuation rows and of special sources.
inline constexpr std::string_view kSecondaPagina = "SECONDA PAGINA";
inline constexpr std::string_view kSecondaRiga = "SECONDA RIGA";
inline constexpr std::string_view kNetGate = "NET_GATE";
inline constexpr std::string_view kImpostaValoreRiferimento = "IMPOSTA IL VALORE DI RIFERIMENTO";

// Whether a row continues the link above it: a second page or a channel
// row, or the gateway row that a reference link carries behind it.
bool is_continuation(const LinkRow& row);
// The second page of a main row: empty but for its note and dato13.
LinkRow second_page(const LinkRow& main);

// The bus value of an on_ or off_ column: "/nnn" is nnn per cent, 0 % being
// 9 (off) and 100 % 251 (on); any other text is taken as it stands.
std::string on_off_bus_value(const std::string& stored);
// The same for minuto: "/nnn" is nnn per cent of 255, held at 240.
std::string minuto_bus_value(const std::string& stored);
// A 16-bit time kept as two decimal texts (high, low); a "D" suffix on the
// low text (tenths of a second) plays no part in the value.
long long time_value(const std::string& high, const std::string& low);
// The third time, kept in dato13 as two 3-digit parts: high then low.
long long dato13_value(const std::string& dato13);

}  // namespace filo::store
