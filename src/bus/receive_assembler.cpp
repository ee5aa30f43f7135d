#include "bus/receive_assembler.hpp"

namespace filo::bus {
namespace {

// The characters a frame may hold. Anything else, a blank included, is left
// out of the assembled frame (and kept in the raw one), so that a frame with
// a stray blank reads the same as without it.
constexpr std::string_view kFrameCharacters = "0123456789ABCDEF()[]";

}  // namespace

void ReceiveAssembler::set_consumer(Consumer slot, Handler handler) {
    consumers_[static_cast<std::size_t>(slot)] = std::move(handler);
}

void ReceiveAssembler::arm(std::string_view pattern) {
    RX_ATTESO = pattern;
    RX_DECIMALE.clear();
    ESITO_RX = "NO";
}

void ReceiveAssembler::feed(char c) {
    if (flags.RX_SOSPESO == "SI") return;
    RX_DECIMALE += std::to_string(static_cast<unsigned char>(c));
    // The pattern may span characters received in separate reads.
    if (!RX_ATTESO.empty() && RX_DECIMALE.find(RX_ATTESO) != std::string::npos) ESITO_RX = "OK";
    if (RX_DECIMALE.size() > 50) RX_DECIMALE.clear();
    RX_GREZZO += c;
    if (kFrameCharacters.find(c) != std::string_view::npos) RX_TRAMA += c;
    if (c == '(' || c == '[') {
        RX_TRAMA.assign(1, c);
        RX_GREZZO.assign(1, c);
    }
    if (c == ']' && !RX_TRAMA.empty() && (RX_TRAMA[0] == '(' || RX_TRAMA[0] == '[')) dispatch();
}

void ReceiveAssembler::dispatch() {
    ++frames_;
    auto run = [this](Consumer slot) {
        if (const Handler& h = consumers_[static_cast<std::size_t>(slot)]) h(*this);
    };
    run(Consumer::Sweep);
    run(Consumer::Monitor);  // decides for itself by MONITOR_SOSPESO
    if (flags.ACQUISIZIONE_PUNTO == "SI") run(Consumer::PointPicking);
    if (flags.ATTESA_TIPO == "SI") run(Consumer::TypeAnswer);
    if (flags.LUCE_COSTANTE_ATTIVA) run(Consumer::ConstantLight);
}

}  // namespace filo::bus
