#pragma once
// PROGRAMMA_IMPIANTO: the programming run. It walks the project's modules
// phase after phase, writing into each its masks, parameters, remotes, texts
// and cards, then writes every link. It reads the store and writes through
// the line, so the same run serves a real programmer, the simulator and a
// programmer answering in virtual time.
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "commissioning/module_image.hpp"

namespace filo::store {
class Project;
class ModuleTable;
class LinkTable;
class ProgrammingLists;
}  // namespace filo::store

namespace filo::bus {
class Line;
}
namespace filo::texts {
class LanguageTables;
}

namespace filo::commissioning {

class RunReport;
class ModuleImageReader;

// Where the run stands, for the bars and captions of whoever shows it.
struct RunProgress {
    int phase = 0;         // 1 to 16; 8 is the teaching of remotes
    std::string fase;      // FASE_CORRENTE
    std::string caption;   // the phase's caption when it has its own, else ""
    int module_place = 0;  // MODULO_CORRENTE of N_MODULI
    int modules = 0;       // N_MODULI
    int link = 0;          // the link in hand of N_LINK
    int links = 0;         // N_LINK
    int errors = 0;        // N_ERRORI
    std::string codice;    // CODICE_MODULO
};

// A photosensor's first input drives a link: the installer may set up the
// constant light of its regulator once the run is over.
struct Regolatore {
    std::string nick;
    std::int64_t item_data = 0;  // "1" and the sensor's code, read as hexadecimal
};

class ProgrammingRun {
  public:
    ProgrammingRun(store::Project& project, bus::Line& line, RunReport& report);
    ~ProgrammingRun();
    ProgrammingRun(const ProgrammingRun&) = delete;
    ProgrammingRun& operator=(const ProgrammingRun&) = delete;

    std::string FASE_CORRENTE;
    int MODULO_CORRENTE = 0;
    std::string INDIRIZZO_MODULO;
    std::string TIPO_MODULO;
    std::string CODICE_MODULO;
    double PROSSIMA_PARTENZA = 0;
    std::string PROGRAMMAZIONE_IN_CORSO;
    // 1, or 0 when the installer turned the short message of the reset off.
    int MESSAGGIO_BREVE = 1;
    ModuleImage IMMAGINE_MODULO;
    std::vector<Regolatore> REGOLATORI;

    std::function<void(const RunProgress&)> on_progress;

    // Runs the whole installation; returns when the run has closed. The
    // report holds every attempt and the failures.
    void PROGRAMMA_IMPIANTO();

    // The installer's stop: it takes effect at the next stop test, and the
    // run then closes as usual. Safe to call from a signal handler.
    void request_stop() { stop_requested_.store(true); }

    // After a run that did not reach its end (the port went, a stop): the
    // report says why, where it stood and what it did not reach.
    void interrupted(const texts::LanguageTables& texts, const std::string& why);

    bool in_progress() const { return PROGRAMMAZIONE_IN_CORSO == "IN CORSO"; }

  private:
    struct ModulePhase;

    void start();
    void finish();
    // FASE_CORRENTE and the progress of a phase; caption "" for a phase
    // without a caption of its own.
    void enter_phase(int number, const char* caption = "");
    // Runs a phase that loops over the places; false when the stop test
    // after it asks the run to end.
    bool module_phase(const ModulePhase& phase);
    void PROSSIMO_MODULO();
    bool stop_test();
    void send(const std::string& frame, int answer_ms);
    void send_parameter(std::string_view command, const std::string& value);
    void report_progress();

    // The frames of one module in phases 1 to 7 and 9 to 12.
    void reset_frames();
    void inversion_frames();
    void reciprocal_frames();
    void and_frames();
    void group_frames();
    void safety_frames();
    void input_type_frames();
    void parameter_frames();
    void input_parameter_frames();
    void event_value_frames();
    void active_message_frames();

    // The phases with loops of their own.
    void PROGRAMMA_RADIO();
    void TRASMETTI_TESTI();
    void INVIA_TESTO(const std::string& address, int record, const std::string& text);
    void send_cards();
    void send_links();
    void send_temperature_presets();

    store::Project& project_;
    bus::Line& line_;
    RunReport& report_;
    std::unique_ptr<store::ModuleTable> modules_;
    std::unique_ptr<store::LinkTable> links_;
    std::unique_ptr<store::ProgrammingLists> lists_;
    std::unique_ptr<ModuleImageReader> images_;
    RunProgress progress_;
    std::atomic<bool> stop_requested_{false};
};

}  // namespace filo::commissioning
