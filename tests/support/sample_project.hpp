#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "store/link_row.hpp"
#include "store/nick_row.hpp"

namespace filo::store {
class ModuleTable;
class Project;
}  // namespace filo::store

namespace filo::testing {

// Rows of a new module with the shape the store gives them: rows 1 to 8
// inputs (kind "P"), the rest outputs of the given tipologia, row 1 carrying
// the note. Names are left empty.
store::ModuleRecord new_module_rows(const std::string& codice, int rows, const std::string& note,
                                    const std::string& output_tipologia = "RELE");

// Adds a module through the store, numbered after the last one.
void add_module(store::ModuleTable& table, const std::string& codice, int rows,
                const std::string& note, const std::string& output_tipologia = "RELE");

// An installation of the given size for measurements: module i has code
// <i as 4 hex digits><type>, 16 to 32 rows, and every point named.
void add_generated_modules(store::ModuleTable& table, int modules);

// A link that switches an output (point "<code>/<output>") on and off from
// a pushbutton input ("<code>/<input>"), with the values the link editor
// gives a new link.
store::LinkRow switching_link(const std::string& identificativoRX,
                              const std::string& identificativoTX,
                              const std::string& nick_ricevente,
                              const std::string& nick_trasmittente);

// Links between the given modules, for measurements: link i switches an
// output of one module from an input of another, names as
// add_generated_modules gives them. One transaction.
void add_generated_links(store::Project& project, const std::vector<std::string>& codes, int count);

// Sets one column of one row of a module, as another tool might have
// written it: for rows the operations under test would never write.
void set_column(store::Project& project, const std::string& codice, int campo,
                const std::string& column, const std::string& value);

// An empty project file made from the built-in schema.
std::filesystem::path make_empty_project(const std::filesystem::path& directory,
                                         const std::string& name = "prova");

}  // namespace filo::testing
