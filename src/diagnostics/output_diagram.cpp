#include "diagnostics/output_diagram.hpp"

#include "common/basic_functions.hpp"
#include "store/link_queries.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::diagnostics {
namespace {

using basic::mid;
using basic::val;

std::string seconds(const char* word, long long n) {
    return word + std::to_string(n) + " Sec";
}

void RIGA_ACCENDE(const LinkFigures& l, DiagramRow& row) {
    row.label_on = " SOLO ACCENDE";
    row.mark_on = mid(l.DL_MODO, 8, 1) == "1";
    if (l.DL_T_ON > 0) row.t_on = seconds("PER ", l.DL_T_ON);
    if (l.DL_T_ASP > 0) row.t_asp = seconds("FRA ", l.DL_T_ASP);
}

void RIGA_SPEGNE(const LinkFigures& l, DiagramRow& row) {
    row.label_off = " SOLO SPEGNE";
    row.mark_off = mid(l.DL_MODO, 8, 1) == "1";
    if (l.DL_T_RIT > 0) row.t_rit = seconds("FRA ", l.DL_T_RIT);
}

void RIGA_ENTRAMBI(const LinkFigures& l, DiagramRow& row) {
    RIGA_ACCENDE(l, row);
    RIGA_SPEGNE(l, row);
    row.label_on = "  ON";
    row.label_off = "  OFF";
}

}  // namespace

void DISEGNA_RIGA(const LinkFigures& l, DiagramRow& row) {
    row.has_conditions = l.DL_AND != "00000000";
    row.conditions_caption = mid(l.DL_MODO, 1, 1) == "1"
                                 ? "  Agisce SOLO SE queste uscite sono ATTIVE"
                                 : "  Agisce SOLO SE queste uscite sono DISATTIVE";
    const bool on = val(l.DL_ON) <= 251;
    const bool off = val(l.DL_OFF) >= 9;
    const bool inverted = mid(l.DL_MODO, 6, 1) == "1";
    if (on && off) {
        row.side = DiagramSide::Both;
        RIGA_ENTRAMBI(l, row);
    } else if (on != off) {
        // An inverted link swaps the meaning of on and off.
        if (on != inverted) {
            row.side = DiagramSide::On;
            RIGA_ACCENDE(l, row);
        } else {
            row.side = DiagramSide::Off;
            RIGA_SPEGNE(l, row);
        }
    }
}

std::int64_t find_output(store::Project& project, const std::string& name) {
    sqlite::Statement q = project.database().prepare(
        "SELECT ID, campo FROM nick WHERE TRIM(nick) = ?1 COLLATE NOCASE AND \"RIGHT\"(codice,2) "
        "NOT LIKE 'FF' ORDER BY ID");
    // Names are stored as typed, often with a trailing blank.
    q.bind(1, basic::trim(name));
    while (q.step())
        if (val(q.text(1)) >= 9) return q.integer(0);
    return 0;
}

OutputDiagram build_output_diagram(store::Project& project, const texts::LanguageTables& texts,
                                   std::int64_t ID_UTILIZZATORE) {
    OutputDiagram diagram;
    store::ModuleTable modules(project);
    modules.LEGGI_RIGA_ID(ID_UTILIZZATORE);
    if (modules.RIGA_CODICE.empty()) return diagram;

    // DATI_UTILIZZATORE
    const std::string codice = modules.RIGA_CODICE;
    diagram.UTILIZZATORE = modules.RIGA_NICK;
    diagram.module_label = " Modulo n°  " + codice;
    const std::string and_mask(mid(modules.RIGA_MODO, 9, 8));
    const std::string reciprocal_mask(mid(modules.RIGA_MODO, 17, 8));
    const std::string identificativoRX = codice + "/" + modules.RIGA_NUMERO_FILO;
    modules.LEGGI_MODULO(codice);
    for (int i = 1; i <= 8; ++i) {
        const bool in_and = mid(and_mask, static_cast<std::size_t>(i), 1) == "1";
        const bool in_reciprocal = mid(reciprocal_mask, static_cast<std::size_t>(i), 1) == "1";
        if (!in_and && !in_reciprocal) continue;
        if (i + 8 <= modules.RIGHE_MODULO.N_RIGHE_MODULO())
            diagram.tied[static_cast<std::size_t>(i)].name = modules.RIGHE_MODULO.riga(i + 8).nick;
        diagram.tied[static_cast<std::size_t>(i)].reciprocal = in_reciprocal;
    }

    // LEGGI_ASSOCIATI_A_UTILIZZATORE, then DISEGNA_RIGA for each row
    store::LinkTable links(project);
    store::LinkQueries queries(project, links, texts);
    links.LINK_CORRENTE.identificativoRX = identificativoRX;
    const std::string numero(mid(codice, 1, 4));
    for (const store::ListEntry& entry : queries.LEGGI_ASSOCIATI_A_UTILIZZATORE()) {
        DiagramRow row;
        row.command = entry.text;
        row.link_id = entry.item_data;
        links.DATI_DEL_LINK(row.link_id);
        const store::LinkDetails& d = links.DATI_LINK;
        const LinkFigures figures{.DL_ON = d.on_,
                                  .DL_OFF = d.off_,
                                  .DL_T_ON = d.tempo_on,
                                  .DL_T_ASP = d.tempo_off,
                                  .DL_T_RIT = d.tempo_spegnimento,
                                  .DL_MODO = d.modo,
                                  .DL_AND = d.and_};
        DISEGNA_RIGA(figures, row);
        if (row.has_conditions) {
            for (int i = 1; i <= 8; ++i) {
                if (mid(d.and_, static_cast<std::size_t>(i), 1) != "1") continue;
                modules.LEGGI_INFORMAZIONE(numero, std::to_string(i + 8));
                row.conditions.push_back(
                    modules.STATO_MODULO == store::kModuloEsistente ? modules.INFO_NICK : "");
            }
        }
        diagram.rows.push_back(std::move(row));
    }
    return diagram;
}

}  // namespace filo::diagnostics
