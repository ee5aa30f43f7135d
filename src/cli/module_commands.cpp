// add-module and set-point: modules entered and changed from a script, with
// the checks of the project window and of the module window.
#include <algorithm>
#include <charconv>
#include <ostream>

#include "bus/module_code.hpp"
#include "cli/commands.hpp"
#include "common/basic_functions.hpp"
#include "modules/module_editor.hpp"
#include "modules/module_rows.hpp"
#include "modules/parameter_fields.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::cli {
namespace {

using texts::Text;

void refuse(const Context& c, modules::EditRefusal r, std::string_view detail,
            const modules::ModuleEditor& editor) {
    if (r != modules::EditRefusal::None)
        throw UserError(modules::refusal_text(r, c.texts, detail, editor.linked_receiver()));
}

bool is_receiver(const std::string& code) {
    return code.ends_with("4A") || code.ends_with("12");
}

}  // namespace

int add_module(Context& context, const ModuleRequest& request) {
    const texts::LanguageTables& t = context.texts;
    const std::optional<std::string> typed = bus::filtered_code(request.code);
    if (!typed || typed->size() != 8 || !bus::check_digits_match(*typed))
        throw UserError(t.text(Text::CODE_NOT_CORRECT));
    const std::string code = typed->substr(0, 6);
    const std::string type = code.substr(4, 2);
    const std::string refused = modules::refused_name_character(request.note);
    if (!refused.empty())
        throw UserError(t.text(Text::NAME_CHARACTERS_REFUSED) + basic::escaped_controls(refused));

    store::Project project;
    project.open(request.project);
    store::ModuleTable table(project);
    store::LinkTable links(project);
    table.ELENCO_MODULI();

    // A module number is taken once whatever the type; a deleted one is free.
    table.VERIFICA_MODULO(code);
    if (table.STATO_MODULO != store::kNuovoModulo) {
        const std::string stored = table.RIGHE_MODULO.riga(1).codice.substr(4, 2);
        if (stored == type) throw UserError(t.text(Text::MODULE_ALREADY_EXISTS) + code);
        if (stored != "FF") throw UserError(t.text(Text::CODE_IN_USE));
    }
    switch (modules::opening_of(type, table.ELENCO_CODICI)) {
        case modules::Opening::RadioModuleRequired:
            throw UserError(t.text(Text::RADIO_MODULE_REQUIRED));
        case modules::Opening::Unsupported:
            throw UserError(t.text(Text::MODULE_TYPE_UNSUPPORTED));
        case modules::Opening::VideoDoorPages: {
            modules::CREA_VIDEOCITOFONO(table);
            context.out << t[Text::VIDEO_DOOR_PAGES_READY];
            for (std::string_view page : modules::kVideoDoorPages) context.out << page << ' ';
            context.out << '\n';
            return kExitOk;
        }
        case modules::Opening::PanelInterface: {
            table.set_codice_modulo(code);
            table.LEGGI_N_PROGRESSIVO();
            modules::PREPARA_OUT_232(table);
            for (int r = 1; r <= 98; ++r) table.RIGHE_MODULO.riga(r).note = request.note;
            table.AGGIUNGI_MODULO();
            context.out << t[Text::MODULE_ADDED] << code << "  " << request.note << '\n';
            return kExitOk;
        }
        case modules::Opening::ModuleWindow:
            break;
    }

    modules::ModuleEditor editor(table, links);
    editor.create(code);
    store::ModuleRecord& m = table.RIGHE_MODULO;
    for (int i = 1; i <= 8 && i <= m.N_RIGHE_MODULO(); ++i) m.riga(i).note = request.note;
    if (!request.receiver.empty()) {
        const auto receiver = bus::filtered_code(request.receiver);
        const auto& live = table.ELENCO_CODICI;
        if (!receiver || std::find(live.begin(), live.end(), *receiver) == live.end() ||
            !is_receiver(*receiver))
            throw UserError(t.text(Text::RADIO_MODULE_REQUIRED));
        modules::set_receiver_code(m.riga(1).riserva4, *receiver);
    }
    refuse(context, editor.save(), code, editor);
    context.out << t[Text::MODULE_ADDED] << code << "  " << request.note << '\n';
    return kExitOk;
}

int set_point(Context& context, const PointRequest& request) {
    const texts::LanguageTables& t = context.texts;
    const std::size_t slash = request.point.find('/');
    const std::optional<std::string> code =
        slash == std::string::npos ? std::nullopt
                                   : bus::filtered_code(request.point.substr(0, slash));
    int row = 0;
    const std::string row_text = slash == std::string::npos ? "" : request.point.substr(slash + 1);
    const auto parsed = std::from_chars(row_text.data(), row_text.data() + row_text.size(), row);
    if (!code || code->size() != 6 || parsed.ec != std::errc() ||
        parsed.ptr != row_text.data() + row_text.size())
        throw UserError(t.text(Text::POINT_NOT_IN_MODULE) + request.point);

    store::Project project;
    project.open(request.project);
    store::ModuleTable table(project);
    store::LinkTable links(project);
    modules::ModuleEditor editor(table, links);
    if (!editor.open(*code)) throw UserError(t.text(Text::MODULE_NOT_IN_PROJECT) + *code);
    if (row < 1 || row > table.RIGHE_MODULO.N_RIGHE_MODULO())
        throw UserError(t.text(Text::POINT_NOT_IN_MODULE) + request.point);

    using R = modules::EditRefusal;
    if (request.name)
        refuse(context, editor.rename(row, *request.name),
               modules::refused_name_character(*request.name), editor);
    if (request.kind) {
        if (request.kind->size() != 1) refuse(context, R::KindNotOffered, *request.kind, editor);
        refuse(context, editor.set_kind(row, (*request.kind)[0]), *request.kind, editor);
    }
    if (request.contact) {
        // By its character or by the text the list shows.
        std::string c = *request.contact;
        if (c == t.text(Text::CONTACT_NO) || c == "N.A.")
            c = "0";
        else if (c == t.text(Text::CONTACT_NC) || c == "N.C.")
            c = "I";
        else if (c == t.text(Text::CONTACT_DIMMER) || c == "VARIATORE")
            c = "V";
        if (c.size() != 1) refuse(context, R::ContactNotOffered, *request.contact, editor);
        refuse(context, editor.set_contact(row, c[0]), *request.contact, editor);
    }
    for (const std::string& parameter : request.parameters) {
        const std::size_t equals = parameter.find('=');
        if (equals == std::string::npos) refuse(context, R::ParameterNotOffered, parameter, editor);
        refuse(context,
               editor.set_parameter(row, parameter.substr(0, equals), parameter.substr(equals + 1)),
               parameter, editor);
    }
    refuse(context, editor.save(), *code, editor);

    // The point as it stands now: row, name, and its kind or contact.
    const store::NickRow& r = table.RIGHE_MODULO.riga(row);
    context.out << r.codice << '/' << r.campo << "  " << r.nick;
    Text kind;
    if (row <= 8 && !r.modo.empty() && modules::kind_text(r.modo[0], kind))
        context.out << "  " << t[kind];
    if (row > 8 && r.modo.size() >= 2) context.out << "  " << t[modules::contact_text(r.modo[1])];
    context.out << '\n';
    return kExitOk;
}

}  // namespace filo::cli
