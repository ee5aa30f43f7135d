// ports, connect and send: the line to the programmer from the command line.
#include <ostream>

#include "bus/checksum.hpp"
#include "bus/frame.hpp"
#include "bus/frame_parser.hpp"
#include "bus/line.hpp"
#include "bus/port_line.hpp"
#include "bus/programmer_search.hpp"
#include "bus/receive_assembler.hpp"
#include "cli/commands.hpp"
#include "cli/line_steps.hpp"
#include "commissioning/run_report.hpp"
#include "common/basic_functions.hpp"
#include "platform/clock.hpp"
#include "platform/data_directory.hpp"
#include "platform/serial_port.hpp"

namespace filo::cli {

using texts::Text;

bool is_bracketed_frame(std::string_view frame) {
    return frame.size() >= 2 &&
           (frame.front() == bus::kStartMark || frame.front() == bus::kSweepStartMark) &&
           frame.back() == bus::kEndMark;
}

std::unique_ptr<platform::SerialPort> open_port(const Context& context, const std::string& path) {
    try {
        return platform::open_serial_port(path);
    } catch (const platform::PortBusy&) {
        throw UserError(context.texts.text(Text::PORT_BUSY) + path);
    } catch (const platform::PortError& e) {
        throw UserError(context.texts.text(Text::PORT_NOT_OPENED) + e.what());
    }
}

int list_ports(Context& context) {
    for (const platform::PortInfo& p : platform::list_serial_ports())
        context.out << p.path << '\t' << p.caption << '\n';
    return kExitOk;
}

int connect(Context& context, const std::string& port) {
    const auto directory = platform::data_directory();
    if (bus::previous_search_failed(directory))
        context.err << context.texts[Text::PORT_SEARCH_CONFLICT] << '\n';
    std::vector<std::string> ports;
    if (!port.empty()) {
        ports.push_back(port);
    } else {
        for (const platform::PortInfo& p : platform::list_serial_ports()) ports.push_back(p.path);
    }
    platform::SteadyClock clock;
    bus::ProgrammerSearch search(clock, directory, platform::open_serial_port);
    const std::string found = search.CONNETTI(ports);
    if (!search.busy_ports.empty()) {
        context.err << context.texts[Text::PORT_BUSY_SKIPPED];
        for (std::size_t i = 0; i < search.busy_ports.size(); ++i)
            context.err << (i ? ", " : "") << search.busy_ports[i];
        context.err << '\n';
    }
    if (found.empty()) throw UserError(context.texts.text(Text::PROGRAMMER_NOT_FOUND));
    context.out << context.texts[Text::LINE_ONLINE] << search.PORTA_COM << '\n';
    return kExitOk;
}

std::string frame_without_checksum(const Context& context, const std::string& typed) {
    if (!is_bracketed_frame(typed)) throw UserError(context.texts.text(Text::FRAME_NOT_VALID));
    auto known = [](std::string_view full) {
        const bus::FrameKind kind = bus::parse_frame(full).kind;
        return kind != bus::FrameKind::NotAFrame && kind != bus::FrameKind::Unknown;
    };
    // A frame that already carries its checksum goes as it is.
    if (bus::checksum_ok(typed) && known(typed)) return typed.substr(0, 1) + typed.substr(3);
    if (!known(bus::with_checksum(typed)))
        throw UserError(context.texts.text(Text::FRAME_NOT_KNOWN) + basic::escaped_controls(typed));
    return typed;
}

int send_frame(Context& context, const SendRequest& request) {
    const std::string frame = frame_without_checksum(context, request.frame);
    const std::unique_ptr<platform::SerialPort> port = open_port(context, request.port);
    platform::SteadyClock clock;
    bus::ReceiveAssembler receiver;
    bus::PortLine io(*port, receiver, clock);
    bus::Line line(io, receiver);
    // The report names the module by the address the frame carries.
    const std::string address = frame.substr(2, 4);
    line.on_answer = [&](int attempt, bool answered) {
        context.out << commissioning::report_line(address, " ", answered, attempt) << std::endl;
    };
    line.STRINGA_TX = frame;
    return line.INVIA_STRINGA(request.answer_ms) ? kExitOk : kExitNotAnswered;
}

}  // namespace filo::cli
