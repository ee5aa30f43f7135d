#pragma once
// Sending frames to the programmer and waiting for its answers: the
// primitives that the programming run, the tests of a module and the live
// settings use.
#include <functional>
#include <optional>
#include <string>

namespace filo::bus {

class LineIo;
class ReceiveAssembler;

class Line {
  public:
    Line(LineIo& io, ReceiveAssembler& receiver) : io_(io), receiver_(receiver) {}

    // The frame being built without its checksum, then the exact characters sent.
    std::string STRINGA_TX;
    // The last wait for an answer failed.
    bool RISPOSTA_FALLITA = false;
    // When set, a send that finds the last keep-alive older than 5 s renews
    // programming mode; a run sets it at its start.
    std::optional<double> ULTIMA_ATTIVAZIONE;

    // Told of every wait's end, attempt 1 or 2: what the report writes.
    std::function<void(int attempt, bool answered)> on_answer;

    // Inserts the checksum, wraps STRINGA_TX in the full envelope and arms
    // the answer detector for "OK".
    void PREPARA_STRINGA();
    // Sends STRINGA_TX (without checksum) and waits 0.1 s + t for "OK",
    // sending the same characters once more if none came. True when answered.
    bool INVIA_STRINGA(int answer_ms);
    // Sends STRINGA_TX in the full envelope; no wait, no repeat.
    void INVIA_ORDINE();
    // Opens programming mode, then a pause of 20 ms.
    void ATTIVA_PROGRAMMAZIONE();
    // Closes programming mode: three times, 20 ms apart.
    void CHIUDI_PROGRAMMAZIONE();
    // Waits up to 0.1 s + t for the armed answer.
    bool ATTENDI_RISPOSTA(int attempt, int answer_ms);

    // A test of the module's outputs: the relay inversion frame carrying the
    // test mask, in the bare envelope, no answer awaited.
    void PROVA_USCITE(const std::string& codice, int mask);
    // A simulated event of one of the module's inputs (251 press, 9 release).
    void PROVA_INGRESSO(const std::string& codice, int input, int value);

    // Waits without receiving anything.
    void PAUSA(int ms);
    // Waits serving received characters; tenths of a second, fractions allowed.
    void ATTESA(double tenths);

    // Writes a frame that already has its checksum, in an envelope, as is.
    void write(const std::string& bytes);
    LineIo& io() { return io_; }
    ReceiveAssembler& receiver() { return receiver_; }

  private:
    void bare_frame_with_detector(const std::string& frame_without_checksum);

    LineIo& io_;
    ReceiveAssembler& receiver_;
};

}  // namespace filo::bus
