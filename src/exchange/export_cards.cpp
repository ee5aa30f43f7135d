#include "exchange/export_cards.hpp"

#include <unistd.h>

#include <system_error>

#include "exchange/export_nick.hpp"
#include "platform/files.hpp"
#include "store/sqlite.hpp"

namespace filo::exchange {
namespace fs = std::filesystem;
using texts::Text;

namespace {

constexpr std::string_view kTemplateSchema =
    "CREATE TABLE dati_transponder (ID INTEGER, A TEXT, B TEXT, C TEXT, D TEXT, E TEXT, F TEXT)";

std::string csv_field(const std::string& value) {
    if (value.find_first_of(",\"\r\n") == std::string::npos) return value;
    std::string quoted = "\"";
    for (char c : value) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace

std::vector<CardGroupRow> LEGGI_TIPO_1A(sqlite::Connection& project) {
    sqlite::Statement q = project.prepare(
        "SELECT riserva, nick, codice FROM nick WHERE codice LIKE '____1A' AND campo = '1' "
        "ORDER BY riserva COLLATE NOCASE, ID");
    std::vector<CardGroupRow> groups;
    bool more = q.step();
    while (more) {
        CardGroupRow& g = groups.emplace_back();
        g.A = q.text(0);
        g.B = q.text(1);
        g.C = q.text(2);
        more = q.step();
        // Up to three more readers of the same group; another group's reader
        // stays the current row.
        for (std::string* code : {&g.D, &g.E, &g.F}) {
            if (!more || q.text(0) != g.A) break;
            *code = q.text(2);
            more = q.step();
        }
    }
    return groups;
}

void write_card_template(const fs::path& target) {
    fs::path temporary = target;
    temporary += ".new" + std::to_string(::getpid());
    std::error_code ec;
    fs::remove(temporary, ec);
    try {
        sqlite::Connection c(temporary, sqlite::OpenMode::ReadWriteCreate);
        c.exec(kTemplateSchema);
        c.close();
        fs::rename(temporary, target);
    } catch (...) {
        fs::remove(temporary, ec);
        throw;
    }
}

void write_card_database(const fs::path& template_file, const fs::path& target,
                         const std::vector<CardGroupRow>& rows) {
    fs::path temporary = target;
    temporary += ".new" + std::to_string(::getpid());
    std::error_code ec;
    fs::remove(temporary, ec);
    try {
        fs::copy_file(template_file, temporary, fs::copy_options::overwrite_existing);
        {
            sqlite::Connection c(temporary, sqlite::OpenMode::ReadWrite);
            sqlite::Transaction t(c);
            // salva1A: the next ID is the record count + 1, as in table nick.
            sqlite::Statement count = c.prepare("SELECT count(*) FROM dati_transponder");
            count.step();
            std::int64_t id = count.integer(0);
            sqlite::Statement insert = c.prepare(
                "INSERT INTO dati_transponder (ID, A, B, C, D, E, F) VALUES (?1, ?2, ?3, ?4, ?5, "
                "?6, ?7)");
            for (const CardGroupRow& r : rows) {
                insert.bind(1, ++id).bind(2, r.A).bind(3, r.B).bind(4, r.C).bind(5, r.D);
                insert.bind(6, r.E).bind(7, r.F);
                insert.run();
                insert.reset();
            }
            t.commit();
        }
        fs::rename(temporary, target);
    } catch (const fs::filesystem_error& e) {
        fs::remove(temporary, ec);
        throw ExportError(Text::EXPORT_FAILED, e.what());
    } catch (const sqlite::SqlError& e) {
        fs::remove(temporary, ec);
        throw ExportError(Text::EXPORT_FAILED, template_file.string() + ": " + e.what());
    }
}

std::string card_rows_csv(const std::vector<CardGroupRow>& rows) {
    std::string csv = "ID,A,B,C,D,E,F\r\n";
    int id = 0;
    for (const CardGroupRow& r : rows) {
        csv += std::to_string(++id);
        for (const std::string* v : {&r.A, &r.B, &r.C, &r.D, &r.E, &r.F})
            csv += "," + csv_field(*v);
        csv += "\r\n";
    }
    return csv;
}

}  // namespace filo::exchange
