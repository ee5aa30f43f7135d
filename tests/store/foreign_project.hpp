#pragma once
// A project file as another tool writes it: plain column types, no indexes,
// and (unless asked) no dati_aggiuntivi1, as in projects older than that column.
#include <filesystem>
#include <string>

#include "store/sqlite.hpp"

namespace filo::testing {

inline void make_foreign_project(const std::filesystem::path& file,
                                 bool with_dati_aggiuntivi1 = false,
                                 bool with_associazioni = true) {
    sqlite::Connection c(file, sqlite::OpenMode::ReadWriteCreate);
    c.exec(std::string("CREATE TABLE nick (ID INTEGER, codice VARCHAR(6), campo VARCHAR(3), "
                       "numero_filo VARCHAR(3), nick VARCHAR(50), note VARCHAR(50), nick_numerico "
                       "INTEGER, modo VARCHAR(24), tipologia VARCHAR(50), connesso VARCHAR(8), "
                       "riserva VARCHAR(50), riserva2 VARCHAR(50), riserva3 VARCHAR(50), riserva4 "
                       "VARCHAR(50)") +
           (with_dati_aggiuntivi1 ? ", dati_aggiuntivi1 VARCHAR(255))" : ")"));
    if (with_associazioni)
        c.exec(
            "CREATE TABLE associazioni (ID INTEGER, identificativoRX VARCHAR(20), "
            "identificativoTX VARCHAR(20), numero_uscita VARCHAR(3), nick_ricevente VARCHAR(50), "
            "numero_ingresso VARCHAR(3), nick_trasmittente VARCHAR(50), opzione VARCHAR(3), "
            "tempo_on1 VARCHAR(3), tempo_on2 VARCHAR(3), modo_ VARCHAR(9), on_ VARCHAR(4), off_ "
            "VARCHAR(4), note VARCHAR(50), tempo_off1 VARCHAR(3), tempo_off2 VARCHAR(3), [and] "
            "VARCHAR(8), minuto VARCHAR(4), ora VARCHAR(3), giorno VARCHAR(3), settimana "
            "VARCHAR(8), dato13 VARCHAR(6), dato14 VARCHAR(6))");
}

}  // namespace filo::testing
