#pragma once
// The commands of filo-cli. Each returns the exit code, writes its result to
// Context::out and throws UserError for a mistake of the user's.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/cli_context.hpp"
#include "links/link_times.hpp"

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

// One message of a panel interface (type 1E), as the panel window stores it.
struct MessageRequest {
    std::string project;
    std::string code;
    int number = 0;  // 1-96, or 98 for the idle text
    std::string text;  // with its colour codes in line: \b red, \h green, ...
    std::optional<std::string> name;
    std::optional<std::string> persistence;  // else as the text's length gives it
    char mode = 'B';
};
// Prints the record stored; "" when the text is too short for one.
int set_message(Context& context, const MessageRequest& request);

// One point changed as the module window changes it.
struct PointRequest {
    std::string project;
    std::string point;  // <code>/<row>
    std::optional<std::string> name;
    std::optional<std::string> kind;
    std::optional<std::string> contact;
    std::vector<std::string> parameters;  // FIELD=VALUE
    // The option pages: relays of AND / RECIPROCO ("1,3", "" none), the
    // emergency option, the module's page, cards of a reader, the receiver.
    std::optional<std::string> and_relays;
    std::optional<std::string> reciprocal_relays;
    std::optional<std::string> commands_in_emergency;  // yes / no
    std::optional<std::string> rgb;                    // yes / no
    std::optional<std::string> reader;                 // E / I / G
    std::optional<std::string> rolling_code;           // yes / no
    std::vector<std::string> cards;
    std::optional<std::string> receiver;
};
int set_point(Context& context, const PointRequest& request);
// The sets of TUTTI and ALMENO1 of an output module, as ASSOCIA changes them.
// Lists are point numbers ("1,9": relays 1-8, flags 9-24); a list given
// replaces the set's own.
struct AggregateRequest {
    std::string project;
    std::string code;
    std::string set;                     // a, b, c on the modules with three sets; "" a
    std::optional<std::string> on, off;  // participants when on / off
    std::optional<std::string> switch_on, switch_off;  // relays the event switches
    std::string logic;                                 // or / and; "" as it is
    std::optional<std::string> name;
    std::optional<std::string> relays;  // the one set of a simple module
};
int aggregate(Context& context, const AggregateRequest& request);
// ELIMINA MODULO: the module and every link with an end in it.
int delete_module(Context& context, const std::string& project, const std::string& code);

// SOSTITUISCI MODULO: the module takes the serial of its new hardware, in
// its rows, its links and the remote elements paired with it.
struct ReplaceRequest {
    std::string project;
    std::string code;    // the module's code (6 hex digits, or the 8 printed)
    std::string serial;  // the 8 characters printed on the new module
    bool no_check_digits = false;
};
int replace_module(Context& context, const ReplaceRequest& request);

// The serial ports of the system, a line each: path, tab, caption.
int list_ports(Context& context);
// The programmer's search over the system's ports, or a check of one port.
int connect(Context& context, const std::string& port);

// One frame sent as a programming run sends it, with the report of each attempt.
struct SendRequest {
    std::string port;
    std::string frame;  // with or without its checksum
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
    bool analogs = false;   // the reference setters of a new link instead
    int level = 3;
    std::string code;             // the code filter
    std::string name;             // the name filter (levels 2 and 3)
    std::string group = "VUOTO";  // state of the output group: VUOTO or CREATO
};
int list_points(Context& context, const PointsRequest& request);

// The integrity of a project edited elsewhere: a line for each finding, exit
// 1 when there is any.
int check_project(Context& context, const std::string& project_path);

// The link editor without its window: the modes of a pair, a link made,
// a link deleted. Points are the item data that list_points prints.
struct ModesRequest {
    std::string project;
    std::int64_t command = 0;
    std::int64_t output = 0;
};
int list_modes(Context& context, const ModesRequest& request);

struct AddLinkRequest {
    std::string project;
    std::int64_t command = 0;
    std::int64_t output = 0;
    int mode = 0;
    std::optional<std::string> time_on, delay_on, delay_off;  // S or H:MM:SS, .D tenths
    bool no_retrigger = false;
    bool steady = false;
    std::vector<int> blink;                    // T on, T off: 1 to 255
    std::optional<std::string> blink_pattern;  // 16 characters "0"/"1"
    std::vector<int> messages;                 // 1 to 96
    bool replace = false;
    bool dry_run = false;
};
int add_link(Context& context, const AddLinkRequest& request);
int delete_link(Context& context, const std::string& project_path, std::int64_t id);
// A time as add-link takes it; false when it is no time of the editor's.
bool parse_link_time(const std::string& text, links::TimeEntry& time);
// The working point of a photo-sensor module, set live and stored.
struct LightRequest {
    std::string project;
    std::string code;  // the sensor's 6-character code
    std::string port;
    int level = 0;  // the wanted brightness, 0-100 as the window's slider
    double timeout_s = 30;
};
int set_constant_light(Context& context, const LightRequest& request);
// The line monitor: one line per complete frame, live on a port until
// interrupted, or from a recording.
struct MonitorRequest {
    std::string port;
    std::string project;  // names from this project, if given
    std::string record;   // every frame also written here
    std::string replay;   // a recording to decode instead of a port
    bool csv = false;     // CSV with a header in place of TAB-separated lines
    bool paced = false;   // a replay keeps the recorded gaps between frames
};
int monitor_line(Context& context, const MonitorRequest& request);

// The diagram of what commands one output, as text, or drawn to SVG or PNG.
struct AnalyseRequest {
    std::string project;
    std::string output;  // the output's name
    std::string svg;
    std::string png;
};
int analyse_output(Context& context, const AnalyseRequest& request);
// One of the five reports, as its rows (text) or as the PDF the report
// window prints.
struct ReportRequest {
    std::string project;
    int kind = 1;             // 1-5, as the project window's entries
    bool text = false;        // the rows, a line each
    std::string pdf;          // else the PDF file to write
    std::string page = "A4";  // A4 or Letter
};
int print_report(Context& context, const ReportRequest& request);
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
