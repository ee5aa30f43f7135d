#include "commissioning/programming_run.hpp"

#include <array>

#include "bus/conversions.hpp"
#include "bus/line.hpp"
#include "bus/line_io.hpp"
#include "commissioning/module_image_reader.hpp"
#include "commissioning/run_report.hpp"
#include "common/basic_functions.hpp"
#include "platform/clock.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/programming_lists.hpp"
#include "texts/language_tables.hpp"

namespace filo::commissioning {
namespace {

using bus::BIN_A_HEX_INV;
using bus::DEC_A_HEX;

constexpr int kNoPause = -1;

// FASE_CORRENTE of each phase by its number, as the report names it.
constexpr const char* kFasi[] = {"",
                                 " reset ",
                                 " invertiti ",
                                 " reciproci ",
                                 " and ",
                                 " gruppo di uscite ",
                                 " sicurezze ",
                                 " tipologie ingressi ",
                                 " autoapprendimento ",
                                 "Personalizzazione parametri  ",
                                 " parametri singoli ingressi ",
                                 " valori analogigi per eventi ",
                                 " visualizza n° messaggi attivi ",
                                 " Testi ",
                                 " CARD ",
                                 " Associazioni ",
                                 " preset temperatura "};
constexpr int kPhases = 16;
// Two modules are never started closer than this.
constexpr double kModuleSpacing = 0.01;

}  // namespace

// A phase that visits every place: its number (kFasi names it in the report),
// its caption, the answer time of its frames, the pause behind it and whether
// the installer's stop is looked at after it.
struct ProgrammingRun::ModulePhase {
    int number;
    const char* caption;
    void (ProgrammingRun::*frames)();
    int pause_ms;
    bool stop_test;
};

ProgrammingRun::ProgrammingRun(store::Project& project, bus::Line& line, RunReport& report)
    : project_(project),
      line_(line),
      report_(report),
      modules_(std::make_unique<store::ModuleTable>(project)),
      links_(std::make_unique<store::LinkTable>(project)),
      lists_(std::make_unique<store::ProgrammingLists>(project)),
      images_(std::make_unique<ModuleImageReader>(*modules_)) {}

ProgrammingRun::~ProgrammingRun() = default;

void ProgrammingRun::PROGRAMMA_IMPIANTO() {
    static constexpr std::array<ModulePhase, 7> kFirst = {{
        {1, "RESET", &ProgrammingRun::reset_frames, 2000, true},
        {2, "INVERSIONI RELE", &ProgrammingRun::inversion_frames, 200, true},
        {3, "RECIPROCI", &ProgrammingRun::reciprocal_frames, 200, true},
        {4, "AND", &ProgrammingRun::and_frames, 200, true},
        {5, "GRUPPI", &ProgrammingRun::group_frames, kNoPause, false},
        {6, "CONFIGURAZIONE", &ProgrammingRun::safety_frames, 500, true},
        {7, "", &ProgrammingRun::input_type_frames, 200, true},
    }};
    static constexpr std::array<ModulePhase, 4> kAfterRadio = {{
        {9, "", &ProgrammingRun::parameter_frames, 500, true},
        {10, "", &ProgrammingRun::input_parameter_frames, 200, true},
        {11, "VALORE EVENTI", &ProgrammingRun::event_value_frames, 200, true},
        {12, "", &ProgrammingRun::active_message_frames, 200, false},
    }};

    start();
    // The end is reached from a stop test as from the last phase, and also
    // when the port goes: the guard leaves the run closed either way.
    struct Closing {
        ProgrammingRun& run;
        ~Closing() {
            run.PROGRAMMAZIONE_IN_CORSO.clear();
            run.line_.ULTIMA_ATTIVAZIONE.reset();
            run.line_.on_answer = nullptr;
        }
    } closing{*this};

    bool go_on = true;
    for (const ModulePhase& phase : kFirst)
        if (go_on) go_on = module_phase(phase);
    if (go_on) {
        PROGRAMMA_RADIO();
        for (const ModulePhase& phase : kAfterRadio)
            if (go_on) go_on = module_phase(phase);
    }
    if (go_on) {
        TRASMETTI_TESTI();
        send_cards();
        send_links();
        send_temperature_presets();
    }
    finish();
}

void ProgrammingRun::start() {
    report_.start();
    stop_requested_.store(false);
    PROGRAMMAZIONE_IN_CORSO = "IN CORSO";
    REGOLATORI.clear();
    PROSSIMA_PARTENZA = 0;
    progress_ = RunProgress{};
    line_.on_answer = [this](int attempt, bool answered) {
        if (stop_requested_.load()) report_.SOSPENDI_PROGRAMMAZIONE = "SI";
        report_.attempt(CODICE_MODULO, FASE_CORRENTE, attempt, answered);
        progress_.errors = report_.N_ERRORI;
    };

    modules_->ELENCO_MODULI();
    progress_.modules = modules_->N_MODULI;
    line_.ATTIVA_PROGRAMMAZIONE();
    line_.ATTIVA_PROGRAMMAZIONE();
    line_.ULTIMA_ATTIVAZIONE = line_.io().clock().now();
}

void ProgrammingRun::finish() {
    line_.ATTESA(0.3);
    line_.CHIUDI_PROGRAMMAZIONE();
}

void ProgrammingRun::enter_phase(int number, const char* caption) {
    FASE_CORRENTE = kFasi[number];
    progress_.phase = number;
    progress_.fase = FASE_CORRENTE;
    progress_.caption = caption;
}

bool ProgrammingRun::module_phase(const ModulePhase& phase) {
    enter_phase(phase.number, phase.caption);
    for (MODULO_CORRENTE = 1; MODULO_CORRENTE <= modules_->N_MODULI; ++MODULO_CORRENTE) {
        // The reset phase renews programming mode at every module.
        if (phase.number == 1) line_.ATTIVA_PROGRAMMAZIONE();
        PROSSIMO_MODULO();
        if (INDIRIZZO_MODULO != "0000") (this->*phase.frames)();
    }
    if (phase.pause_ms != kNoPause) line_.PAUSA(phase.pause_ms);
    return !(phase.stop_test && stop_test());
}

void ProgrammingRun::PROSSIMO_MODULO() {
    bus::LineIo& io = line_.io();
    if (io.clock().now() < PROSSIMA_PARTENZA)
        io.serve_until(PROSSIMA_PARTENZA, [] { return false; });
    PROSSIMA_PARTENZA = io.clock().now() + kModuleSpacing;

    const std::string& codice =
        modules_->ELENCO_CODICI.at(static_cast<std::size_t>(MODULO_CORRENTE - 1));
    if (codice.empty()) {
        INDIRIZZO_MODULO = "0000";
        return;
    }
    INDIRIZZO_MODULO = codice.substr(0, 4);
    TIPO_MODULO = codice.size() >= 6 ? codice.substr(4, 2) : "";
    CODICE_MODULO = codice;
    progress_.module_place = MODULO_CORRENTE;
    progress_.codice = CODICE_MODULO;
    report_progress();
    IMMAGINE_MODULO = images_->LEGGI_INGRESSI_MODULO(CODICE_MODULO).IMMAGINE_MODULO;
}

void ProgrammingRun::interrupted(const texts::LanguageTables& t, const std::string& why) {
    using texts::Text;
    const RunProgress& at = progress_;
    auto listed = [](Text heading, const std::vector<std::string>& items,
                     const texts::LanguageTables& tables) {
        std::string line = tables.text(heading);
        for (std::size_t i = 0; i < items.size(); ++i) line += (i ? ", " : "") + items[i];
        return line;
    };
    std::vector<std::string> lines = {t.text(Text::RUN_INTERRUPTED) + why};
    std::string where =
        t.text(Text::RUN_INTERRUPTED_PHASE) + std::string(basic::trim(kFasi[at.phase]));
    std::vector<std::string> modules_left, phases_left;
    if (at.phase == 15 && at.links > 0) {
        where += t.text(Text::RUN_INTERRUPTED_LINK) + std::to_string(at.link) + "/" +
                 std::to_string(at.links);
    } else if (at.module_place > 0) {
        where += t.text(Text::RUN_INTERRUPTED_MODULE) + at.codice + " (" +
                 std::to_string(at.module_place) + "/" + std::to_string(at.modules) + ")";
        const std::vector<std::string>& codes = modules_->ELENCO_CODICI;
        for (std::size_t i = static_cast<std::size_t>(at.module_place); i < codes.size(); ++i)
            if (!codes[i].empty()) modules_left.push_back(codes[i]);
    }
    lines.push_back(where);
    if (at.phase == 15 && at.links > at.link)
        lines.push_back(t.text(Text::RUN_NOT_REACHED_LINKS) + std::to_string(at.links - at.link));
    else if (!modules_left.empty())
        lines.push_back(listed(Text::RUN_NOT_REACHED_MODULES, modules_left, t));
    for (int n = at.phase + 1; n <= kPhases; ++n) phases_left.emplace_back(basic::trim(kFasi[n]));
    if (!phases_left.empty()) lines.push_back(listed(Text::RUN_NOT_REACHED_PHASES, phases_left, t));
    report_.interrupted(lines);
}

bool ProgrammingRun::stop_test() {
    if (stop_requested_.load()) report_.SOSPENDI_PROGRAMMAZIONE = "SI";
    return report_.SOSPENDI_PROGRAMMAZIONE == "SI";
}

void ProgrammingRun::send(const std::string& frame, int answer_ms) {
    line_.STRINGA_TX = frame;
    line_.INVIA_STRINGA(answer_ms);
}

// "(3", address, command, the value in hex: the frame of most settings.
void ProgrammingRun::send_parameter(std::string_view command, const std::string& value) {
    if (value == kNotSent) return;
    send("(3" + INDIRIZZO_MODULO + std::string(command) + DEC_A_HEX(value) + "]", 0);
}

void ProgrammingRun::report_progress() {
    if (on_progress) on_progress(progress_);
}

void ProgrammingRun::reset_frames() {
    const std::string& a = INDIRIZZO_MODULO;
    if (IMMAGINE_MODULO.MASCHERA_INGRESSI == kRemotePointsMask) return;
    // The addresses of the gateway and the system's own pseudo-modules hold
    // nothing that a reset could clear.
    if (a == "FFF1" || a == "FFF2" || a == "FFF3" || a == "FFFE") return;
    send("(3" + a + (MESSAGGIO_BREVE == 1 ? "6F68]" : "6FFF]"), 0);
}

void ProgrammingRun::inversion_frames() {
    if (IMMAGINE_MODULO.HEX_INVERTITI != "00")
        send("(3" + INDIRIZZO_MODULO + "67" + IMMAGINE_MODULO.HEX_INVERTITI + "]", 0);
}

void ProgrammingRun::reciprocal_frames() {
    static constexpr std::array<const char*, 4> kCommands = {"E8", "E9", "EA", "EB"};
    for (int k = 1; k <= 4; ++k) {
        const std::string& bits = IMMAGINE_MODULO.RECIPROCI_USCITA(k);
        if (bits != "00000000")
            send("(3" + INDIRIZZO_MODULO + kCommands[static_cast<std::size_t>(k - 1)] +
                     BIN_A_HEX_INV(bits) + "]",
                 0);
    }
}

void ProgrammingRun::and_frames() {
    for (int k = 1; k <= 8; ++k) {
        const std::string& bits = IMMAGINE_MODULO.AND_USCITA(k);
        if (bits != "00000000")
            send("(3" + INDIRIZZO_MODULO + bus::hex_byte(static_cast<std::uint8_t>(0xF0 + k - 1)) +
                     BIN_A_HEX_INV(bits) + "]",
                 0);
    }
}

void ProgrammingRun::group_frames() {
    const ModuleImage& m = IMMAGINE_MODULO;
    send_parameter("50", m.MASCHERA_GRUPPI);
    if (m.RIGHE_GRUPPO != kNotSent) {
        send_parameter("A0", m.RIGHE_GRUPPO);
        line_.PAUSA(500);
    }
    for (int k = 1; k <= 32; ++k) {
        if (m.GRUPPO(k) == kNotSent) continue;
        send_parameter(bus::hex_byte(static_cast<std::uint8_t>(0x80 + k - 1)), m.GRUPPO(k));
        line_.PAUSA(500);
    }
}

void ProgrammingRun::safety_frames() {
    if (IMMAGINE_MODULO.HEX_SICUREZZE != "00")
        send("(3" + INDIRIZZO_MODULO + "68" + IMMAGINE_MODULO.HEX_SICUREZZE + "]", 0);
}

void ProgrammingRun::input_type_frames() {
    if (IMMAGINE_MODULO.MASCHERA_INGRESSI == kRemotePointsMask) return;
    if (IMMAGINE_MODULO.TIPOLOGIE != kNoInputTypes)
        send("(2" + INDIRIZZO_MODULO + IMMAGINE_MODULO.TIPOLOGIE + "]", 1500);
}

void ProgrammingRun::parameter_frames() {
    const ModuleImage& m = IMMAGINE_MODULO;
    if (m.MASCHERA_INGRESSI == kRemotePointsMask) return;
    struct Setting {
        const char* command;
        const std::string& value;
    };
    if (TIPO_MODULO == "24") {
        for (const Setting& s :
             {Setting{"10", m.PERSONALIZZATO_1}, Setting{"11", m.PERSONALIZZATO_2},
              Setting{"13", m.PERSONALIZZATO_3}, Setting{"14", m.PERSONALIZZATO_4},
              Setting{"15", m.PERSONALIZZATO_5}})
            send_parameter(s.command, s.value);
    } else if (TIPO_MODULO == "19") {
        for (const Setting& s :
             {Setting{"EC", m.PERSONALIZZATO_1}, Setting{"10", m.PERSONALIZZATO_2},
              Setting{"11", m.PERSONALIZZATO_3}, Setting{"13", m.PERSONALIZZATO_4},
              Setting{"14", m.PERSONALIZZATO_5}, Setting{"15", m.PERSONALIZZATO_6}})
            send_parameter(s.command, s.value);
    } else {
        for (const Setting& s :
             {Setting{"EC", m.PERSONALIZZATO_1}, Setting{"ED", m.PERSONALIZZATO_2},
              Setting{"EE", m.PERSONALIZZATO_3}, Setting{"DB", m.PERSONALIZZATO_4},
              Setting{"DC", m.PERSONALIZZATO_5}, Setting{"00", m.PERSONALIZZATO_7},
              Setting{"01", m.PERSONALIZZATO_8}})
            send_parameter(s.command, s.value);
    }
}

void ProgrammingRun::input_parameter_frames() {
    const ModuleImage& m = IMMAGINE_MODULO;
    for (int k = 1; k <= 8; ++k)
        send_parameter(bus::hex_byte(static_cast<std::uint8_t>(0x70 + k - 1)), m.PARAMETRO_1(k));
    for (int k = 1; k <= 8; ++k)
        send_parameter(bus::hex_byte(static_cast<std::uint8_t>(0x78 + k - 1)), m.PARAMETRO_2(k));
    for (int k = 1; k <= 8; ++k)
        send_parameter(bus::hex_byte(static_cast<std::uint8_t>(0xD0 + k - 1)), m.PARAMETRO_3(k));
}

void ProgrammingRun::event_value_frames() {
    const ModuleImage& m = IMMAGINE_MODULO;
    for (int k = 9; k <= 16; ++k)
        send_parameter(bus::hex_byte(static_cast<std::uint8_t>(k - 9)), m.EVENTO_1(k));
    for (int k = 9; k <= 16; ++k)
        send_parameter(bus::hex_byte(static_cast<std::uint8_t>(0x08 + k - 9)), m.EVENTO_2(k));
}

void ProgrammingRun::active_message_frames() {
    if (IMMAGINE_MODULO.MESSAGGI_ATTIVI == "SI") send("(3" + INDIRIZZO_MODULO + "0101]", 0);
}

}  // namespace filo::commissioning
