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
    filo::cli::AggregateRequest sets;
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
    filo::cli::MessageRequest message;
    auto* msg = command("message", "Write one message of a panel interface (type 1E)",
                        [&](Context& c) { return filo::cli::set_message(c, message); });
    msg->add_option("project", message.project, "The project file")->required();
    msg->add_option("code", message.code, "The panel's code (6 hex digits, or the 8 printed)")
        ->required();
    msg->add_option("--number", message.number, "1-96, or 98 for the idle text")->required();
    msg->add_option("--text", message.text,
                    "The text with its codes in line: \\b red, \\a dim red, \\h green, "
                    "\\g dim green, \\d yellow, \\f orange, \\e dim orange, ^s sound; at least 5 "
                    "characters, or empty to free the message")
        ->required();
    msg->add_option("--name", message.name, "The message's name");
    msg->add_option("--persistence", message.persistence, "0-20; else from the text's length");
    msg->add_option("--mode", message.mode, "B direct, K up, L down, V blinking");
    auto* set = command("set-point", "Change one point as the module window does",
                        [&](Context& c) { return filo::cli::set_point(c, point); });
    set->add_option("project", point.project, "The project file")->required();
    set->add_option("point", point.point,
                    "<code>/<row>: rows 1-8 inputs, 9-16 outputs, 17-32 the flags of relay modules")
        ->required();
    set->add_option("--name", point.name, "The point's name");
    set->add_option("--kind", point.kind, "Kind letter of an input (P, p, T, V, I, i, A, N, ...)");
    set->add_option("--contact", point.contact,
                    "Contact of an output: 0 (N.A.), I (N.C.), V (VARIATORE)");
    set->add_option("--param", point.parameters,
                    "FIELD=VALUE: P1-P6 (the module's page), V1-V3 (an input's page), "
                    "ON, OFF (0-251), EMERGENCY (percent); digits only, within the field's range");
    set->add_option("--and", point.and_relays,
                    "Output: the relays it needs active, e.g. 1,3 (\"\" for none)");
    set->add_option("--reciprocal", point.reciprocal_relays,
                    "Output: the relays interlocked with it, e.g. 2 (\"\" for none)");
    set->add_option("--commands-in-emergency", point.commands_in_emergency,
                    "Emergency output: allow commands while the emergency is on (yes/no)");
    set->add_option("--rgb", point.rgb, "LED driver: one RGB channel (yes) or single channels (no)");
    set->add_option("--reader", point.reader, "Card reader model: E external, I internal, G generic");
    set->add_option("--rolling-code", point.rolling_code,
                    "Remote elements: rolling code (yes) or synchronised code (no)");
    set->add_option("--card", point.cards,
                    "Card reader, on a read event (rows 1-8): a 6-digit card code; "
                    "a card entered again is removed");
    set->add_option("--receiver", point.receiver, "Remote element: the receiver it is paired with");
    auto* agg = command("aggregate",
                        "The sets of the events TUTTI and ALMENO1 of an output module, as "
                        "ASSOCIAZIONI of the module window changes them",
                        [&](Context& c) { return filo::cli::aggregate(c, sets); });
    agg->add_option("project", sets.project, "The project file")->required();
    agg->add_option("code", sets.code, "The module's code (6 hex digits)")->required();
    agg->add_option("--set", sets.set, "a, b or c on the modules with three sets (default a)");
    agg->add_option("--on", sets.on,
                    "Points taking part when on: relays 1-8, flags 9-24, e.g. 1,9");
    agg->add_option("--off", sets.off, "Points taking part when off");
    agg->add_option("--switch-on", sets.switch_on, "Relays the event switches on, e.g. 3");
    agg->add_option("--switch-off", sets.switch_off, "Relays the event switches off");
    agg->add_option("--logic", sets.logic, "or (at least one) or and (all)");
    agg->add_option("--name", sets.name,
                    "The event's name, at most 8 characters; \"\" takes the events off the bus");
    agg->add_option("--relays", sets.relays, "Simple modules (48, 49): the relays taking part");
    auto* del = command("delete-module", "Delete a module and every link to its points",
                        [&](Context& c) { return filo::cli::delete_module(c, path, code); });
    del->add_option("project", path, "The project file")->required();
    del->add_option("code", code, "The module's code (6 hex digits, or the 8 printed)")->required();

    filo::cli::ReplaceRequest replace;
    auto* replace_cmd =
        command("replace", "Replace a module by new hardware: its rows and links take the new code",
                [&](Context& c) { return filo::cli::replace_module(c, replace); });
    replace_cmd->add_option("project", replace.project, "The project file")->required();
    replace_cmd
        ->add_option("code", replace.code, "The module's code (6 hex digits, or the 8 printed)")
        ->required();
    replace_cmd->add_option("serial", replace.serial, "The 8 characters printed on the new module")
        ->required();
    replace_cmd->add_flag("--no-check-digits", replace.no_check_digits,
                          "Take the serial without checking its check digits");
    replace_cmd->footer(
        "The new hardware must be of the module's type; a module of type 47 may take one of\n"
        "type 14. Names, kinds, options, ID and links stay: only the code changes, in the\n"
        "module's rows, in both ends of its links and in the remote elements paired with it.\n"
        "Output: one line, \"Sostituzione avvenuta con successo  OLD -> NEW\", exit 0.\n"
        "Refusals, message on stderr, project untouched, exit 1:\n"
        "  \"Tipo di modulo non compatibile \"  the serial is of another type\n"
        "  \"Codice inserito non corretto\"     wrong check digits, or not 8 hex characters\n"
        "  \"Questo modulo esiste già \"        the new code is in the project (the module too)\n"
        "  a module not in the project, or of a type without replacement (video door, panel).\n"
        "Messages follow --lang.");

    command("ports", "List the serial ports", [&](Context& c) { return filo::cli::list_ports(c); });
    command("connect", "Find the programmer on the serial ports, or check one",
            [&](Context& c) { return filo::cli::connect(c, path); })
        ->add_option("--port", path,
                     "Check this port only (any path: /dev/ttyUSB0, a pseudo-terminal)");
    auto* send_cmd =
        command("send", "Send one frame as programming does, with answer and one repeat",
                [&](Context& c) { return filo::cli::send_frame(c, send); });
    send_cmd->add_option("--port", send.port, "The programmer's port")->required();
    send_cmd
        ->add_option("frame", send.frame,
                     "The frame, e.g. (30012ED10]; one that carries its checksum goes as it is")
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
    which->add_flag("--analogs", points.analogs,
                    "The points that can set a new link's reference value, the next free "
                    "gateway channel first; exit 1 when every channel is used");
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

    // The link editor without its window.
    filo::cli::ModesRequest modes;
    auto* modes_cmd = command(
        "modes", "The modes the link editor offers for a pair, one a line: N TAB caption",
        [&](Context& c) { return filo::cli::list_modes(c, modes); });
    modes_cmd->footer(
        "Output (a contract): one line per mode offered, the mode number (1-9), a TAB, its\n"
        "caption in the chosen language, exactly as the editor shows it. Nothing offered: no\n"
        "lines, exit 0. A pair the editor refuses: its message on stderr, exit 1.");
    modes_cmd->add_option("project", modes.project, "The project file")->required();
    modes_cmd->add_option("--command", modes.command, "Item data of the command (points --commands)")
        ->required();
    modes_cmd->add_option("--output", modes.output, "Item data of the output (points --outputs)")
        ->required();

    filo::cli::AddLinkRequest link;
    auto* link_cmd = command("add-link", "Make a link as the link editor's COLLEGA does",
                             [&](Context& c) { return filo::cli::add_link(c, link); });
    link_cmd->footer(
        "Output (a contract): the rows written, one a line, as column=value pairs separated by\n"
        "TAB in the table's column order without ID; continuation rows follow their main row.\n"
        "Backslash, TAB, LF and CR in a value are written \\\\, \\t, \\n, \\r. The IDs written go to\n"
        "stderr, one a line. --dry-run prints the same rows and writes nothing.\n"
        "T is S or H:MM:SS (at most 17:59:59), with .D tenths where the editor offers them;\n"
        "0 means not typed. Exit 1 with the editor's message for a pair, mode or setting it\n"
        "would not allow, for a pair already linked (naming its ID; --replace overwrites it),\n"
        "and for a link that needs the advanced options.");
    link_cmd->add_option("project", link.project, "The project file")->required();
    link_cmd->add_option("--command", link.command, "Item data of the command (points --commands)")
        ->required();
    link_cmd->add_option("--output", link.output, "Item data of the output (points --outputs)")
        ->required();
    link_cmd->add_option("--mode", link.mode, "The mode number that modes prints")
        ->required()
        ->check(CLI::Range(1, 9));
    link_cmd->add_option("--time-on", link.time_on, "Tempo di attivazione (T)");
    link_cmd->add_option("--delay-on", link.delay_on, "Tempo ritardo attivazione (T)");
    link_cmd->add_option("--delay-off", link.delay_off, "Tempo prima dello spegnimento (T)");
    link_cmd->add_flag("--no-retrigger", link.no_retrigger, "Untick Ricaricabile");
    auto* lamp = link_cmd->add_option_group("lamp", "The lamp of an indicator output");
    lamp->add_flag("--steady", link.steady, "Luce fissa");
    lamp->add_option("--blink", link.blink, "Lampeggio semplice: ON,OFF, each 1-255")
        ->delimiter(',')
        ->expected(2)
        ->check(CLI::Range(1, 255));
    lamp->add_option("--blink-pattern", link.blink_pattern,
                     "Lampeggio composito: 16 characters 0/1, one a step")
        ->check([](const std::string& v) {
            return v.size() == 16 && v.find_first_not_of("01") == std::string::npos
                       ? std::string()
                       : std::string("16 characters 0 or 1");
        });
    lamp->require_option(0, 1);
    link_cmd->add_option("--messages", link.messages, "Messages of a message module: N[,N...]")
        ->delimiter(',')
        ->check(CLI::Range(1, 96));
    link_cmd->add_flag("--replace", link.replace, "Overwrite the pair's link (Sovrascrivi)");
    link_cmd->add_flag("--dry-run", link.dry_run, "Print the rows and write nothing");

    std::int64_t link_id = 0;
    auto* delete_cmd =
        command("delete-link", "Delete one link row and its continuation (Elimina)",
                [&](Context& c) { return filo::cli::delete_link(c, path, link_id); });
    delete_cmd->add_option("project", path, "The project file")->required();
    delete_cmd->add_option("id", link_id, "The ID of the link's main row (links prints it)")
        ->required();
    filo::cli::LightRequest light;
    auto* light_cmd =
        command("light", "Set the working point of a photo-sensor module and store it",
                [&](Context& c) { return filo::cli::set_constant_light(c, light); });
    light_cmd->add_option("project", light.project, "The project file")->required();
    light_cmd->add_option("code", light.code, "The sensor's module code, e.g. 00A019")->required();
    light_cmd->add_option("--level", light.level, "The wanted brightness, 0-100")
        ->required()
        ->check(CLI::Range(0, 100));
    light_cmd->add_option("--port", light.port, "The programmer's port")->required();
    light_cmd->add_option("--timeout", light.timeout_s, "Seconds given to the regulation")
        ->check(CLI::Range(1.0, 3600.0));
    light_cmd->footer(
        "Output: \"level L\" (the set point sent, 0-255); then \"sensor S command C\" each time\n"
        "the module's reading or its command to the lamps changes (\"-\" before the first);\n"
        "once a query is answered with no new command since the one before, the\n"
        "state message and \"stored PPP\" (the three characters stored). Exit 3, nothing\n"
        "stored, when the regulation has not settled within the timeout.");
    filo::cli::MonitorRequest monitor;
    auto* monitor_cmd = command("monitor", "Decode the line: one line per complete frame",
                                [&](Context& c) { return filo::cli::monitor_line(c, monitor); });
    auto* monitor_port = monitor_cmd->add_option("--port", monitor.port, "The programmer's port");
    auto* replay_opt = monitor_cmd->add_option("--replay", monitor.replay,
                                               "Decode a recording instead of a port");
    monitor_port->excludes(replay_opt);
    monitor_cmd->add_option("--project", monitor.project, "Names from this project");
    monitor_cmd->add_option("--record", monitor.record, "Also write every frame to this file")
        ->excludes(replay_opt);
    monitor_cmd->add_flag("--csv", monitor.csv, "CSV with a header line instead of TABs");
    monitor_cmd->add_flag("--paced", monitor.paced, "Replay with the recorded gaps")
        ->needs(replay_opt);
    monitor_cmd->callback([&] {
        if (monitor.port.empty() && monitor.replay.empty())
            throw CLI::ValidationError("monitor", "--port or --replay is required");
    });
    monitor_cmd->footer(
        "Output, one line per complete frame, eight fields separated by TAB:\n"
        "  time of reception HH:MM:SS.mmm, kind (position 4 of the frame), module address\n"
        "  (LM_MODULO), input (LM_INGRESSO, decimal), value (LM_VALORE, decimal), name\n"
        "  (LM_NOME), description (LM_DESCRIZIONE), announcement (TESTO_PARLATO with every\n"
        "  speech tick on). A frame of another kind, or one not decoded, has its kind and\n"
        "  the raw frame in the description field, the other fields empty. Control\n"
        "  characters inside a field are written \\xNN. --csv: the same eight fields as\n"
        "  CSV (RFC 4180) after the header line time,kind,module,input,value,name,\n"
        "  description,spoken. Live, it runs until SIGINT or SIGTERM, then writes the\n"
        "  counts of frames, undecoded frames, stray characters and broken frames on\n"
        "  stderr and exits 0.\n"
        "Recording (--record, read by --replay): a text file, one frame a line: the\n"
        "  time of reception as above, TAB, the frame as received (bytes 0x20-0x7E but\n"
        "  the backslash as they are, others \\xNN). A replay prints exactly what the\n"
        "  live run printed; broken lines are skipped and counted on stderr.\n");

    filo::cli::AnalyseRequest analyse;
    auto* analyse_cmd =
        command("analyse", "The diagram of the links that command one output",
                [&](Context& c) { return filo::cli::analyse_output(c, analyse); });
    analyse_cmd->add_option("project", analyse.project, "The project file")->required();
    analyse_cmd->add_option("output", analyse.output, "The output's name")->required();
    analyse_cmd->add_option("--svg", analyse.svg, "Draw the diagram to this SVG file");
    analyse_cmd->add_option("--png", analyse.png, "Draw the diagram to this PNG file");
    filo::cli::ReportRequest report;
    auto* report_cmd = command("report", "One of the five reports, as text rows or as PDF",
                               [&](Context& c) { return filo::cli::print_report(c, report); });
    report_cmd->add_option("project", report.project, "The project file")->required();
    report_cmd
        ->add_option("--kind", report.kind,
                     "1 commands, 2 commands extended, 3 users, 4 users extended, 5 modules")
        ->required()
        ->check(CLI::Range(1, 5));
    auto* report_output = report_cmd->add_option_group("output");
    report_output->add_flag("--text", report.text, "Print the rows, a line each (format below)");
    report_output->add_option("--pdf", report.pdf, "Write the pages the report window prints");
    report_output->require_option(1);
    report_cmd->add_option("--page", report.page, "Page size of the PDF")
        ->check(CLI::IsMember({"A4", "Letter"}));
    report_cmd->footer(
        "--text prints one line per row, in the report's order, UTF-8, each line ended by \\n,\n"
        "fields separated by TAB and never trimmed:\n"
        "  kinds 1-4: STAMPA_NICK_TX, STAMPA_ID_TX, STAMPA_NICK_RX, STAMPA_ID_RX, STAMPA_RIGA\n"
        "             (a channel row of a link is five empty fields; 1 and 2, 3 and 4 have\n"
        "             the same rows)\n"
        "  kind 5:    module code, four blanks, note; STAMPA_CODICE; STAMPA_RIGA\n"
        "Bytes below 0x20, 0x7F and the backslash print as \\xNN (upper-case hex).\n"
        "Kinds 1-2 sort by command name then code, 3-4 by user name then code, 5 by\n"
        "module code then row; text ignores case, ties keep the table's order.\n"
        "More rows than a report holds (3000): a message, exit 1.");
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
