// ports, connect and send: the line to the programmer from the command line.
#include <ostream>

#include "bus/frame.hpp"
#include "bus/line.hpp"
#include "bus/port_line.hpp"
#include "bus/programmer_search.hpp"
#include "bus/receive_assembler.hpp"
#include "cli/commands.hpp"
#include "cli/line_steps.hpp"
#include "commissioning/run_report.hpp"
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
    if (search.CONNETTI(ports).empty())
        throw UserError(context.texts.text(Text::PROGRAMMER_NOT_FOUND));
    context.out << context.texts[Text::LINE_ONLINE] << search.PORTA_COM << '\n';
    return kExitOk;
}

int send_frame(Context& context, const SendRequest& request) {
    if (!is_bracketed_frame(request.frame))
        throw UserError(context.texts.text(Text::FRAME_NOT_VALID));
    const std::unique_ptr<platform::SerialPort> port = open_port(context, request.port);
    platform::SteadyClock clock;
    bus::ReceiveAssembler receiver;
    bus::PortLine io(*port, receiver, clock);
    bus::Line line(io, receiver);
    // The report names the module by the address the frame carries.
    const std::string address = request.frame.substr(2, 4);
    line.on_answer = [&](int attempt, bool answered) {
        context.out << commissioning::report_line(address, " ", answered, attempt) << std::endl;
    };
    line.STRINGA_TX = request.frame;
    return line.INVIA_STRINGA(request.answer_ms) ? kExitOk : kExitNotAnswered;
}

}  // namespace filo::cli
