#pragma once
// The power-line modulator (type 1F) drives its one output from its input 8,
// which the installer never sees: the input is named after the output and
// the link between them is made by the system itself. Emergency links follow
// a point's settings whenever its module is written.
#include <string_view>

namespace filo::store {

class Project;
class LinkTable;

class Powerline {
  public:
    Powerline(Project& project, LinkTable& links) : project_(project), links_(links) {}

    // Completes every type 1F module whose input 8 has no name yet: the name
    // "(COMANDO) " + the output's, and the link from it to output 1. Run when
    // the project window opens; a module is completed once.
    void POWERLINE();
    // Writes the link from input 8 to output 1 of the module, with its second
    // page, unless a link of that pair exists.
    void GENERA_ASSOCIAZIONE_PWLINE(std::string_view codice, std::string_view nick_numerico,
                                    std::string_view nome);

  private:
    Project& project_;
    LinkTable& links_;
};

// The emergency links of the point `identificativo` (<codice>/<numero_filo>):
// the links to it with mode digit 9 take characters 7 to 9 of the point's
// riserva2 as tempo_on1 and `value` ("10" or "11") as characters 2 and 3 of
// settimana. MODIFICA_MODULO calls it for each point whose connesso has
// "E" or "e" in place 2.
void AGGIORNA_LINK_EMERGENZA(Project& project, std::string_view identificativo,
                             std::string_view riserva2, std::string_view value);

}  // namespace filo::store
