#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "store/link_row.hpp"
#include "store/nick_row.hpp"

namespace filo::store {

class Project;

inline constexpr std::string_view kEsitoNuovo = "NUOVO";
inline constexpr std::string_view kEsitoEsisteGia = "ESISTE_GIA";
inline constexpr std::string_view kEsitoImposta = "IMPOSTA";

// The rows the programming image was designed to hold. Projects may hold
// more: the table in memory grows, and callers are told (exceeds_row_limit).
inline constexpr std::size_t kLinkRowLimit = 3000;

// What the analysis of one output reads of a link (DATI_DEL_LINK).
struct LinkDetails {
    std::string identificativoRX;
    long long tempo_on = 0;
    long long tempo_off = 0;
    std::string lampeggio;  // "Lampeggio ON" or ""
    std::string modo;       // characters 1 to 8 of modo_
    std::string and_;
    std::string numero_uscita;
    std::string nick_ricevente;
    std::string on_;
    std::string off_;
    long long tempo_spegnimento = 0;  // dato13 of the row behind
};

// The operations on table associazioni and the link variables they fill.
// Rows are never renumbered: a link is a run of consecutive IDs.
class LinkTable {
  public:
    explicit LinkTable(Project& project) : project_(project) {}

    // The link being written; AGGIUNGI_LINK appends it (its ID is not used).
    LinkRow LINK_CORRENTE;
    // Snapshot of the rows with a receiver, in ID order, with the values
    // converted for the bus (see LEGGI_LINK). Reload before each use.
    std::vector<LinkRow> TABELLA_LINK;
    std::string ESITO_LINK;
    std::int64_t ID_LINK = 0;
    std::int64_t PROSSIMO_ID_LINK = 0;
    // The description of a link that CERCA_LINK_PER_ID composes.
    std::string TESTO_LINK;
    LinkDetails DATI_LINK;

    int N_LINK() const { return static_cast<int>(TABELLA_LINK.size()); }
    bool exceeds_row_limit() const { return TABELLA_LINK.size() > kLinkRowLimit; }
    // Row n (from 1) of TABELLA_LINK.
    const LinkRow& link(int n) const { return TABELLA_LINK.at(static_cast<std::size_t>(n - 1)); }

    void LEGGI_LINK();
    void AGGIUNGI_LINK();
    // Deletes row ID_LINK and the continuation row behind it, if any.
    void CANCELLA_LINK();
    void CANCELLA_LINK_SUCESSIVO();
    void CERCA_LINK_E();
    void CERCA_LINK_PER_ID(std::int64_t id, int livello);
    void CERCA_LINK_SUCESSIVO(std::int64_t id);
    void DATI_DEL_LINK(std::int64_t id);

    // Is a command point (CERCA_IN_SE_COLLEGATO) or an output
    // (CERCA_OUT_SE_COLLEGATO) of this name in a link? COLLEGATO "SI" or "".
    std::string COLLEGATO;
    std::string RICEVENTE_COLLEGATO;
    void CERCA_IN_SE_COLLEGATO(const std::string& nome);
    void CERCA_OUT_SE_COLLEGATO(const std::string& nome);

    // After a module was saved: the names of its points, copied into every
    // link that names them (as receiver, as command, held or as an event of
    // an output). Links with a marker in place of a number stay as they are.
    void AGGIORNA_NICK_NEI_LINK_DA_FORM5(const std::string& codice, const ModuleRecord& module);

    // One row as stored; false when there is none with that ID.
    bool read_row(std::int64_t id, LinkRow& row);
    // Every row whose identificativoRX is this one, in ID order, read at once.
    std::vector<LinkRow> rows_of_receiver(std::string_view identificativoRX);

  private:
    Project& project_;
};

}  // namespace filo::store
