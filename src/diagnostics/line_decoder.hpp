#pragma once
// The line monitor's decoder: a finished frame in, the pieces of its
// announcement out, named against the project. No I/O and no windows; the
// monitor feeds it the frames of the receive assembly.
#include <string>
#include <string_view>

namespace filo::texts {
class LanguageTables;
}

namespace filo::diagnostics {

class ModuleDirectory;

// What is spoken: Check1(1) to Check1(5).
struct SpeechTicks {
    bool mittente = true;
    bool nome = true;
    bool ingresso = true;
    bool descrizione = true;
    bool valore = true;
};

// The two "FILTRA" boxes: Check3(0) with Text2, Check3(1) with Text4.
struct MonitorFilters {
    bool on_mittente = false;
    std::string Text2;  // four hex digits
    bool on_ingresso = false;
    std::string Text4;  // a decimal number
};

enum class DecodeOutcome {
    Filtered,    // a filter held it back: nothing shown, nothing kept
    NotDecoded,  // too short, of another kind, or an event while held
    Shown,       // LM_DECODIFICATO "si": the pieces are filled
};

class LineDecoder {
  public:
    // Without a directory the project is not open (DATABASE_APERTO not "SI").
    LineDecoder(const texts::LanguageTables& texts, const ModuleDirectory* directory)
        : texts_(texts), directory_(directory) {}

    void use_directory(const ModuleDirectory* directory) { directory_ = directory; }

    SpeechTicks ticks;
    MonitorFilters filters;
    // Command2 reads "STOP": events are decoded. "START" holds them.
    bool decoding = true;

    std::string LM_MODULO;
    std::string LM_INGRESSO;
    std::string LM_VALORE;
    std::string LM_CAMPO;
    std::string LM_TIPO;
    std::string LM_DECODIFICATO;
    std::string LM_PREFISSO;
    std::string LM_ETICHETTA_MITTENTE;
    std::string LM_MITTENTE;
    std::string LM_NOME;
    std::string LM_ETICHETTA_INGRESSO;
    std::string LM_NUMERO_INGRESSO;
    std::string LM_DESCRIZIONE;
    std::string LM_TESTO_VALORE;
    std::string TESTO_PARLATO;
    // The progress bar: the value of the last event, 0-255.
    int value_bar = 0;

    // Decodes RX_TRAMA; on Shown every piece and TESTO_PARLATO are filled.
    DecodeOutcome decode(std::string_view rx_trama);
    // TESTO_PARLATO as the given ticks build it from the current pieces.
    std::string spoken_text(const SpeechTicks& with) const;
    // Whether the last shown frame is said: a release is not, unless Valore
    // is ticked or it is an event's.
    bool should_speak() const;

  private:
    void clear_pieces();
    void read_fields(std::string_view frame);
    void DECODIFICA_EVENTO();
    void DECODIFICA_PROGRAMMAZIONE();
    std::string temperature_text(char letter) const;

    const texts::LanguageTables& texts_;
    const ModuleDirectory* directory_;
    int input_ = 0;
    int value_ = 0;
};

// A temperature as the monitor writes it: a point, no trailing zeros
// (25.25, 50.5, -0.25, 20).
std::string temperature_figure(double degrees);

}  // namespace filo::diagnostics
