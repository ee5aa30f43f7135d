// replace: SOSTITUISCI MODULO of the module window, from a script.
#include <ostream>

#include "bus/module_code.hpp"
#include "cli/commands.hpp"
#include "modules/module_replacement.hpp"
#include "modules/type_catalogue.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"

namespace filo::cli {

using texts::Text;

int replace_module(Context& context, const ReplaceRequest& request) {
    const texts::LanguageTables& t = context.texts;
    const std::optional<std::string> old_code = bus::filtered_code(request.code);
    if (!old_code || (old_code->size() != 6 && old_code->size() != 8))
        throw UserError(t.text(Text::CODE_NOT_CORRECT));
    const std::string codice = old_code->substr(0, 6);
    // What the serial box lets through: the code set, capitals, 8 characters.
    const std::optional<std::string> serial = bus::filtered_code(request.serial);
    if (!serial || serial->size() != 8) throw UserError(t.text(Text::CODE_NOT_CORRECT));

    store::Project project;
    project.open(request.project);
    store::ModuleTable table(project);
    store::LinkTable links(project);
    table.LEGGI_MODULO(codice);
    if (table.STATO_MODULO != store::kModuloEsistente)
        throw UserError(t.text(Text::MODULE_NOT_IN_PROJECT) + codice);
    // Only a module whose window has the button: not the video door pages,
    // nor the panel interface.
    const modules::ModuleType* type = modules::find_type(codice.substr(4, 2));
    if (!type || (type->buttons & modules::kReplaceButton) == 0)
        throw UserError(t.text(Text::REPLACEMENT_NOT_OFFERED) + codice);
    table.set_codice_modulo(codice);
    const modules::ReplacementRefusal refusal =
        modules::replace_module(table, links, *serial, !request.no_check_digits);
    if (refusal != modules::ReplacementRefusal::None)
        throw UserError(t.text(modules::replacement_message(refusal).text));
    context.out << t.text(Text::REPLACEMENT_DONE) << codice << " -> " << table.CODICE_MODULO
                << '\n';
    return kExitOk;
}

}  // namespace filo::cli
