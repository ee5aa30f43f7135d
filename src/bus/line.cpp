#include "bus/line.hpp"

#include "bus/checksum.hpp"
#include "bus/conversions.hpp"
#include "bus/envelope.hpp"
#include "bus/frame.hpp"
#include "bus/line_io.hpp"
#include "bus/receive_assembler.hpp"
#include "platform/clock.hpp"

namespace filo::bus {
namespace {

constexpr std::string_view kOk = "7975";  // "OK" as decimal codes
constexpr double kKeepAlivePeriod = 5.0;

}  // namespace

void Line::PREPARA_STRINGA() {
    STRINGA_TX = wrap(Envelope::Full, with_checksum(STRINGA_TX));
    receiver_.arm(kOk);
}

bool Line::INVIA_STRINGA(int answer_ms) {
    // An "OK" that arrived before this frame left (the programmer's answer
    // to the opening of programming mode, read by nobody during a pause)
    // must not pass for this frame's answer.
    io_.serve_until(io_.clock().now(), [] { return false; });
    PREPARA_STRINGA();
    io_.write(STRINGA_TX);
    bool answered = ATTENDI_RISPOSTA(1, answer_ms);
    if (!answered) {
        // The same characters once more; the detector is still armed.
        io_.write(STRINGA_TX);
        answered = ATTENDI_RISPOSTA(2, answer_ms);
    }
    if (ULTIMA_ATTIVAZIONE && io_.clock().now() - *ULTIMA_ATTIVAZIONE > kKeepAlivePeriod) {
        ATTIVA_PROGRAMMAZIONE();
        ULTIMA_ATTIVAZIONE = io_.clock().now();
    }
    return answered;
}

void Line::INVIA_ORDINE() {
    PREPARA_STRINGA();
    io_.write(STRINGA_TX);
}

void Line::ATTIVA_PROGRAMMAZIONE() {
    io_.write(wrap(Envelope::Tail, std::string(kOpenProgramming)));
    PAUSA(20);
}

void Line::CHIUDI_PROGRAMMAZIONE() {
    for (int i = 0; i < 3; ++i) {
        if (i > 0) PAUSA(20);
        io_.write(wrap(Envelope::Tail, std::string(kCloseProgramming)));
    }
}

bool Line::ATTENDI_RISPOSTA(int attempt, int answer_ms) {
    RISPOSTA_FALLITA = false;
    const double deadline = io_.clock().now() + 0.1 + answer_ms / 1000.0;
    const bool answered = io_.serve_until(deadline, [this] { return receiver_.ESITO_RX == "OK"; });
    RISPOSTA_FALLITA = !answered;
    if (on_answer) on_answer(attempt, answered);
    return answered;
}

void Line::bare_frame_with_detector(const std::string& frame_without_checksum) {
    receiver_.arm(kOk);
    STRINGA_TX = with_checksum(frame_without_checksum);
    io_.write(STRINGA_TX);
}

void Line::PROVA_USCITE(const std::string& codice, int mask) {
    bare_frame_with_detector("(3" + codice.substr(0, 4) + "67" +
                             hex_byte(static_cast<std::uint8_t>(mask)) + "]");
}

void Line::PROVA_INGRESSO(const std::string& codice, int input, int value) {
    bare_frame_with_detector("(8" + codice.substr(0, 4) +
                             hex_byte(static_cast<std::uint8_t>(input)) +
                             hex_byte(static_cast<std::uint8_t>(value)) + "]");
}

void Line::PAUSA(int ms) {
    io_.idle_until(io_.clock().now() + ms / 1000.0);
}

void Line::ATTESA(double tenths) {
    io_.serve_until(io_.clock().now() + tenths / 10.0, [] { return false; });
}

void Line::write(const std::string& bytes) {
    io_.write(bytes);
}

}  // namespace filo::bus
