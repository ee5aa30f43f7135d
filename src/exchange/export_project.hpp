#pragma once
// FrmMain's work without its window: the conversion (the SQLite copy of
// nick) and the export (the card-reader groups), on an open project that
// neither of them changes.
#include <cstdint>
#include <filesystem>
#include <functional>

namespace filo::store {
class Project;
}

namespace filo::exchange {

class ProjectExport {
  public:
    // The files go where the window puts them; the caller may change any
    // path before running.
    ProjectExport(store::Project& project, const std::filesystem::path& data_directory);

    std::filesystem::path nick_copy;      // <project less 3 characters>DB
    std::filesystem::path card_template;  // <dir>/ESPORTA_BASE.mdb
    std::filesystem::path cards;          // <dir>/ESP_<name>/DATI_HARDWARE.mdb
    std::filesystem::path cards_csv;      // dati_transponder.csv beside it

    // The conversion; returns the rows copied. Throws ExportError.
    std::int64_t convert(
        const std::function<void(std::int64_t row, std::int64_t total)>& progress = {});
    // The export; returns the rows of dati_transponder. The template is
    // made when missing. Throws ExportError.
    std::size_t export_cards();

  private:
    store::Project& project_;
};

}  // namespace filo::exchange
