#include "app/programming_window.hpp"

#include <chrono>
#include <filesystem>

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "bus/receive_assembler.hpp"
#include "commissioning/constant_light.hpp"
#include "common/basic_functions.hpp"
#include "platform/serial_port.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

namespace {

// Put behind "Programmazione in corso" with the port in use.
constexpr const char* kPortCaption = "  COM ";

}  // namespace

ProgrammingWindow::ProgrammingWindow(Session& session, ProgrammingHost host)
    : session_(session), host_(std::move(host)), run_(session.project, session.line, report_) {
    report_.ask_to_stop = [this] {
        changed();
        const bool stop = session_.ask(Text::RUN_ERRORS_QUESTION, Text::RUN_ERRORS_TITLE);
        if (stop) Label2 = session_.texts.text(Text::RUN_STOPPED);
        return stop;
    };
    report_.on_line = [this](const std::string&) {
        // The count grows after the line is told: what is shown is at most
        // one failure behind until the next line or module.
        Label11 = std::to_string(report_.N_ERRORI);
        changed();
    };
    run_.on_progress = [this](const commissioning::RunProgress& p) { progress(p); };
}

ProgrammingWindow::~ProgrammingWindow() = default;

void ProgrammingWindow::Form_Load() {
    const auto& t = session_.texts;
    // The run owns the line while this window is up: the monitor rests.
    session_.receiver.flags.MONITOR_SOSPESO = "SI";
    run_.MESSAGGIO_BREVE = 1;
    Label4[Program] = t.text(Text::RUN_PROGRAM);
    Label4[Report] = t.text(Text::RUN_SHOW_REPORT);
    Label4[Exit] = t.text(Text::RUN_EXIT);
    Frame2 = true;
    Frame1 = false;
    Label15.clear();
    clear_regolatori();
    if (!session_.on_line()) {
        Label22 = t.text(Text::PROGRAMMER_NOT_FOUND);
        return;
    }
    if (host_.schedule_run) host_.schedule_run(kStartDelayMs);
}

void ProgrammingWindow::Timer1_Timer() {
    if (in_progress()) return;
    if (!session_.on_line()) {
        Label22 = session_.texts.text(Text::PROGRAMMER_NOT_FOUND);
        Label22_tone = Tone::Plain;
        return;
    }
    PROGRAMMA_IMPIANTO();
}

void ProgrammingWindow::Image1_Click(int index) {
    const auto& t = session_.texts;
    switch (index) {
        case Program:
            // A click that comes in while the run waits for an answer is
            // not a second run.
            if (in_progress()) return;
            clear_regolatori();
            Frame2 = true;
            Frame1 = false;
            Label4[Report] = t.text(Text::RUN_SHOW_REPORT);
            Label22 = t.text(Text::RUN_PROGRAMMER_SEARCH);
            Label22_tone = Tone::Plain;
            Label11.clear();
            if (!session_.on_line()) {
                Label22 = t.text(Text::PROGRAMMER_NOT_FOUND);
                return;
            }
            PROGRAMMA_IMPIANTO();
            break;
        case Report:
            // Swapping the frames is harmless during a run: the installer
            // may watch the report grow.
            Frame1 = !Frame1;
            Frame2 = !Frame1;
            Label4[Report] = t.text(Frame1 ? Text::RUN_SHOW_BARS : Text::RUN_SHOW_REPORT);
            break;
        case Exit:
            // During a run the exit button is the installer's stop: asked
            // first, it takes effect at the run's next stop test and the run
            // then closes as usual. The window stays until the run is over.
            if (in_progress()) {
                if (stop_asked_ || !session_.ask(Text::RUN_ERRORS_QUESTION, Text::TITLE_WARNING))
                    return;
                stop_asked_ = true;
                run_.request_stop();
                Label2 = t.text(Text::RUN_STOPPED);
                changed();
                return;
            }
            Form_Unload();
            break;
        default:
            break;
    }
}

void ProgrammingWindow::hover(int index) {
    if (!session_.AIUTO) return;
    static constexpr Text kHelp[] = {Text::HELP_RUN_PROGRAM, Text::HELP_RUN_REPORT,
                                     Text::HELP_RUN_EXIT};
    if (index >= Program && index <= Exit) Label15 = session_.texts.text(kHelp[index]);
}

void ProgrammingWindow::Check1_Click(bool checked) {
    run_.MESSAGGIO_BREVE = checked ? 0 : 1;
}

void ProgrammingWindow::Command1_Click() {
    if (in_progress()) return;
    try {
        const std::filesystem::path file =
            report_.save(session_.data_directory(), session_.project.NOME_PROGETTO,
                         std::chrono::system_clock::now());
        session_.message(Text::RUN_REPORT_SAVED, Text::TITLE_FILO, {}, file.string());
    } catch (const std::filesystem::filesystem_error& e) {
        session_.message(Text::FILE_ERROR, Text::TITLE_WARNING, {}, e.what());
    }
}

void ProgrammingWindow::Combo_REGOLATORI_Click(std::int64_t item_data) {
    const std::string code = commissioning::ConstantLight::regulator_of_item(item_data);
    if (code.empty() || in_progress()) return;
    if (host_.show_constant_light) host_.show_constant_light(code);
}

bool ProgrammingWindow::Form_Unload() {
    if (in_progress()) return false;
    if (host_.show_hub) host_.show_hub();
    return true;
}

template <typename Fault>
void ProgrammingWindow::project_unreadable(const Fault& fault) {
    Command1 = true;
    Label22 = session_.texts.text(Text::PROJECT_UNREADABLE);
    Label22_tone = Tone::Red;
    tell_project_fault(session_, fault);
    changed();
}

void ProgrammingWindow::PROGRAMMA_IMPIANTO() {
    const auto& t = session_.texts;
    stop_asked_ = false;
    ++runs;
    Command1 = false;
    bar1 = bar2 = 0;
    bar1_max = bar2_max = 0;
    Label1_1.clear();
    Label2.clear();
    Label22 = t.text(Text::RUN_IN_PROGRESS) + kPortCaption + session_.PORTA_COM;
    Label22_tone = Tone::Plain;
    // Emptied here as well as by the run, so that the window never shows the
    // last run's report under the new one.
    report_.start();
    changed();
    try {
        run_.PROGRAMMA_IMPIANTO();
    } catch (const platform::PortError& e) {
        // The report to be saved says where the run stood when the port went.
        run_.interrupted(session_.texts, session_.texts.text(Text::PORT_LOST) + e.what());
        port_lost(e.what());
        return;
    } catch (const store::ProjectError& e) {
        project_unreadable(e);
        return;
    } catch (const sqlite::SqlError& e) {
        project_unreadable(e);
        return;
    }
    finished();
}

void ProgrammingWindow::progress(const commissioning::RunProgress& p) {
    bar1_max = p.modules;
    bar1 = p.module_place;
    if (p.links > 0) {
        bar2_max = p.links;
        bar2 = p.link;
    }
    if (!p.caption.empty()) Label1_1 = p.caption;
    if (!stop_asked_ && report_.SOSPENDI_PROGRAMMAZIONE.empty())
        Label2 = p.codice + "   " + std::string(basic::trim(p.fase));
    Label11 = std::to_string(report_.N_ERRORI);
    // The regulators are listed as the links name them.
    if (run_.REGOLATORI.size() != Combo_REGOLATORI.size()) {
        Combo_REGOLATORI = run_.REGOLATORI;
        regolatori_visible = true;
    }
    changed();
}

void ProgrammingWindow::finished() {
    const auto& t = session_.texts;
    Command1 = true;
    Label11 = std::to_string(report_.N_ERRORI);
    Combo_REGOLATORI = run_.REGOLATORI;
    regolatori_visible = !Combo_REGOLATORI.empty();
    const bool stopped = report_.SOSPENDI_PROGRAMMAZIONE == "SI";
    Label2 = stopped ? t.text(Text::RUN_STOPPED) : std::string();
    if (report_.N_ERRORI > 0) {
        Label22 = t.text(Text::RUN_MODULES_SILENT);
        Label22_tone = Tone::Red;
        if (host_.beep) host_.beep();
    } else {
        Label22 = t.text(Text::RUN_FINISHED);
        Label22_tone = Tone::Green;
    }
    changed();
}

void ProgrammingWindow::port_lost(const std::string& what) {
    // When the port went while the run was waiting, the main window has
    // already said so and closed it; otherwise it is said here.
    const bool told = !session_.on_line();
    session_.close_port();
    Command1 = true;
    Label2.clear();
    Label22 = session_.texts.text(Text::PORT_LOST) + what;
    Label22_tone = Tone::Red;
    if (!told) session_.message(Text::PORT_LOST, Text::TITLE_WARNING, {}, what);
    changed();
}

void ProgrammingWindow::clear_regolatori() {
    Combo_REGOLATORI.clear();
    regolatori_visible = false;
}

void ProgrammingWindow::changed() {
    if (host_.changed) host_.changed();
}

}  // namespace filo::app
