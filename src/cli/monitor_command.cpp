// monitor: the line monitor without a window, live on a port or replaying a
// recording, one line per complete frame.
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <thread>

#include "bus/receive_assembler.hpp"
#include "cli/commands.hpp"
#include "cli/line_steps.hpp"
#include "diagnostics/line_decoder.hpp"
#include "diagnostics/line_monitor.hpp"
#include "diagnostics/module_directory.hpp"
#include "diagnostics/monitor_format.hpp"
#include "platform/interrupt_signals.hpp"
#include "platform/serial_port.hpp"
#include "platform/time_of_day.hpp"
#include "store/project.hpp"

namespace filo::cli {
namespace {

using texts::Text;

// How long a read waits before the interrupt is looked at again.
constexpr double kReadSlice = 0.1;

// The project's names, or none.
std::optional<diagnostics::ModuleDirectory> read_names(const std::string& path) {
    if (path.empty()) return std::nullopt;
    store::Project project;
    project.open(path, store::Access::ReadOnly);
    return diagnostics::ModuleDirectory::load(project);
}

class MonitorOutput {
  public:
    MonitorOutput(Context& context, bool csv) : context_(context), csv_(csv) {
        if (csv_) context_.out << diagnostics::csv_header() << '\n';
    }
    void write(const diagnostics::MonitorEntry& e) {
        context_.out << (csv_ ? diagnostics::csv_line(e.fields) : diagnostics::tsv_line(e.fields))
                     << std::endl;
    }

  private:
    Context& context_;
    bool csv_;
};

void print_statistics(Context& context, const diagnostics::LineMonitor& monitor,
                      const diagnostics::LineCounters& line) {
    const texts::LanguageTables& t = context.texts;
    context.err << t[Text::MONITOR_FRAMES] << monitor.shown() + monitor.not_decoded() << "  "
                << t[Text::MONITOR_NOT_DECODED] << monitor.not_decoded() << "  "
                << t[Text::MONITOR_STRAY_CHARACTERS] << line.stray_characters << "  "
                << t[Text::MONITOR_BROKEN_FRAMES] << line.broken_frames << '\n';
}

int replay(Context& context, const MonitorRequest& request,
           const diagnostics::ModuleDirectory* names) {
    std::ifstream in(request.replay, std::ios::binary);
    if (!in) throw UserError(context.texts.text(Text::RECORDING_UNREADABLE) + request.replay);
    const diagnostics::Recording recording = diagnostics::read_recording(in);
    if (in.bad()) throw UserError(context.texts.text(Text::RECORDING_UNREADABLE) + request.replay);

    diagnostics::LineDecoder decoder(context.texts, names);
    diagnostics::LineMonitor monitor(decoder);
    MonitorOutput output(context, request.csv);
    monitor.on_entry = [&](const diagnostics::MonitorEntry& e) { output.write(e); };
    std::optional<int> previous;
    for (const diagnostics::RecordedFrame& frame : recording.frames) {
        if (request.paced && previous) {
            int gap = frame.time_ms - *previous;
            if (gap < 0) gap += diagnostics::kMillisecondsPerDay;  // past midnight
            std::this_thread::sleep_for(std::chrono::milliseconds(gap));
        }
        previous = frame.time_ms;
        // Through an assembler of its own, so the frame reads as it did live.
        bus::ReceiveAssembler receiver;
        receiver.flags.MONITOR_SOSPESO = "NO";
        monitor.time_of_day = [&frame] { return frame.time_ms; };
        monitor.attach(receiver);
        receiver.feed(frame.bytes);
    }
    if (recording.skipped > 0)
        context.err << context.texts[Text::RECORDING_LINES_SKIPPED] << recording.skipped << '\n';
    return kExitOk;
}

int live(Context& context, const MonitorRequest& request,
         const diagnostics::ModuleDirectory* names) {
    std::ofstream record;
    if (!request.record.empty()) {
        record.open(request.record, std::ios::binary | std::ios::trunc);
        if (!record)
            throw UserError(context.texts.text(Text::RECORDING_NOT_WRITTEN) + request.record);
    }
    const std::unique_ptr<platform::SerialPort> port = open_port(context, request.port);
    bus::ReceiveAssembler receiver;
    receiver.flags.MONITOR_SOSPESO = "NO";
    diagnostics::LineDecoder decoder(context.texts, names);
    diagnostics::LineMonitor monitor(decoder);
    diagnostics::LineCounters line;
    MonitorOutput output(context, request.csv);
    monitor.time_of_day = platform::milliseconds_since_midnight;
    monitor.on_frame = [&](std::string_view raw, int time_ms) {
        if (record.is_open())
            record << diagnostics::recording_line({time_ms, std::string(raw)}) << '\n'
                   << std::flush;
    };
    monitor.on_entry = [&](const diagnostics::MonitorEntry& e) { output.write(e); };
    monitor.attach(receiver);

    platform::InterruptSignals interrupts;
    std::string received;
    while (!interrupts.arrived()) {
        received.clear();
        port->read(received, kReadSlice);
        line.count(received);
        receiver.feed(received);
    }
    print_statistics(context, monitor, line);
    return kExitOk;
}

}  // namespace

int monitor_line(Context& context, const MonitorRequest& request) {
    const std::optional<diagnostics::ModuleDirectory> names = read_names(request.project);
    const diagnostics::ModuleDirectory* directory = names ? &*names : nullptr;
    return request.replay.empty() ? live(context, request, directory)
                                  : replay(context, request, directory);
}

}  // namespace filo::cli
