#include <algorithm>
#include <cctype>
#include <ostream>

#include "cli/commands.hpp"
#include "commissioning/module_image_reader.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"

namespace filo::cli {
using texts::Text;

int print_module_image(Context& context, const std::string& project_path, const std::string& code) {
    // Codes are upper-case hexadecimal; the type is read from the code itself.
    std::string codice = code;
    std::transform(codice.begin(), codice.end(), codice.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });

    store::Project project;
    project.open(project_path, store::Access::ReadOnly);
    store::ModuleTable table(project);
    commissioning::ModuleImageReader reader(table);
    const commissioning::ModuleImageReading reading = reader.LEGGI_INGRESSI_MODULO(codice);
    if (reading.STATO_MODULO != store::kModuloEsistente)
        throw UserError(context.texts.text(Text::MODULE_NOT_IN_PROJECT) + codice);
    for (const auto& [name, value] : commissioning::named_values(reading.IMMAGINE_MODULO))
        context.out << name << '=' << value << '\n';
    return kExitOk;
}

}  // namespace filo::cli
