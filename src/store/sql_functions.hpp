#pragma once

namespace filo::sqlite {
class Connection;
}

namespace filo::store {

// Registers on the connection the functions that project queries are
// written with: LEFT(text, n), RIGHT(text, n), VAL(text), CINT(text).
// LEFT and RIGHT are keywords of SQLite's grammar, so a query calls them
// quoted: "LEFT"(codice,4).
void register_sql_functions(sqlite::Connection& connection);

}  // namespace filo::store
