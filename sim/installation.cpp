#include "sim/installation.hpp"

#include <algorithm>
#include <stdexcept>

#include "store/module_table.hpp"
#include "store/project.hpp"

namespace filo::sim {

bool stands_on_bus(std::string_view code) {
    if (code.size() != 6) return false;
    const std::string_view type = code.substr(4, 2);
    const std::string_view address = code.substr(0, 4);
    if (code == "FFFEFF") return true;  // the gateway, whose type reads like a deleted one
    if (type == "FF" || type == "28" || type == "34" || type == "35") return false;
    return address != "FFF1" && address != "FFF2" && address != "FFF3";
}

std::vector<std::string> bus_codes_of_project(const std::filesystem::path& project_file) {
    store::Project project;
    project.open(project_file);
    store::ModuleTable table(project);
    table.ELENCO_MODULI();
    std::vector<std::string> codes;
    for (const std::string& code : table.ELENCO_CODICI)
        if (stands_on_bus(code)) codes.push_back(code);
    return codes;
}

std::vector<SimModule> make_installation(const std::vector<std::string>& codes,
                                         const std::vector<std::string>& silent) {
    std::vector<SimModule> modules;
    for (const std::string& code : codes) {
        std::optional<SimModule> m = module_from_code(code);
        if (!m) throw std::invalid_argument("not a module code: " + code);
        const bool known = std::any_of(modules.begin(), modules.end(),
                                       [&](const SimModule& k) { return k.code == m->code; });
        if (!known) modules.push_back(std::move(*m));
    }
    for (const std::string& code : silent) {
        std::optional<SimModule> s = module_from_code(code);
        if (!s) throw std::invalid_argument("not a module code: " + code);
        auto it = std::find_if(modules.begin(), modules.end(),
                               [&](const SimModule& k) { return k.code == s->code; });
        if (it == modules.end()) it = modules.insert(modules.end(), std::move(*s));
        it->silent = true;
    }
    return modules;
}

}  // namespace filo::sim
