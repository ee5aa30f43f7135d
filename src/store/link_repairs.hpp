#pragma once
// The repairs that keep the link table true to table nick after a module is
// renumbered or deleted (a renamed point follows with
// LinkTable::AGGIORNA_NICK_NEI_LINK_DA_FORM5). Each writes its rows in one
// transaction: a failure leaves the project as it was.
#include <string>
#include <string_view>

namespace filo::store {

class Project;
class LinkTable;
class ModuleTable;
class LinkRepairs {
  public:
    LinkRepairs(Project& project, LinkTable& links) : project_(project), links_(links) {}

    // Deletes every link with either end in the module, each with the
    // continuation rows behind it. The table in memory is emptied.
    void ELIMINA_COLLEGAMENTI_DEL_MODULO(std::string_view codice);
    // After the number of module `codice_vecchio` changed to `nuovo_numero`
    // (4 characters): the first 4 characters of both identifiers of its links.
    // Names and type characters stay.
    void AGGIORNA_NUMEROMODULO_NEI_LINK(std::string_view codice_vecchio,
                                        std::string_view nuovo_numero);

  private:
    Project& project_;
    LinkTable& links_;
};

// Deletes the module CODICE_MODULO of the table (its rows read into
// RIGHE_MODULO) with all its links, as the module window does. The video
// door panel goes with its four pages.
void delete_module_and_links(ModuleTable& table, LinkRepairs& repairs);
// Gives the module CODICE_MODULO (its rows in RIGHE_MODULO) a new number,
// in its rows and in its links. CODICE_MODULO becomes the new code.
void renumber_module_and_links(ModuleTable& table, LinkRepairs& repairs,
                               std::string_view nuovo_numero);

}  // namespace filo::store
