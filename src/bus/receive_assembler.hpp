#pragma once
// Characters from the programmer, one at a time: the answer detector, the
// frame being assembled, and the ordered consumers of finished frames.
#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace filo::bus {

// Who wants the frames, set by the windows and the runs that do.
struct RoutingFlags {
    std::string RX_SOSPESO = "NO";       // "SI": received text changes nothing
    std::string SCANSIONE_ATTIVA;        // "SI" while the sweep collects answers
    std::string MONITOR_SOSPESO = "SI";  // "SI": the line monitor's decoder rests
    std::string ACQUISIZIONE_PUNTO;      // "SI": a pressed button names a point ("N0" off)
    std::string ATTESA_TIPO;             // "SI": a module's type answer is awaited
    bool LUCE_COSTANTE_ATTIVA = false;   // the constant light set-up reads every frame
};

class ReceiveAssembler {
  public:
    // The consumers of a finished frame, in the order they run.
    enum class Consumer { Sweep, Monitor, PointPicking, TypeAnswer, ConstantLight, Count };
    using Handler = std::function<void(const ReceiveAssembler&)>;

    // Decimal codes of the characters received, held to 50 characters.
    std::string RX_DECIMALE;
    // The frame being assembled: only the characters of frames, and every character.
    std::string RX_TRAMA;
    std::string RX_GREZZO;
    // The decimal pattern that counts as an answer, and whether it was seen.
    std::string RX_ATTESO;
    std::string ESITO_RX = "NO";
    RoutingFlags flags;

    // Installs or removes (empty handler) the consumer of a slot.
    void set_consumer(Consumer slot, Handler handler);

    // Waits for the pattern: "7975" is "OK", "48495051" the search's "0123".
    void arm(std::string_view pattern);

    void feed(char c);
    void feed(std::string_view bytes) {
        for (char c : bytes) feed(c);
    }

    // Frames dispatched since the start, for diagnostics.
    unsigned long frames() const { return frames_; }

  private:
    void dispatch();

    std::array<Handler, static_cast<std::size_t>(Consumer::Count)> consumers_;
    unsigned long frames_ = 0;
};

}  // namespace filo::bus
