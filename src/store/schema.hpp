#pragma once
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace filo::sqlite {
class Connection;
}

namespace filo::store {

// Columns of the two project tables, in the order rows are written.
inline constexpr std::array<std::string_view, 15> kNickColumns = {
    "ID",      "codice",        "campo",    "numero_filo", "nick",
    "note",    "nick_numerico", "modo",     "tipologia",   "connesso",
    "riserva", "riserva2",      "riserva3", "riserva4",    "dati_aggiuntivi1"};
inline constexpr std::array<std::string_view, 23> kAssociazioniColumns = {"ID",
                                                                          "identificativoRX",
                                                                          "identificativoTX",
                                                                          "numero_uscita",
                                                                          "nick_ricevente",
                                                                          "numero_ingresso",
                                                                          "nick_trasmittente",
                                                                          "opzione",
                                                                          "tempo_on1",
                                                                          "tempo_on2",
                                                                          "modo_",
                                                                          "on_",
                                                                          "off_",
                                                                          "note",
                                                                          "tempo_off1",
                                                                          "tempo_off2",
                                                                          "and",
                                                                          "minuto",
                                                                          "ora",
                                                                          "giorno",
                                                                          "settimana",
                                                                          "dato13",
                                                                          "dato14"};

// Creates both tables and their indexes in an empty database.
void create_project_schema(sqlite::Connection& connection);

// What a database lacks to be a project. Empty lists: it is one.
struct SchemaCheck {
    std::vector<std::string> missing_tables;
    std::vector<std::string> missing_columns;  // "table.column"
    bool lacks_dati_aggiuntivi1 = false;       // an older project: upgraded on opening
};
SchemaCheck check_project_schema(sqlite::Connection& connection);

// Brings a project made by an older program or another tool up to date:
// adds dati_aggiuntivi1 when missing, and the indexes that keep lists fast.
// Writes nothing when there is nothing to do.
void upgrade_project_schema(sqlite::Connection& connection, const SchemaCheck& check);

}  // namespace filo::store
