#include "bus/programmer_search.hpp"

#include <fstream>

#include "bus/port_line.hpp"
#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"
#include "platform/serial_port.hpp"

namespace filo::bus {
namespace {

constexpr std::string_view kEchoPattern = "48495051";  // "0123" as decimal codes
constexpr double kEchoWait = 0.1;

}  // namespace

bool previous_search_failed(const std::filesystem::path& data_directory) {
    std::ifstream marker(data_directory / kSearchMarker);
    std::string line;
    if (!std::getline(marker, line)) return false;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line == kSearchMarkerLine;
}

ProgrammerSearch::ProgrammerSearch(const platform::Clock& clock,
                                   std::filesystem::path data_directory, PortOpener opener)
    : clock_(clock),
      marker_(std::move(data_directory) / kSearchMarker),
      opener_(std::move(opener)) {}

std::string ProgrammerSearch::CONNETTI(const std::vector<std::string>& ports) {
    std::error_code ec;
    std::filesystem::remove(marker_, ec);
    std::ofstream(marker_) << kSearchMarkerLine << "\r\n";
    PORTA_COM.clear();
    busy_ports.clear();
    for (std::size_t i = 0; i < ports.size(); ++i) {
        if (on_port) on_port(i, ports[i]);
        // Every port is tried, as the search always did: the first echo wins.
        if (echoes(ports[i]) && PORTA_COM.empty()) PORTA_COM = ports[i];
    }
    std::filesystem::remove(marker_, ec);
    return PORTA_COM;
}

bool ProgrammerSearch::echoes(const std::string& path) {
    try {
        std::unique_ptr<platform::SerialPort> port = opener_(path);
        if (!port) return false;
        ReceiveAssembler receiver;
        PortLine line(*port, receiver, clock_);
        receiver.arm(kEchoPattern);
        line.write("ATE0\r");
        line.write("0123");
        line.write("ATE1\r");
        return line.serve_until(clock_.now() + kEchoWait,
                                [&receiver] { return receiver.ESITO_RX == "OK"; });
    } catch (const platform::PortBusy&) {
        busy_ports.push_back(path);  // another program's: not touched, and said
        return false;
    } catch (const platform::PortError&) {
        return false;  // a port that can't be opened or used is no programmer
    }
}

}  // namespace filo::bus
