#pragma once
// The sample project a clone is taken from: opened read-only, its modules
// listed as the clone window lists them, its rows and links read on demand.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "store/link_row.hpp"
#include "store/nick_row.hpp"
#include "store/project.hpp"
#include "texts/text_key.hpp"

namespace filo::exchange {

// A message the clone shows and stops at: the title (none: an empty one),
// the message, and what follows the message.
struct CloneMessage {
    std::optional<texts::Text> title;
    texts::Text message;
    std::string after;
    bool operator==(const CloneMessage&) const = default;
};

// One row of the window's list: a live module of the sample.
struct SampleModule {
    std::string codice;
    std::string item;        // Label1 and List1: code, two blanks, note
    std::string type_label;  // Label3: "TR-" and the two type characters
};

// The most modules a sample may hold, deleted ones counted.
inline constexpr int kMaxSampleModules = 30;

class CloneSample {
  public:
    std::string FILE_CAMPIONE;
    std::string NOME_CAMPIONE;
    // List1: the modules offered, in code order.
    std::vector<SampleModule> rows;
    int N_RIGHE_CLONE() const { return static_cast<int>(rows.size()); }

    // SCEGLI_CAMPIONE once the file is chosen: APRI_DATABASE_IMPORTA and
    // ELENCO_MODULI_IMPORTATI. A refusal leaves no row. A file that is not a
    // project throws store::ProjectError.
    std::optional<CloneMessage> open(const std::filesystem::path& file);

    // The rows of one module in ID order, as stored (Null as "").
    std::vector<store::NickRow> module_rows(const std::string& codice);
    // Every link row in ID order, as stored.
    std::vector<store::LinkRow> links();

  private:
    std::optional<CloneMessage> ELENCO_MODULI_IMPORTATI();
    store::Project sample_;
};

}  // namespace filo::exchange
