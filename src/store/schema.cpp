#include "store/schema.hpp"

#include <algorithm>
#include <cctype>

#include "store/sqlite.hpp"

namespace filo::store {
namespace {

// Text compares and sorts without regard to case, as the databases this format
// comes from do. Queries say COLLATE NOCASE as well, so that a file made by
// another tool with plain columns behaves the same.
constexpr std::string_view kCreateTables = R"sql(
CREATE TABLE nick (
  ID INTEGER PRIMARY KEY,
  codice TEXT COLLATE NOCASE,
  campo TEXT COLLATE NOCASE,
  numero_filo TEXT COLLATE NOCASE,
  nick TEXT COLLATE NOCASE,
  note TEXT COLLATE NOCASE,
  nick_numerico INTEGER,
  modo TEXT COLLATE NOCASE,
  tipologia TEXT COLLATE NOCASE,
  connesso TEXT COLLATE NOCASE,
  riserva TEXT COLLATE NOCASE,
  riserva2 TEXT COLLATE NOCASE,
  riserva3 TEXT COLLATE NOCASE,
  riserva4 TEXT COLLATE NOCASE,
  dati_aggiuntivi1 TEXT COLLATE NOCASE
);
CREATE TABLE associazioni (
  ID INTEGER PRIMARY KEY,
  identificativoRX TEXT COLLATE NOCASE,
  identificativoTX TEXT COLLATE NOCASE,
  numero_uscita TEXT COLLATE NOCASE,
  nick_ricevente TEXT COLLATE NOCASE,
  numero_ingresso TEXT COLLATE NOCASE,
  nick_trasmittente TEXT COLLATE NOCASE,
  opzione TEXT COLLATE NOCASE,
  tempo_on1 TEXT COLLATE NOCASE,
  tempo_on2 TEXT COLLATE NOCASE,
  modo_ TEXT COLLATE NOCASE,
  on_ TEXT COLLATE NOCASE,
  off_ TEXT COLLATE NOCASE,
  note TEXT COLLATE NOCASE,
  tempo_off1 TEXT COLLATE NOCASE,
  tempo_off2 TEXT COLLATE NOCASE,
  "and" TEXT COLLATE NOCASE,
  minuto TEXT COLLATE NOCASE,
  ora TEXT COLLATE NOCASE,
  giorno TEXT COLLATE NOCASE,
  settimana TEXT COLLATE NOCASE,
  dato13 TEXT COLLATE NOCASE,
  dato14 TEXT COLLATE NOCASE
);
)sql";

// Indexes for the look-ups every window makes: a module by code, the module
// heads, names, the sorted point list, links by their points.
constexpr std::string_view kIndexes[] = {
    "CREATE INDEX IF NOT EXISTS nick_by_codice ON nick (codice COLLATE NOCASE, ID)",
    "CREATE INDEX IF NOT EXISTS nick_by_campo ON nick (campo COLLATE NOCASE, codice COLLATE "
    "NOCASE)",
    "CREATE INDEX IF NOT EXISTS nick_by_nick ON nick (nick COLLATE NOCASE)",
    // Covers the point list of the project window, which reads every named row.
    "CREATE INDEX IF NOT EXISTS nick_by_tipologia ON nick (tipologia COLLATE NOCASE, nick COLLATE "
    "NOCASE, ID, riserva, codice, numero_filo)",
    "CREATE INDEX IF NOT EXISTS associazioni_by_points ON associazioni (identificativoRX COLLATE "
    "NOCASE, identificativoTX COLLATE NOCASE)",
};

std::string lower(std::string_view s) {
    std::string r(s);
    std::transform(r.begin(), r.end(), r.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return r;
}

template <std::size_t N>
void check_columns(sqlite::Connection& c, std::string_view table,
                   const std::array<std::string_view, N>& wanted, SchemaCheck& check) {
    std::vector<std::string> present;
    sqlite::Statement info = c.prepare("SELECT name FROM pragma_table_info(?1)");
    info.bind(1, table);
    while (info.step()) present.push_back(lower(info.text(0)));
    for (std::string_view column : wanted) {
        if (std::find(present.begin(), present.end(), lower(column)) != present.end()) continue;
        if (table == "nick" && column == "dati_aggiuntivi1")
            check.lacks_dati_aggiuntivi1 = true;
        else
            check.missing_columns.push_back(std::string(table) + "." + std::string(column));
    }
}

bool has_index(sqlite::Connection& c, std::string_view create) {
    // "CREATE INDEX IF NOT EXISTS <name> ON ..."
    std::string_view rest = create.substr(std::string_view("CREATE INDEX IF NOT EXISTS ").size());
    std::string name(rest.substr(0, rest.find(' ')));
    sqlite::Statement q =
        c.prepare("SELECT 1 FROM sqlite_master WHERE type = 'index' AND name = ?1");
    q.bind(1, name);
    return q.step();
}

}  // namespace

void create_project_schema(sqlite::Connection& connection) {
    sqlite::Transaction t(connection);
    connection.exec(kCreateTables);
    for (std::string_view index : kIndexes) connection.exec(index);
    t.commit();
}

SchemaCheck check_project_schema(sqlite::Connection& connection) {
    SchemaCheck check;
    std::vector<std::string> tables;
    sqlite::Statement q =
        connection.prepare("SELECT lower(name) FROM sqlite_master WHERE type = 'table'");
    while (q.step()) tables.push_back(q.text(0));
    for (std::string_view table : {"nick", "associazioni"})
        if (std::find(tables.begin(), tables.end(), table) == tables.end())
            check.missing_tables.emplace_back(table);
    if (!check.missing_tables.empty()) return check;
    check_columns(connection, "nick", kNickColumns, check);
    check_columns(connection, "associazioni", kAssociazioniColumns, check);
    return check;
}

void upgrade_project_schema(sqlite::Connection& connection, const SchemaCheck& check) {
    bool indexes_missing = false;
    for (std::string_view index : kIndexes)
        indexes_missing = indexes_missing || !has_index(connection, index);
    if (!check.lacks_dati_aggiuntivi1 && !indexes_missing) return;
    sqlite::Transaction t(connection);
    // The only migration a project has ever had: old rows read the new column as Null.
    if (check.lacks_dati_aggiuntivi1)
        connection.exec("ALTER TABLE nick ADD COLUMN dati_aggiuntivi1 TEXT COLLATE NOCASE");
    for (std::string_view index : kIndexes) connection.exec(index);
    t.commit();
}

}  // namespace filo::store
