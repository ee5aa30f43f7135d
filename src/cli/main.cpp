// filo-cli: the commissioning core without windows.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <iostream>

#include "cli/commands.hpp"
#include "platform/serial_port.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace {

using filo::cli::Context;
using Command = std::function<int(Context&)>;

int run(int argc, char** argv) {
    CLI::App app{"Filo: commissioning of home-automation installations on a serial field bus",
                 "filo-cli"};
    app.require_subcommand(1);
    app.fallthrough();
    std::string language = "ITA";
    app.add_option("--lang", language, "Language of the texts: ITA, SPA, FRA or TED")
        ->check([](const std::string& v) {
            filo::texts::Language l;
            return filo::texts::language_from_code(v, l) ? std::string() : "unknown language: " + v;
        });

    // Each subcommand with what it runs once the arguments are read.
    std::vector<std::pair<CLI::App*, Command>> commands;
    auto command = [&](const char* name, const char* help, Command run) {
        CLI::App* sub = app.add_subcommand(name, help);
        commands.emplace_back(sub, std::move(run));
        return sub;
    };
    std::string path, code, frame;
    filo::cli::ModuleRequest module;
    filo::cli::PointRequest point;
    filo::cli::SendRequest send;

    command("new", "Create a project: <path>/<name>.TRN",
            [&](Context& c) { return filo::cli::new_project(c, path); })
        ->add_option("project", path, "The new project file")
        ->required();
    command("modules", "List the modules and the named points",
            [&](Context& c) { return filo::cli::list_modules(c, path); })
        ->add_option("project", path, "The project file")
        ->required();
    command("texts", "Print the text table", [&](Context& c) { return filo::cli::print_texts(c); });
    auto* image = command("image", "The masks and parameters programming sends",
                          [&](Context& c) { return filo::cli::print_module_image(c, path, code); });
    image->add_option("project", path, "The project file")->required();
    image->add_option("code", code, "The module's 6-character code")->required();
    command("code", "The code printed on a module, or check one",
            [&](Context& c) { return filo::cli::module_code(c, code); })
        ->add_option("code", code, "6 hex digits, or the 8 characters printed")
        ->required();
    command("frame", "Put the checksum into a frame without it",
            [&](Context& c) { return filo::cli::frame_with_checksum(c, frame); })
        ->add_option("frame", frame, "The frame, e.g. (600000055]")
        ->required();
    command("links", "The link table with the frame that programs each row",
            [&](Context& c) { return filo::cli::list_links(c, path); })
        ->add_option("project", path, "The project file")
        ->required();
    auto* add = command("add-module", "Enter a module by the code printed on it",
                        [&](Context& c) { return filo::cli::add_module(c, module); });
    add->add_option("project", module.project, "The project file")->required();
    add->add_option("code", module.code, "The 8 characters printed on the module")->required();
    add->add_option("--note", module.note, "The module's description");
    add->add_option("--receiver", module.receiver, "For a remote element: its receiver's code");
    auto* set = command("set-point", "Change one point as the module window does",
                        [&](Context& c) { return filo::cli::set_point(c, point); });
    set->add_option("project", point.project, "The project file")->required();
    set->add_option("point", point.point, "<code>/<row>: rows 1-8 inputs, 9 up outputs")
        ->required();
    set->add_option("--name", point.name, "The point's name");
    set->add_option("--kind", point.kind, "Kind letter of an input (P, p, T, V, I, i, A, N, ...)");
    set->add_option("--contact", point.contact,
                    "Contact of an output: 0 (N.A.), I (N.C.), V (VARIATORE)");
    set->add_option("--param", point.parameters, "FIELD=VALUE: P1-P6, V1-V3, ON, OFF, EMERGENCY");

    command("ports", "List the serial ports", [&](Context& c) { return filo::cli::list_ports(c); });
    command("connect", "Find the programmer on the serial ports, or check one",
            [&](Context& c) { return filo::cli::connect(c, path); })
        ->add_option("--port", path,
                     "Check this port only (any path: /dev/ttyUSB0, a pseudo-terminal)");
    auto* send_cmd =
        command("send", "Send one frame as programming does, with answer and one repeat",
                [&](Context& c) { return filo::cli::send_frame(c, send); });
    send_cmd->add_option("--port", send.port, "The programmer's port")->required();
    send_cmd->add_option("frame", send.frame, "The frame without its checksum, e.g. (30012ED10]")
        ->required();
    send_cmd
        ->add_option("--wait", send.answer_ms, "Milliseconds waited for the answer beyond 0.1 s")
        ->check(CLI::Range(0, 60000));

    filo::cli::ProgramRequest program;
    auto* program_cmd =
        command("program", "Program the whole installation through the programmer",
                [&](Context& c) { return filo::cli::program_installation(c, program); });
    program_cmd->add_option("project", program.project, "The project file")->required();
    auto* port_option = program_cmd->add_option("--port", program.port, "The programmer's port");
    auto* dry_run = program_cmd->add_flag(
        "--dry-run", program.dry_run,
        "Run against a programmer that answers every frame at once, in virtual time");
    port_option->excludes(dry_run);
    program_cmd
        ->add_flag("--trace", program.trace,
                   "With --dry-run: print every write to the port, one line each")
        ->needs(dry_run);
    program_cmd
        ->add_option("--on-errors", program.on_errors,
                     "After ten failed frames: stop or continue (default: ask)")
        ->check(CLI::IsMember({"stop", "continue"}));
    program_cmd->add_flag("!--no-short-message", program.short_message,
                          "Reset the modules without their short message");

    filo::cli::PointsRequest points;
    auto* points_cmd = command("points", "The outputs or the commands list of the link editor",
                               [&](Context& c) { return filo::cli::list_points(c, points); });
    points_cmd->add_option("project", points.project, "The project file")->required();
    auto* which = points_cmd->add_option_group("list");
    which->add_flag("--commands", points.commands, "The commands list");
    bool outputs = false;
    which->add_flag("--outputs", outputs, "The outputs list");
    which->require_option(1);
    auto* level = points_cmd
                      ->add_option("--level", points.level,
                                   "Programming level: 1 SMART, 2 PROFESSIONALE, 3 AVANZATO")
                      ->check(CLI::Range(1, 3));
    points_cmd->add_option("--code", points.code, "Keep the points of this module code");
    points_cmd
        ->add_option("--name", points.name, "Keep the entries holding this text (levels 2 and 3)")
        ->check([&level, &points](const std::string&) {
            return level->count() && points.level == 1
                       ? std::string("the name filter is hidden at level 1")
                       : std::string();
        });
    points_cmd->add_option("--group", points.group, "State of the output group")
        ->check(CLI::IsMember({"VUOTO", "CREATO"}));
    command("check", "Check the links and names of a project edited elsewhere",
            [&](Context& c) { return filo::cli::check_project(c, path); })
        ->add_option("project", path, "The project file")
        ->required();

    filo::cli::CloneRequest clone;
    auto* clone_cmd = command("clone", "Clone a sample project into a project under new codes",
                              [&](Context& c) { return filo::cli::clone_sample(c, clone); });
    clone_cmd->add_option("project", clone.target, "The project the clone is added to")
        ->required();
    clone_cmd->add_option("--sample", clone.sample, "The sample project (never written)")
        ->required();
    auto* clone_list = clone_cmd->add_flag("--list", clone.list, "List the sample's modules");
    clone_cmd->add_option("--group", clone.group, "Name of the clone group")
        ->excludes(clone_list)
        ->check([](const std::string& v) {
            return v.empty() ? std::string("the group name is empty") : std::string();
        });
    clone_cmd->add_option("--number", clone.number, "Number of the clone, 1 to 32767")
        ->excludes(clone_list)
        ->check([](const std::string& v) {
            const bool digits = !v.empty() && v.size() <= 5 &&
                                v.find_first_not_of("0123456789") == std::string::npos;
            return digits && std::stol(v) <= 32767 ? std::string()
                                                   : std::string("digits only, up to 32767");
        });
    clone_cmd
        ->add_option("--code", clone.codes,
                     "OLD=NEW8: the sample module OLD gets the 8 characters printed on its "
                     "new module")
        ->excludes(clone_list)
        ->check([](const std::string& v) {
            return v.find('=') == std::string::npos ? std::string("expected OLD=NEW8")
                                                    : std::string();
        });
    clone_cmd->add_flag("--no-check-digits", clone.no_check_digits,
                        "Take the new codes without checking their check digits");
    clone_cmd->add_flag("--dry-run", clone.dry_run,
                        "Check and print what would be appended; change nothing");
    clone_cmd->footer(
        "Output (a contract):\n"
        "  --list: one line a module of the sample, in code order:\n"
        "    row=I<TAB>code=C<TAB>type=TR-TT<TAB>item=TEXT\n"
        "  clone: the rows appended (with --dry-run: that would be), one a line, as\n"
        "    column=value pairs separated by TAB in table column order, without ID:\n"
        "    all nick rows first (modules in list order, rows in ID order), then the\n"
        "    associazioni rows in the sample's ID order.\n"
        "  In values, backslash, TAB, CR and LF are written \\\\, \\t, \\r, \\n; Null is empty.\n"
        "  Refusals on stderr, nothing changed, exit 1:\n"
        "    title=T<TAB>message=M\n"
        "    row=I<TAB>code=C<TAB>title=T<TAB>message=M for each refused code, C as typed\n"
        "    (upper case); a row without --code is refused with \"INSERISCI CODICE\", a\n"
        "    missing --number with \"Inserire il N° clone\", an OLD that is not in the\n"
        "    list with title=ATTENZIONE and the code after the message.\n"
        "  Without --list, --group is required (exit 2).");

    filo::cli::ExportRequest export_request;
    auto* export_cmd =
        command("export", "The SQLite copy of nick and the export of the card-reader groups",
                [&](Context& c) { return filo::cli::export_project(c, export_request); });
    export_cmd->add_option("project", export_request.project, "The project file (only read)")
        ->required();
    export_cmd->add_flag("--cards-only", export_request.cards_only,
                         "Only the card-reader groups (ESPORTA LETTORE 1A)");
    export_cmd->add_option("--nick", export_request.nick,
                           "The SQLite copy of nick (default: the project path less its last "
                           "3 characters, and DB)");
    export_cmd->add_option("--cards", export_request.cards,
                           "The card-reader database (default: <data dir>/ESP_<name>/"
                           "DATI_HARDWARE.mdb); dati_transponder.csv is written beside it");
    export_cmd->footer(
        "Files are replaced whole: each is written under a temporary name and renamed.\n"
        "dati_transponder.csv: UTF-8, header ID,A,B,C,D,E,F, CRLF line ends, quoted fields\n"
        "where needed. The template <data dir>/ESPORTA_BASE.mdb is made when missing.\n"
        "Exit 0 done, 1 on failure (message on stderr).");

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        app.exit(e);
        return filo::cli::kExitUsage;
    }

    filo::texts::LanguageTables texts;
    filo::texts::Language chosen = filo::texts::Language::Italian;
    filo::texts::language_from_code(language, chosen);
    texts.ITALIANO();
    texts.choose(chosen);
    Context context{texts, std::cout, std::cerr};

    try {
        for (auto& [sub, run_command] : commands)
            if (*sub) return run_command(context);
    } catch (const filo::cli::UserError& e) {
        std::cerr << e.what() << '\n';
        return filo::cli::kExitUserError;
    } catch (const filo::store::ProjectError& e) {
        std::cerr << filo::store::describe(e, texts) << '\n';
        return filo::cli::kExitUserError;
    } catch (const filo::sqlite::SqlError& e) {
        std::cerr << texts[filo::texts::Text::PROJECT_UNREADABLE] << e.what() << '\n'
                  << texts[filo::texts::Text::PROJECT_UNCHANGED] << '\n';
        return filo::cli::kExitUserError;
    } catch (const filo::platform::PortError& e) {
        // An adapter pulled out mid-operation: reported, the port closed.
        std::cerr << texts[filo::texts::Text::PORT_LOST] << e.what() << '\n';
        return filo::cli::kExitUserError;
    } catch (const std::filesystem::filesystem_error& e) {
        std::cerr << texts[filo::texts::Text::FILE_ERROR] << e.what() << '\n';
        return filo::cli::kExitUserError;
    }
    return filo::cli::kExitUsage;
}

}  // namespace

int main(int argc, char** argv) {
    return run(argc, argv);
}
