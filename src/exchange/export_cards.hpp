#pragma once
// The card-reader groups that FrmMain exports: table dati_transponder in a
// copy of the empty template, and the same rows as CSV for other tools.
#include <filesystem>
#include <string>
#include <vector>

namespace filo::sqlite {
class Connection;
}

namespace filo::exchange {

// One row of dati_transponder: a group of up to four readers. A fifth
// reader starts a further row with the same group name.
struct CardGroupRow {
    std::string A;           // the group: riserva of the readers
    std::string B;           // nick of the group's first reader in this row
    std::string C, D, E, F;  // codes of the readers, "" where none
    bool operator==(const CardGroupRow&) const = default;
};

// LEGGI_TIPO_1A: the live card readers (row 1 of each) in group order.
std::vector<CardGroupRow> LEGGI_TIPO_1A(sqlite::Connection& project);

// The empty template ESPORTA_BASE.mdb, made from the built-in schema.
void write_card_template(const std::filesystem::path& target);

// A copy of the template filled with the rows (salva1A for each), put in
// place of `target` only when complete. Throws ExportError.
void write_card_database(const std::filesystem::path& template_file,
                         const std::filesystem::path& target,
                         const std::vector<CardGroupRow>& rows);

// The same rows as CSV: UTF-8, a header line, CRLF line ends, fields with a
// comma, a quote or a line break quoted ("" for a quote).
std::string card_rows_csv(const std::vector<CardGroupRow>& rows);

}  // namespace filo::exchange
