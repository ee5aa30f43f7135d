#include "exchange/export_project.hpp"

#include <system_error>

#include "exchange/export_cards.hpp"
#include "exchange/export_nick.hpp"
#include "platform/files.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::exchange {
namespace fs = std::filesystem;
using texts::Text;

ProjectExport::ProjectExport(store::Project& project, const fs::path& data_directory)
    : nick_copy(sqlite_copy_path(project.PERCORSO_PROGETTO)),
      card_template(data_directory / "ESPORTA_BASE.mdb"),
      cards(data_directory / ("ESP_" + project.NOME_PROGETTO) / "DATI_HARDWARE.mdb"),
      cards_csv(cards.parent_path() / "dati_transponder.csv"),
      project_(project) {}

std::int64_t ProjectExport::convert(
    const std::function<void(std::int64_t, std::int64_t)>& progress) {
    return copy_nick_table(project_.database(), nick_copy, progress);
}

std::size_t ProjectExport::export_cards() {
    const std::vector<CardGroupRow> rows = LEGGI_TIPO_1A(project_.database());
    try {
        if (!fs::exists(card_template)) write_card_template(card_template);
        if (cards.has_parent_path()) fs::create_directories(cards.parent_path());
        if (cards_csv.has_parent_path()) fs::create_directories(cards_csv.parent_path());
    } catch (const fs::filesystem_error& e) {
        throw ExportError(Text::EXPORT_FAILED, e.what());
    } catch (const sqlite::SqlError& e) {
        throw ExportError(Text::EXPORT_FAILED, card_template.string() + ": " + e.what());
    }
    write_card_database(card_template, cards, rows);
    try {
        platform::write_file_safely(cards_csv, card_rows_csv(rows));
    } catch (const fs::filesystem_error& e) {
        throw ExportError(Text::EXPORT_FAILED, e.what());
    }
    return rows.size();
}

}  // namespace filo::exchange
