#pragma once
// The questions that windows ask the link table about points: which commands
// drive an output, the link being edited, whether a point is still in use or
// still gives its event. The link table stores a point by name and by place,
// both copies of table nick; the repairs that keep them true are in
// link_repairs.hpp.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/module_table.hpp"

namespace filo::texts {
class LanguageTables;
}

namespace filo::store {

class Project;
class LinkTable;

// A link that makes a command depend on the output that is about to lose its
// name (CERCA_SE_USATO_COME_AND).
struct AndCondition {
    std::int64_t ID = 0;
    std::string nick_trasmittente;
    std::string nick_ricevente;
};
// The links whose AND condition is output `numero_uscita` of module `codice`.
std::vector<AndCondition> and_conditions_on(Project& project, std::string_view codice,
                                            int numero_uscita);
// The message the module window shows for it.
std::string and_condition_message(const AndCondition& condition,
                                  const texts::LanguageTables& texts);

// The links that start from the events TUTTI and ALMENO1 of one set of
// module `codice`: set 'a', 'b' or 'c' of a module with three sets, ' ' for
// the one set of a simple module.
int links_from_aggregate(Project& project, std::string_view codice, char set);

// Names typed twice in one module window (CERCA_DOPPI): the outputs and
// inputs, numbered from 1, that turn red.
struct RepeatedNames {
    std::string NOME_DOPPIO_TROVATO = "NO";
    std::vector<int> red_outputs;
    std::vector<int> red_inputs;
};
// Names are compared exactly, with case; outputs are not compared with inputs.
RepeatedNames CERCA_DOPPI(const std::vector<std::string>& outputs,
                          const std::vector<std::string>& inputs);

class LinkQueries {
  public:
    LinkQueries(Project& project, LinkTable& links, const texts::LanguageTables& texts)
        : project_(project), links_(links), texts_(texts) {}

    // LEGGI_ASSOCIATI_A_UTILIZZATORE: the commands of the output
    // LINK_CORRENTE.identificativoRX, each with its link's ID, as
    // LISTA_COMANDANTI shows them (the analysis of one output takes the
    // same entries). Rows of the power-line command and channel rows are
    // left out.
    std::vector<ListEntry> LEGGI_ASSOCIATI_A_UTILIZZATORE();
    // The threshold of the output's threshold link: "<source>  <number>",
    // or "" when it has none; its source and number apart.
    std::string threshold_text;
    std::string threshold_source;
    std::string threshold_number;

    // LEGGI_ASSOCIAZIONE: loads the link of the pair LINK_CORRENTE
    // identificativoRX / identificativoTX for editing. `rgb` when the output is
    // an RGB point: its green and blue values are read too.
    void LEGGI_ASSOCIAZIONE(bool rgb);
    std::string ESITO_ASSOCIAZIONE;
    std::string LK_ON_PRECEDENTE;
    std::string LK_OFF_PRECEDENTE;
    std::string LK_SPEGNIMENTO1 = "000";
    std::string LK_SPEGNIMENTO2 = "000";
    // The link's values as one bit string, read bit by bit by the editor.
    std::string display_key;
    // The command of the row after the link's first one.
    std::string next_nick_trasmittente;
    std::string next_identificativoTX;
    // Three channels of nine values: on_, off_, tempo_off2, tempo_off1,
    // tempo_on2, tempo_on1, minuto, "SI"/"NO" for continuous cycle and quick
    // switching off.
    std::array<std::string, 27> VALORI_AVANZATI;
    std::string EVENTI_ROSSO, EVENTI_VERDE, EVENTI_BLU;  // "EVENTI" or ""

    // USATO_COME_AND: "SI" when output `numero_uscita` of the module is the
    // condition of a link, else "N0" (with a zero). The links come back for
    // the message.
    std::vector<AndCondition> CERCA_SE_USATO_COME_AND(std::string_view codice, int numero_uscita);
    std::string USATO_COME_AND;

    // EVENTO_SCOMPARSO: 0 while a link still makes the point NOME_EVENTO give
    // its event (TESTA_EVENTO), or while a scene module still has a name on
    // its second row (TESTA_EVENTO_SPECIALE); else 1.
    void TESTA_EVENTO();
    void TESTA_EVENTO_SPECIALE(std::string_view codice);
    std::string NOME_EVENTO;
    int EVENTO_SCOMPARSO = 1;

    // CERCA_NOMI: the names of the live rows of module number `numero` (4
    // characters), whatever its type; at most 100.
    void CERCA_NOMI(std::string_view numero);
    std::vector<std::string> NOMI_PRESENTI;

  private:
    Project& project_;
    LinkTable& links_;
    const texts::LanguageTables& texts_;
};

}  // namespace filo::store
