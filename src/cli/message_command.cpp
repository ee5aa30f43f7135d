// message: one message of a panel interface written from a script, with the
// checks of the panel window.
#include <ostream>

#include "bus/module_code.hpp"
#include "cli/commands.hpp"
#include "common/basic_functions.hpp"
#include "modules/module_editor.hpp"
#include "modules/panel_messages.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"

namespace filo::cli {

using texts::Text;

int set_message(Context& context, const MessageRequest& request) {
    const texts::LanguageTables& t = context.texts;
    const std::optional<std::string> code = bus::filtered_code(request.code);
    if (!code || (code->size() != 6 && code->size() != 8))
        throw UserError(t.text(Text::CODE_NOT_CORRECT));
    const std::string codice = code->substr(0, 6);
    const int n = request.number;
    // Rows 1 to 96 are the messages a link can call; 98 the idle text.
    if ((n < 1 || n > modules::kLastMessageRow) && n != modules::kIdleMessageRow)
        throw UserError(t.text(Text::POINT_NOT_IN_MODULE) + std::to_string(n));
    const std::string name = request.name.value_or("");
    if (const std::string c = modules::refused_name_character(name); !c.empty())
        throw UserError(t.text(Text::NAME_CHARACTERS_REFUSED) + basic::escaped_controls(c));
    // A shorter text leaves the record empty, as the panel window does: say so
    // rather than free the message unasked. An empty text frees it.
    if (!request.text.empty() && basic::character_count(request.text) < modules::kShortestText)
        throw UserError(t.text(Text::PANEL_TEXT_TOO_SHORT) + basic::escaped_controls(request.text));
    if (modules::mode_index(request.mode) < 0)
        throw UserError(t.text(Text::PANEL_MODE) + " B, K, L, V: " + std::string(1, request.mode));

    store::Project project;
    project.open(request.project);
    store::ModuleTable table(project);
    table.LEGGI_MODULO(codice);
    if (table.STATO_MODULO != store::kModuloEsistente || codice.substr(4, 2) != "1E" ||
        table.RIGHE_MODULO.N_RIGHE_MODULO() < n)
        throw UserError(t.text(Text::MODULE_NOT_IN_PROJECT) + codice);
    table.set_codice_modulo(codice);
    // The persistence the window would propose, unless one is given.
    const std::string persistence =
        request.persistence
            ? *request.persistence
            : modules::persistence_for_length(basic::character_count(request.text), "02");
    const std::string record = modules::RECORD_MESSAGGIO({persistence, request.mode, request.text});
    const modules::RecordHalves halves = modules::split_record(record);
    store::NickRow& row = table.RIGHE_MODULO.riga(n);
    if (n != modules::kIdleMessageRow && request.name) row.nick = std::string(basic::trim(name));
    row.riserva2 = halves.riserva2;
    row.riserva3 = halves.riserva3;
    table.MODIFICA_MODULO();
    context.out << record << '\n';
    return kExitOk;
}

}  // namespace filo::cli
