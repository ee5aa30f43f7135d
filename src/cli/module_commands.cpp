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
    if (r != modules::EditRefusal::None) throw UserError(editor.message(r, c.texts, detail));
}

// "yes" / "no" of an option; anything else is refused with the option's text.
bool yes_no(const Context& c, const std::string& value, std::string_view option,
            const modules::ModuleEditor& editor) {
    if (value == "yes") return true;
    if (value != "no")
        refuse(c, modules::EditRefusal::ValueRefused, std::string(option) + "=" + value, editor);
    return false;
}

// "1,3" as the 8 characters of the output page, "1" at relay k.
std::string relay_bits(const Context& c, const std::string& list, std::string_view option,
                       const modules::ModuleEditor& editor) {
    std::string bits(8, '0');
    std::size_t start = 0;
    while (start < list.size()) {
        const std::size_t comma = std::min(list.find(',', start), list.size());
        const std::string item = list.substr(start, comma - start);
        if (item.size() != 1 || item[0] < '1' || item[0] > '8')
            refuse(c, modules::EditRefusal::ValueRefused, std::string(option) + "=" + list, editor);
        bits[static_cast<std::size_t>(item[0] - '1')] = '1';
        start = comma + 1;
    }
    return bits;
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
    if (request.name) {
        const R r = editor.rename(row, *request.name);
        refuse(context, r,
               r == R::NotAPoint ? request.point : modules::refused_name_character(*request.name),
               editor);
    }
    if (request.kind) {
        if (request.kind->size() != 1) refuse(context, R::KindNotOffered, *request.kind, editor);
        const R r = editor.set_kind(row, (*request.kind)[0]);
        refuse(context, r, r == R::NotAPoint ? request.point : *request.kind, editor);
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
        const R r = editor.set_contact(row, c[0]);
        refuse(context, r, r == R::NotAPoint ? request.point : *request.contact, editor);
    }
    for (const std::string& parameter : request.parameters) {
        const std::size_t equals = parameter.find('=');
        if (equals == std::string::npos) refuse(context, R::ParameterNotOffered, parameter, editor);
        refuse(context,
               editor.set_parameter(row, parameter.substr(0, equals), parameter.substr(equals + 1)),
               parameter, editor);
    }
    if (request.and_relays || request.reciprocal_relays) {
        const std::string modo = table.RIGHE_MODULO.riga(row).modo + std::string(24, '0');
        const std::string and_bits = request.and_relays
                                         ? relay_bits(context, *request.and_relays, "--and", editor)
                                         : modo.substr(8, 8);
        const std::string reciprocal_bits =
            request.reciprocal_relays
                ? relay_bits(context, *request.reciprocal_relays, "--reciprocal", editor)
                : modo.substr(16, 8);
        refuse(context, editor.set_functions(row, and_bits, reciprocal_bits), request.point,
               editor);
    }
    if (request.commands_in_emergency)
        refuse(context,
               editor.set_commands_in_emergency(row, yes_no(context, *request.commands_in_emergency,
                                                            "--commands-in-emergency", editor)),
               "--commands-in-emergency", editor);
    if (request.rgb)
        refuse(context, editor.set_rgb_channel(yes_no(context, *request.rgb, "--rgb", editor)),
               "--rgb", editor);
    if (request.reader) {
        const std::string& r = *request.reader;
        refuse(context,
               r.size() == 1 ? editor.set_reader(r[0]) : modules::EditRefusal::ValueRefused,
               "--reader=" + r, editor);
    }
    if (request.rolling_code)
        refuse(context,
               editor.set_rolling_code(
                   yes_no(context, *request.rolling_code, "--rolling-code", editor)),
               "--rolling-code", editor);
    for (const std::string& card : request.cards)
        refuse(context, editor.enter_card(row, card), card, editor);
    if (request.receiver) {
        const auto receiver = bus::filtered_code(*request.receiver);
        refuse(context, editor.set_receiver(receiver ? *receiver : *request.receiver),
               *request.receiver, editor);
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

int delete_module(Context& context, const std::string& project_path, const std::string& typed) {
    const texts::LanguageTables& t = context.texts;
    const std::optional<std::string> code = bus::filtered_code(typed);
    if (!code || (code->size() != 6 && code->size() != 8))
        throw UserError(t.text(Text::CODE_NOT_CORRECT));
    const std::string codice = code->substr(0, 6);
    store::Project project;
    project.open(project_path);
    store::ModuleTable table(project);
    store::LinkTable links(project);
    modules::ModuleEditor editor(table, links);
    table.LEGGI_MODULO(codice);
    if (table.STATO_MODULO != store::kModuloEsistente)
        throw UserError(t.text(Text::MODULE_NOT_IN_PROJECT) + codice);
    table.CODICE_MODULO = codice;
    // The panel interface and the video door pages are deleted whole as well.
    if (!editor.open(codice)) table.TIPO_MODULO = codice.substr(4, 2);
    editor.delete_module();
    context.out << t[Text::MODULE_DELETED] << codice << '\n';
    return kExitOk;
}

}  // namespace filo::cli
