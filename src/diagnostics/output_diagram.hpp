#pragma once
// ANALISI: the diagram of everything that commands one output, as a plain
// model of rows built from the links. It reads the project and changes
// nothing; drawing it is the painter's job.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace filo::store {
class Project;
}
namespace filo::texts {
class LanguageTables;
}

namespace filo::diagnostics {

// Which side of a row is drawn (RIGA_ACCENDE, RIGA_SPEGNE, RIGA_ENTRAMBI).
enum class DiagramSide { None, On, Off, Both };

// One row: one link that commands the output.
struct DiagramRow {
    std::string command;  // Label_C
    std::int64_t link_id = 0;
    DiagramSide side = DiagramSide::None;
    std::string label_on;   // Label_ON: "  ON" or " SOLO ACCENDE", "" when hidden
    std::string label_off;  // Label_OFF: "  OFF" or " SOLO SPEGNE"
    bool mark_on = false;   // Label_PP_ON
    bool mark_off = false;  // Label_PP_OFF
    std::string t_on;       // Label_T_ON: "PER n Sec"
    std::string t_asp;      // Label_T_ASP: "FRA n Sec"
    std::string t_rit;      // Label_T_RIT_SP: "FRA n Sec"
    // Image1, with Frame7's caption and List1's condition points.
    bool has_conditions = false;
    std::string conditions_caption;
    std::vector<std::string> conditions;
};

// One of the outputs tied to this one (LABEL_AeR).
struct TiedOutput {
    std::string name;
    bool reciprocal = false;  // drawn in the reciprocal column
};

struct OutputDiagram {
    std::string UTILIZZATORE;        // LABEL_UTILIZZATORE
    std::string module_label;        // Label2
    std::array<TiedOutput, 9> tied;  // LABEL_AeR(1) to (8); index 0 unused, "" hidden
    std::vector<DiagramRow> rows;
};

// The values of a link that decide how its row is drawn (DATI_DEL_LINK).
struct LinkFigures {
    std::string DL_ON;
    std::string DL_OFF;
    long long DL_T_ON = 0;
    long long DL_T_ASP = 0;
    long long DL_T_RIT = 0;
    std::string DL_MODO;
    std::string DL_AND;
};

// DISEGNA_RIGA without the condition names: the side, labels, marks, times.
void DISEGNA_RIGA(const LinkFigures& link, DiagramRow& row);

// The diagram of the output at row ID_UTILIZZATORE of nick. Empty (no head,
// no rows) when there is no such row.
OutputDiagram build_output_diagram(store::Project& project, const texts::LanguageTables& texts,
                                   std::int64_t ID_UTILIZZATORE);

// The ID of the output (a row 9 up) of that name, blanks around it and case
// aside, the first in ID order; 0 when none.
std::int64_t find_output(store::Project& project, const std::string& name);

}  // namespace filo::diagnostics
