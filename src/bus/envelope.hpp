#pragma once
// What the port is given: a frame in the envelope that its use asks for. What
// the programmer makes of "00", NUL and "_" is its own business; they go out
// exactly so.
#include <string>
#include <string_view>

namespace filo::bus {

enum class Envelope {
    Full,        // "00", frame, NUL, "_": everything that goes through PREPARA_STRINGA
    Tail,        // frame, NUL, "_": the literal frames of the programming run
    Terminated,  // frame, NUL: the sweep, the live levels
    Bare,        // the frame alone: simulated inputs, relay tests, text frames
};

std::string wrap(Envelope envelope, std::string_view frame);

}  // namespace filo::bus
