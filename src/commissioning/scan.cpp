#include "commissioning/scan.hpp"

#include <algorithm>

#include "bus/checksum.hpp"
#include "bus/conversions.hpp"
#include "bus/envelope.hpp"
#include "bus/frame.hpp"
#include "bus/line.hpp"
#include "bus/receive_assembler.hpp"

namespace filo::commissioning {
namespace {

using Consumer = bus::ReceiveAssembler::Consumer;

// Nothing is read during this pause before each probe: an answer that comes
// meanwhile waits in the port and is collected after it.
constexpr int kPauseBeforeProbeMs = 150;

}  // namespace

std::optional<std::string> answered_code(std::string_view frame) {
    if (frame.size() != bus::kShortFrameLength) return std::nullopt;
    if (frame[3] != '8' || frame.substr(8, 2) != "FF") return std::nullopt;
    return std::string(frame.substr(4, 4)) + std::string(frame.substr(10, 2));
}

std::vector<std::string> codes_not_in_project(const std::vector<std::string>& found,
                                              const std::vector<std::string>& project_codes) {
    std::vector<std::string> lacking;
    for (const std::string& code : found) {
        const std::string_view head = std::string_view(code).substr(0, 6);
        const bool known = std::any_of(project_codes.begin(), project_codes.end(),
                                       [&](const std::string& p) { return p == head; });
        if (!known) lacking.push_back(code);
    }
    return lacking;
}

InstallationScan::InstallationScan(bus::Line& line) : line_(line) {
    line_.receiver().set_consumer(Consumer::Sweep,
                                  [this](const bus::ReceiveAssembler&) { collect(); });
}

InstallationScan::~InstallationScan() {
    line_.receiver().set_consumer(Consumer::Sweep, {});
    line_.receiver().flags.SCANSIONE_ATTIVA.clear();
}

int InstallationScan::start() {
    CONTATORE_SCANSIONE = 0;
    List1.clear();
    running_ = true;
    line_.receiver().flags.SCANSIONE_ATTIVA = "SI";
    return kFirstTickMs;
}

std::optional<int> InstallationScan::tick() {
    if (!running_) return std::nullopt;
    line_.write(bus::wrap(bus::Envelope::Terminated, std::string(bus::kOpenProgramming)));
    line_.PAUSA(kPauseBeforeProbeMs);
    ++CONTATORE_SCANSIONE;
    if (CONTATORE_SCANSIONE <= kLastAddress) {
        const std::string probe =
            "[A00" + bus::hex_byte(static_cast<std::uint8_t>(CONTATORE_SCANSIONE)) + "0000]";
        line_.write(bus::wrap(bus::Envelope::Terminated, bus::with_checksum(probe)));
        return kProbeIntervalMs;
    }
    stop();
    line_.write(bus::wrap(bus::Envelope::Terminated, std::string(bus::kCloseProgramming)));
    return std::nullopt;
}

void InstallationScan::stop() {
    running_ = false;
    line_.receiver().flags.SCANSIONE_ATTIVA.clear();
}

void InstallationScan::collect() {
    const bus::ReceiveAssembler& rx = line_.receiver();
    if (rx.flags.SCANSIONE_ATTIVA != "SI") return;
    const std::optional<std::string> code = answered_code(rx.RX_TRAMA);
    if (!code) return;
    if (std::find(List1.begin(), List1.end(), *code) == List1.end()) List1.push_back(*code);
}

}  // namespace filo::commissioning
