#include "diagnostics/module_directory.hpp"

#include <cctype>

#include "common/basic_functions.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::diagnostics {
namespace {

std::string address_key(std::string_view text) {
    std::string key(basic::left(text, 4));
    for (char& c : key) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return key;
}

}  // namespace

ModuleDirectory ModuleDirectory::load(store::Project& project) {
    ModuleDirectory directory;
    sqlite::Statement q = project.database().prepare(
        "SELECT codice, campo, nick, note, modo, riserva FROM nick ORDER BY ID");
    while (q.step()) {
        MonitorRow row;
        row.campo = static_cast<int>(basic::val(q.text(1)));
        row.nick = q.text(2);
        row.note = q.text(3);
        row.modo = q.text(4);
        row.riserva = q.text(5);
        directory.add(q.text(0), std::move(row));
    }
    return directory;
}

void ModuleDirectory::add(std::string_view codice, MonitorRow row) {
    by_address_[address_key(codice)].push_back(std::move(row));
}

const std::vector<MonitorRow>* ModuleDirectory::rows_of(std::string_view address) const {
    const auto it = by_address_.find(address_key(address));
    return it == by_address_.end() ? nullptr : &it->second;
}

}  // namespace filo::diagnostics
