#include "diagnostics/line_monitor.hpp"

#include "bus/receive_assembler.hpp"
#include "diagnostics/line_decoder.hpp"
#include "diagnostics/module_analysis.hpp"

namespace filo::diagnostics {

void LineMonitor::attach(bus::ReceiveAssembler& receiver) {
    receiver.set_consumer(bus::ReceiveAssembler::Consumer::Monitor,
                          [this](const bus::ReceiveAssembler& r) {
                              if (r.flags.MONITOR_SOSPESO == "SI" || r.flags.RX_SOSPESO == "SI")
                                  return;
                              receive(r.RX_TRAMA, r.RX_GREZZO, time_of_day ? time_of_day() : 0);
                          });
}

void LineCounters::count(std::string_view bytes) {
    for (char c : bytes) {
        if (c == '(' || c == '[') {
            if (inside_) ++broken_frames;
            inside_ = true;
        } else if (c == ']') {
            if (!inside_) ++stray_characters;
            inside_ = false;
        } else if (!inside_ && c != '\r' && c != '\n' && c != ' ' && c != '\0') {
            ++stray_characters;
        }
    }
}

void LineMonitor::receive(std::string_view rx_trama, std::string_view rx_grezzo, int time_ms) {
    if (on_frame) on_frame(rx_grezzo, time_ms);
    if (analysis_ && analysis_->ANALISI_ATTIVA) analysis_->collect(rx_trama, rx_grezzo);
    const DecodeOutcome outcome = decoder_.decode(rx_trama);
    if (outcome == DecodeOutcome::Filtered) {
        ++filtered_;
        return;
    }
    MonitorEntry e;
    e.time_ms = time_ms;
    e.frame = std::string(rx_trama);
    e.raw = std::string(rx_grezzo);
    e.fields.time = time_of_day_text(time_ms);
    e.fields.kind = rx_trama.size() >= 4 ? std::string(1, rx_trama[3]) : std::string();
    if (outcome == DecodeOutcome::NotDecoded) {
        ++not_decoded_;
        e.fields.descrizione = escape_bytes(rx_grezzo);
    } else {
        ++shown_;
        e.decoded = true;
        e.fields.modulo = decoder_.LM_MODULO;
        e.fields.ingresso = decoder_.LM_INGRESSO;
        e.fields.valore = decoder_.LM_VALORE;
        e.fields.nome = decoder_.LM_NOME;
        e.fields.descrizione = decoder_.LM_DESCRIZIONE;
        e.fields.parlato = decoder_.spoken_text(SpeechTicks{});
        e.spoken = decoder_.TESTO_PARLATO;
        e.speak = decoder_.should_speak();
    }
    if (on_entry) on_entry(e);
}

}  // namespace filo::diagnostics
