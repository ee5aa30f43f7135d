#include "exchange/clone_sample.hpp"

#include <map>
#include <system_error>

#include "common/basic_functions.hpp"
#include "store/sqlite.hpp"

namespace filo::exchange {
namespace {

using basic::mid;
using texts::Text;

// The text columns of a row by name, so that a sample made by an older
// program (without dati_aggiuntivi1) reads all the same.
std::map<std::string, std::string*> nick_fields(store::NickRow& r) {
    return {{"codice", &r.codice},
            {"campo", &r.campo},
            {"numero_filo", &r.numero_filo},
            {"nick", &r.nick},
            {"note", &r.note},
            {"modo", &r.modo},
            {"tipologia", &r.tipologia},
            {"connesso", &r.connesso},
            {"riserva", &r.riserva},
            {"riserva2", &r.riserva2},
            {"riserva3", &r.riserva3},
            {"riserva4", &r.riserva4},
            {"dati_aggiuntivi1", &r.dati_aggiuntivi1}};
}

std::string lower(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

std::map<std::string, std::string*> link_fields(store::LinkRow& r) {
    std::map<std::string, std::string*> fields;
    for (const store::LinkColumn& c : store::kLinkColumns)
        fields[lower(std::string(c.name))] = &(r.*c.field);
    return fields;
}

// Reads every row of a query into T through its map of fields.
template <typename T, typename Fields>
std::vector<T> read_all(sqlite::Statement& q, Fields fields_of) {
    std::vector<T> rows;
    const int columns = q.column_count();
    std::vector<std::string> names;
    for (int c = 0; c < columns; ++c) names.push_back(lower(q.column_name(c)));
    while (q.step()) {
        T& row = rows.emplace_back();
        auto fields = fields_of(row);
        for (int c = 0; c < columns; ++c) {
            if (names[c] == "id") {
                row.ID = q.integer(c);
                continue;
            }
            auto f = fields.find(names[c]);
            if (f != fields.end()) *f->second = q.text(c);
        }
    }
    return rows;
}

}  // namespace

std::optional<CloneMessage> CloneSample::open(const std::filesystem::path& file) {
    rows.clear();
    FILE_CAMPIONE = file.string();
    const std::string title = file.filename().string();
    NOME_CAMPIONE = title.size() > 4 ? title.substr(0, title.size() - 4) : std::string();
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec))
        return CloneMessage{std::nullopt, Text::PROJECT_MISSING, {}};
    sample_.open(file, store::Access::ReadOnly);  // APRI_DATABASE_IMPORTA: never written
    return ELENCO_MODULI_IMPORTATI();
}

std::optional<CloneMessage> CloneSample::ELENCO_MODULI_IMPORTATI() {
    rows.clear();
    sqlite::Statement q = sample_.database().prepare(
        "SELECT * FROM nick WHERE campo = '1' ORDER BY codice COLLATE NOCASE, ID");
    const std::vector<store::NickRow> heads = read_all<store::NickRow>(q, nick_fields);
    // One pass in order, every head counted, deleted modules too: whichever
    // check fails first stops it.
    for (std::size_t i = 0; i < heads.size(); ++i) {
        const store::NickRow& r = heads[i];
        const std::string_view place = mid(r.connesso, 2, 1);
        if (r.riserva != "K" && mid(r.codice, 5, 2) == "1A" && place != "E" && place != "I")
            return CloneMessage{Text::CLONE_TITLE_ABORTED, Text::CLONE_READER_PLACE_UNDEFINED, {}};
        if (i + 1 > static_cast<std::size_t>(kMaxSampleModules))
            return CloneMessage{Text::CLONE_TITLE_ABORTED, Text::CLONE_SAMPLE_TOO_LARGE, {}};
    }
    for (const store::NickRow& r : heads) {
        if (r.riserva == "K") continue;
        rows.push_back({.codice = std::string(mid(r.codice, 1, 6)),
                        .item = r.codice + "  " + r.note,
                        .type_label = "TR-" + std::string(mid(r.codice, 5, 2))});
    }
    return std::nullopt;
}

std::vector<store::NickRow> CloneSample::module_rows(const std::string& codice) {
    sqlite::Statement q =
        sample_.database().prepare("SELECT * FROM nick WHERE codice = ?1 ORDER BY ID");
    q.bind(1, codice);
    return read_all<store::NickRow>(q, nick_fields);
}

std::vector<store::LinkRow> CloneSample::links() {
    sqlite::Statement q = sample_.database().prepare("SELECT * FROM associazioni ORDER BY ID");
    return read_all<store::LinkRow>(q, link_fields);
}

}  // namespace filo::exchange
