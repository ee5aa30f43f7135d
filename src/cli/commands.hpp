#pragma once
// The commands of filo-cli. Each returns the exit code, writes its result to
// Context::out and throws UserError for a mistake of the user's.
#include <optional>
#include <string>
#include <vector>

#include "cli/cli_context.hpp"

namespace filo::cli {

// Creates a project from the empty template.
int new_project(Context& context, const std::string& path);
// The two module lists of the project window.
int list_modules(Context& context, const std::string& project_path);
// The text table as it stands after choosing the language from Italian.
int print_texts(Context& context);
// IMMAGINE_MODULO of one module, one NAME=value a line.
int print_module_image(Context& context, const std::string& project_path, const std::string& code);
// A 6-digit module code with its check digits, or an 8-character one checked.
int module_code(Context& context, const std::string& code);
// A frame written without its checksum, with the checksum in place.
int frame_with_checksum(Context& context, const std::string& frame);

// A module entered by the code printed on it.
struct ModuleRequest {
    std::string project;
    std::string code;      // the 8 characters printed on the module
    std::string note;      // its description
    std::string receiver;  // a remote element's receiver, if any
};
int add_module(Context& context, const ModuleRequest& request);

// One point changed as the module window changes it.
struct PointRequest {
    std::string project;
    std::string point;  // <code>/<row>
    std::optional<std::string> name;
    std::optional<std::string> kind;
    std::optional<std::string> contact;
    std::vector<std::string> parameters;  // FIELD=VALUE
};
int set_point(Context& context, const PointRequest& request);

// The serial ports of the system, a line each: path, tab, caption.
int list_ports(Context& context);
// The programmer's search over the system's ports, or a check of one port.
int connect(Context& context, const std::string& port);

// One frame sent as a programming run sends it, with the report of each attempt.
struct SendRequest {
    std::string port;
    std::string frame;  // without its checksum
    int answer_ms = 0;  // waited beyond the 0.1 s of every answer window
};
int send_frame(Context& context, const SendRequest& request);

// A programming run of the whole installation.
struct ProgramRequest {
    std::string project;
    std::string port;
    bool dry_run = false;   // a programmer answering every frame, in virtual time
    bool trace = false;     // every write to the port, one line each
    std::string on_errors;  // "stop", "continue", or "" to ask on the terminal
    bool short_message = true;
};
int program_installation(Context& context, const ProgramRequest& request);

// The rows of the link table with the frame that programs each.
int list_links(Context& context, const std::string& project_path);

// One list of the link editor, as the editor holds it: a line per entry, the
// item data in decimal, a tab, the entry's text.
struct PointsRequest {
    std::string project;
    bool commands = false;  // else the outputs
    int level = 3;
    std::string code;             // the code filter
    std::string name;             // the name filter (levels 2 and 3)
    std::string group = "VUOTO";  // state of the output group: VUOTO or CREATO
};
int list_points(Context& context, const PointsRequest& request);

// The integrity of a project edited elsewhere: a line for each finding, exit
// 1 when there is any.
int check_project(Context& context, const std::string& project_path);

// A sample project cloned into a project (the clone window), or its list.
struct CloneRequest {
    std::string target;
    std::string sample;
    bool list = false;
    std::string group;
    std::string number;
    std::vector<std::string> codes;  // OLD=NEW8
    bool no_check_digits = false;
    bool dry_run = false;
};
int clone_sample(Context& context, const CloneRequest& request);

// The SQLite copy of nick and the card-reader groups of a project.
struct ExportRequest {
    std::string project;
    bool cards_only = false;
    std::string nick;   // "" : next to the project
    std::string cards;  // "" : in the data directory
};
int export_project(Context& context, const ExportRequest& request);

}  // namespace filo::cli
