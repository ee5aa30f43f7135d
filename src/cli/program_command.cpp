// program: the programming run from the command line, on a port or in
// virtual time against a programmer that answers every frame.
#include <unistd.h>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <memory>

#include "bus/line.hpp"
#include "bus/port_line.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "cli/commands.hpp"
#include "cli/line_steps.hpp"
#include "commissioning/programming_run.hpp"
#include "commissioning/run_report.hpp"
#include "common/basic_functions.hpp"
#include "platform/clock.hpp"
#include "platform/data_directory.hpp"
#include "platform/serial_port.hpp"
#include "store/project.hpp"

namespace filo::cli {
namespace {

using texts::Text;

// The run that Ctrl-C asks to stop. A signal handler can reach nothing else,
// so this one pointer is the exception to "no globals".
std::atomic<commissioning::ProgrammingRun*> g_interrupted_run{nullptr};

extern "C" void on_interrupt(int) {
    if (commissioning::ProgrammingRun* run = g_interrupted_run.load()) run->request_stop();
}

// Ctrl-C stops the run at its next stop test instead of killing the program,
// so the run still closes programming mode and the report is saved.
class InterruptStopsRun {
  public:
    explicit InterruptStopsRun(commissioning::ProgrammingRun& run) {
        g_interrupted_run.store(&run);
        struct sigaction action {};
        action.sa_handler = on_interrupt;
        sigemptyset(&action.sa_mask);
        sigaction(SIGINT, &action, &previous_);
    }
    ~InterruptStopsRun() {
        sigaction(SIGINT, &previous_, nullptr);
        g_interrupted_run.store(nullptr);
    }
    InterruptStopsRun(const InterruptStopsRun&) = delete;
    InterruptStopsRun& operator=(const InterruptStopsRun&) = delete;

  private:
    struct sigaction previous_ {};
};

// The exact bytes of a write: printable ASCII as itself, every other byte
// and the backslash as \xNN.
std::string trace_line(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + 16);
    for (char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        if (b >= 0x20 && b <= 0x7E && b != '\\') {
            out += ch;
        } else {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", b);
            out += escaped;
        }
    }
    return out;
}

// The live line of a run on a terminal: phase, module, links, errors.
class ProgressLine {
  public:
    ProgressLine(const texts::LanguageTables& texts, bool live) : texts_(texts), live_(live) {}
    void show(const commissioning::RunProgress& p) {
        if (!live_) return;
        std::string line =
            std::string(basic::trim(p.fase)) + "  " + texts_.text(Text::RUN_INIT_MODULES) + " " +
            std::to_string(p.module_place) + "/" + std::to_string(p.modules) + " " + p.codice +
            "  " + std::string(basic::trim(texts_.text(Text::RUN_LINKS))) + " " +
            std::to_string(p.link) + "/" + std::to_string(p.links) + "  " +
            texts_.text(Text::RUN_ERRORS) + std::to_string(p.errors);
        const std::size_t width = line.size();
        if (line.size() < shown_) line.append(shown_ - line.size(), ' ');
        shown_ = width;
        std::cerr << '\r' << line << std::flush;
    }
    void end() {
        if (live_ && shown_ > 0) std::cerr << '\n';
    }

  private:
    const texts::LanguageTables& texts_;
    bool live_;
    std::size_t shown_ = 0;
};

// The question after ten failed frames; `by_rule` is set when --on-errors
// stop answers it, so that nobody is said to have stopped the run.
std::function<bool()> question(Context& context, const std::string& on_errors, bool& by_rule) {
    if (on_errors == "stop") return [&by_rule] { return by_rule = true; };
    if (on_errors == "continue") return [] { return false; };
    if (!isatty(STDIN_FILENO)) return [] { return false; };
    return [&context] {
        std::cerr << '\n'
                  << context.texts[Text::RUN_ERRORS_TITLE] << '\n'
                  << context.texts[Text::RUN_ERRORS_QUESTION] << "[s/N] " << std::flush;
        std::string answer;
        std::getline(std::cin, answer);
        return !answer.empty() &&
               (answer[0] == 's' || answer[0] == 'S' || answer[0] == 'y' || answer[0] == 'Y');
    };
}

}  // namespace

int program_installation(Context& context, const ProgramRequest& request) {
    store::Project project;
    // A dry run changes nothing: it works on a project the user cannot write.
    project.open(request.project,
                 request.dry_run ? store::Access::ReadOnly : store::Access::ReadWrite);

    bus::ReceiveAssembler receiver;
    std::unique_ptr<platform::SerialPort> port;
    std::unique_ptr<platform::SteadyClock> clock;
    std::unique_ptr<bus::LineIo> io;
    if (request.dry_run) {
        auto virtual_line = std::make_unique<bus::VirtualLine>(receiver);
        bus::VirtualLine::Peer programmer = bus::answers_ok();
        if (request.trace) {
            virtual_line->set_peer([&context, programmer](bus::VirtualLine& l, std::string_view w) {
                context.out << trace_line(w) << '\n';
                programmer(l, w);
            });
        } else {
            virtual_line->set_peer(programmer);
        }
        io = std::move(virtual_line);
    } else {
        if (request.port.empty()) throw UserError(context.texts.text(Text::PROGRAMMER_NOT_FOUND));
        port = open_port(context, request.port);
        clock = std::make_unique<platform::SteadyClock>();
        io = std::make_unique<bus::PortLine>(*port, receiver, *clock);
    }

    bus::Line line(*io, receiver);
    commissioning::RunReport report;
    commissioning::ProgrammingRun run(project, line, report);
    run.MESSAGGIO_BREVE = request.short_message ? 1 : 0;
    bool stopped_by_rule = false;
    report.ask_to_stop = question(context, request.on_errors, stopped_by_rule);
    ProgressLine progress(context.texts, !request.trace && isatty(STDERR_FILENO));
    run.on_progress = [&](const commissioning::RunProgress& p) { progress.show(p); };
    bool stopped = false;
    {
        InterruptStopsRun interrupt(run);
        try {
            run.PROGRAMMA_IMPIANTO();
        } catch (const platform::PortError& e) {
            // The adapter went mid-run: what the report holds so far is kept,
            // with where the run stood and what it did not reach.
            progress.end();
            const std::string why = context.texts.text(Text::PORT_LOST) + e.what();
            run.interrupted(context.texts, why);
            const auto file = report.save(platform::data_directory(), project.NOME_PROGETTO,
                                          std::chrono::system_clock::now());
            context.err << why << '\n' << file.string() << '\n';
            return kExitNotAnswered;
        } catch (...) {
            progress.end();
            throw;
        }
        stopped = report.SOSPENDI_PROGRAMMAZIONE == "SI";
    }
    progress.end();
    const std::string stop_text =
        context.texts.text(stopped_by_rule ? Text::RUN_STOPPED_AFTER_ERRORS : Text::RUN_STOPPED);
    if (stopped) run.interrupted(context.texts, stop_text);

    std::ostream& summary = request.trace ? context.err : context.out;
    // The frames that failed, one a line.
    for (std::size_t at = 0; (at = report.TEXT2.find("\r\n", at)) != std::string::npos;) {
        at += 2;
        summary << report.TEXT2.substr(at, report.TEXT2.find("\r\n", at) - at) << '\n';
    }
    if (!request.dry_run) {
        const auto file = report.save(platform::data_directory(), project.NOME_PROGETTO,
                                      std::chrono::system_clock::now());
        summary << file.string() << '\n';
    }
    if (stopped) summary << stop_text << '\n';
    summary << (report.N_ERRORI > 0 ? context.texts[Text::RUN_MODULES_SILENT]
                                    : context.texts[Text::RUN_FINISHED])
            << '\n';
    return report.N_ERRORI > 0 || stopped ? kExitNotAnswered : kExitOk;
}

}  // namespace filo::cli
