#pragma once
// Form4, the programming window: the run of the whole installation started
// by itself when the window opens, its two bars, its report, the question
// after many failures, the saved report and the regulators met on the way.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "commissioning/programming_run.hpp"
#include "commissioning/run_report.hpp"

namespace filo::app {

class Session;

// What the window asks of the world around it.
struct ProgrammingHost {
    // Timer1: the run starts this many milliseconds after the window opens.
    std::function<void(int ms)> schedule_run;
    // Something shown changed while the run goes on: the view redraws.
    std::function<void()> changed;
    // The system bell, once, when modules have not answered.
    std::function<void()> beep;
    // Form_Unload: the project window comes back.
    std::function<void()> show_hub;
    // AVANZATE2 for the regulator with this code, modal.
    std::function<void(const std::string& code)> show_constant_light;
};

class ProgrammingWindow {
  public:
    // The buttons Image1(index).
    enum Button { Program = 0, Report = 1, Exit = 2 };
    enum class Tone { Plain, Green, Red };
    static constexpr int kStartDelayMs = 500;

    ProgrammingWindow(Session& session, ProgrammingHost host);
    ~ProgrammingWindow();
    ProgrammingWindow(const ProgrammingWindow&) = delete;
    ProgrammingWindow& operator=(const ProgrammingWindow&) = delete;

    // Form_Load: the line monitor rests while the window is up, and the run
    // is scheduled only with a port in use.
    void Form_Load();
    // Timer1: the run, unless one is going on.
    void Timer1_Timer();
    void Image1_Click(int index);
    // Mouse over a button: its instruction while the help is on.
    void hover(int index);
    // "DISATTIVA MESSAGGIO BREVE": the reset without the panels' short message.
    void Check1_Click(bool checked);
    // "SALVA  REPORT": the report in the data directory; the file is named to
    // the installer.
    void Command1_Click();
    // A regulator chosen; item data 0 is no choice.
    void Combo_REGOLATORI_Click(std::int64_t item_data);
    // Form_Unload; false while a run goes on (the window stays).
    bool Form_Unload();

    bool in_progress() const { return run_.in_progress(); }
    const commissioning::RunReport& report() const { return report_; }
    commissioning::ProgrammingRun& run() { return run_; }

    // What the window shows.
    std::string Label22;  // the state of the run
    Tone Label22_tone = Tone::Plain;
    std::string Label2;    // the module in hand, or the pending stop
    std::string Label1_1;  // the phase's caption
    std::string Label4[3];
    std::string Label15;  // help
    std::string Label11;  // N_ERRORI
    bool Frame1 = false;  // the report
    bool Frame2 = true;   // the bars
    bool Command1 = true;
    int bar1_max = 0;
    int bar1 = 0;
    int bar2_max = 0;
    int bar2 = 0;
    // Combo_REGOLATORI and Label1(0): the regulators of constant light.
    std::vector<commissioning::Regolatore> Combo_REGOLATORI;
    bool regolatori_visible = false;
    // Counts the runs of this window: a new one starts an empty report.
    int runs = 0;

  private:
    void PROGRAMMA_IMPIANTO();
    void progress(const commissioning::RunProgress& p);
    void finished();
    void port_lost(const std::string& what);
    // The run ended on a project that can't be read (store::ProjectError or
    // sqlite::SqlError).
    template <typename Fault>
    void project_unreadable(const Fault& fault);
    void clear_regolatori();
    void changed();

    Session& session_;
    ProgrammingHost host_;
    commissioning::RunReport report_;
    commissioning::ProgrammingRun run_;
    bool stop_asked_ = false;
};

}  // namespace filo::app
