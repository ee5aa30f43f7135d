#include "store/module_code_change.hpp"

#include <cstdint>

#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::store {

void rewrite_link_codes(Project& project, std::string_view old_code, std::string_view prefix) {
    sqlite::Connection& db = project.database();
    sqlite::Transaction t(db);
    constexpr const char* kRewrite[] = {
        "UPDATE associazioni SET identificativoRX = ?1 || substr(identificativoRX, ?3) "
        "WHERE \"LEFT\"(identificativoRX, 6) = ?2 COLLATE NOCASE",
        "UPDATE associazioni SET identificativoTX = ?1 || substr(identificativoTX, ?3) "
        "WHERE \"LEFT\"(identificativoTX, 6) = ?2 COLLATE NOCASE"};
    for (const char* sql : kRewrite) {
        sqlite::Statement s = db.prepare(sql);
        s.bind(1, prefix).bind(2, old_code).bind(3, static_cast<std::int64_t>(prefix.size()) + 1);
        s.run();
    }
    t.commit();
}

void move_paired_remotes(Project& project, std::string_view old_code, std::string_view new_code) {
    sqlite::Connection& db = project.database();
    sqlite::Transaction t(db);
    sqlite::Statement s = db.prepare(
        "UPDATE nick SET riserva4 = ?1 || substr(riserva4, 7) "
        "WHERE (codice LIKE '____33' OR codice LIKE '____34' OR codice LIKE '____35') "
        "AND campo = '1' AND substr(riserva4, 1, 6) = ?2 COLLATE NOCASE");
    s.bind(1, new_code).bind(2, old_code);
    s.run();
    t.commit();
}

}  // namespace filo::store
