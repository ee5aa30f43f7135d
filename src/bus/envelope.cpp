#include "bus/envelope.hpp"

namespace filo::bus {

std::string wrap(Envelope envelope, std::string_view frame) {
    std::string out;
    out.reserve(frame.size() + 4);
    if (envelope == Envelope::Full) out += "00";
    out += frame;
    if (envelope != Envelope::Bare) out += '\0';
    if (envelope == Envelope::Full || envelope == Envelope::Tail) out += '_';
    return out;
}

}  // namespace filo::bus
