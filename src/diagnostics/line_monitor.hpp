#pragma once
// The line monitor's consumer of finished frames: the analysis collector
// first, then the decoder; each frame that is shown comes out as an entry
// with its time of reception. Counts what it could not decode.
#include <functional>
#include <string>
#include <string_view>

#include "diagnostics/monitor_format.hpp"

namespace filo::bus {
class ReceiveAssembler;
}

namespace filo::diagnostics {

class LineDecoder;
class ModuleAnalysis;

// One frame as the monitor keeps it.
struct MonitorEntry {
    int time_ms = 0;
    std::string frame;  // RX_TRAMA
    std::string raw;    // RX_GREZZO, as received
    bool decoded = false;
    MonitorFields fields;  // the eight output fields, speech with every tick on
    std::string spoken;    // TESTO_PARLATO with the window's ticks
    bool speak = false;    // said, unless a release
};

// What never became a frame: characters outside any frame, and frames cut
// short by the start of the next. Fed the same bytes as the assembler.
struct LineCounters {
    unsigned long stray_characters = 0;
    unsigned long broken_frames = 0;
    void count(std::string_view bytes);

  private:
    bool inside_ = false;
};

class LineMonitor {
  public:
    explicit LineMonitor(LineDecoder& decoder) : decoder_(decoder) {}

    // Frames go to the analysis collector while it is active.
    void use_analysis(ModuleAnalysis* analysis) { analysis_ = analysis; }
    // Every frame received while the monitor listens, before any filter:
    // what a recording keeps.
    std::function<void(std::string_view raw, int time_ms)> on_frame;
    // Each entry shown, in order. Frames a filter holds back are not.
    std::function<void(const MonitorEntry&)> on_entry;
    // Gives the time of reception, milliseconds since midnight.
    std::function<int()> time_of_day;

    // Installs the monitor as the assembler's monitor consumer: it decodes
    // while MONITOR_SOSPESO and RX_SOSPESO are not "SI".
    void attach(bus::ReceiveAssembler& receiver);

    // One finished frame, received at time_ms.
    void receive(std::string_view rx_trama, std::string_view rx_grezzo, int time_ms);

    unsigned long shown() const { return shown_; }
    unsigned long not_decoded() const { return not_decoded_; }
    unsigned long filtered() const { return filtered_; }

  private:
    LineDecoder& decoder_;
    ModuleAnalysis* analysis_ = nullptr;
    unsigned long shown_ = 0;
    unsigned long not_decoded_ = 0;
    unsigned long filtered_ = 0;
};

}  // namespace filo::diagnostics
