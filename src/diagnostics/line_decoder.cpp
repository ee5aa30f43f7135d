#include "diagnostics/line_decoder.hpp"

#include <cstdio>

#include "bus/frame.hpp"
#include "common/basic_functions.hpp"
#include "diagnostics/module_directory.hpp"
#include "texts/language_tables.hpp"

namespace filo::diagnostics {
namespace {

using basic::mid;
using texts::Text;

int hex_byte(std::string_view two) {
    int v = 0;
    for (char c : two) {
        int d = 0;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        else
            return 0;
        v = v * 16 + d;
    }
    return v;
}

constexpr int kReleased = 9;
constexpr int kPressed = 251;

}  // namespace

std::string temperature_figure(double degrees) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", degrees);
    std::string s = text;
    while (s.back() == '0') s.pop_back();
    if (s.back() == '.') s.pop_back();
    if (s == "-0") s = "0";
    return s;
}

void LineDecoder::clear_pieces() {
    for (std::string* piece :
         {&LM_CAMPO, &LM_TIPO, &LM_DECODIFICATO, &LM_PREFISSO, &LM_ETICHETTA_MITTENTE, &LM_MITTENTE,
          &LM_NOME, &LM_ETICHETTA_INGRESSO, &LM_NUMERO_INGRESSO, &LM_DESCRIZIONE, &LM_TESTO_VALORE,
          &TESTO_PARLATO})
        piece->clear();
}

void LineDecoder::read_fields(std::string_view frame) {
    LM_MODULO = std::string(mid(frame, 5, 4));
    input_ = hex_byte(mid(frame, 9, 2));
    value_ = hex_byte(mid(frame, 11, 2));
    LM_INGRESSO = std::to_string(input_);
    LM_VALORE = std::to_string(value_);
}

DecodeOutcome LineDecoder::decode(std::string_view rx_trama) {
    if (rx_trama.size() < bus::kShortFrameLength) return DecodeOutcome::NotDecoded;
    read_fields(rx_trama);
    if (filters.on_mittente && filters.Text2 != LM_MODULO) return DecodeOutcome::Filtered;
    if (filters.on_ingresso && basic::val(filters.Text4) != input_) return DecodeOutcome::Filtered;
    clear_pieces();
    const char kind = rx_trama[3];
    if (kind == '8')
        DECODIFICA_EVENTO();
    else if (kind == '1')
        DECODIFICA_PROGRAMMAZIONE();
    if (LM_DECODIFICATO.empty()) return DecodeOutcome::NotDecoded;
    TESTO_PARLATO = spoken_text(ticks);
    return DecodeOutcome::Shown;
}

std::string LineDecoder::spoken_text(const SpeechTicks& with) const {
    std::string t;
    if (with.mittente || with.nome) t += LM_PREFISSO + LM_ETICHETTA_MITTENTE;
    if (with.mittente) t += LM_MITTENTE;
    if (with.mittente || with.nome) t += with.nome ? ", " : ". ";
    if (with.nome) t += LM_NOME;
    if (with.ingresso || with.descrizione) t += LM_ETICHETTA_INGRESSO;
    if (with.ingresso) t += LM_NUMERO_INGRESSO;
    if (with.ingresso || with.descrizione) t += with.descrizione ? ", " : ". ";
    if (with.descrizione) t += LM_DESCRIZIONE;
    if (with.valore) t += LM_TESTO_VALORE;
    return t;
}

bool LineDecoder::should_speak() const {
    return !(LM_TIPO != "EVENTO" && !ticks.valore && LM_VALORE == std::to_string(kReleased));
}

void LineDecoder::DECODIFICA_EVENTO() {
    if (!decoding) return;
    LM_DECODIFICATO = "si";
    for (char c : LM_MODULO) {
        if (!LM_MITTENTE.empty()) LM_MITTENTE += ' ';
        LM_MITTENTE += c;
    }
    value_bar = value_;
    int campo = input_;
    LM_TIPO = "BASE";
    if (input_ > 16) {
        campo = input_ - 16;
        LM_TIPO = "EVENTO";
    } else if (input_ > 8) {
        campo = input_ - 8;
        LM_TIPO = "TENUTO";
    }
    LM_CAMPO = std::to_string(campo);
    LM_ETICHETTA_MITTENTE = "MITTENTE, ";
    LM_ETICHETTA_INGRESSO = "INGRESSO, ";
    LM_NUMERO_INGRESSO = LM_INGRESSO;
    if (value_ == kReleased)
        LM_TESTO_VALORE = ", RILASCIATO";
    else if (value_ == kPressed)
        LM_TESTO_VALORE = ", PREMUTO";
    else
        LM_TESTO_VALORE = "VALORE, " + LM_VALORE;

    const std::vector<MonitorRow>* rows = directory_ ? directory_->rows_of(LM_MODULO) : nullptr;
    if (!rows || rows->empty()) return;
    if (!rows->front().note.empty()) LM_NOME = rows->front().note + ". ";
    LM_DESCRIZIONE = ". ";
    for (const MonitorRow& row : *rows) {
        if (row.riserva == "K") continue;
        if (LM_TIPO == "EVENTO") {
            if (row.campo != campo + 8) continue;
            LM_DESCRIZIONE = "EVENTO " + row.nick + ". ";
            LM_NUMERO_INGRESSO = "EVENTO di relé, " + LM_CAMPO;
            continue;
        }
        if (row.campo != campo) continue;
        const char letter = row.modo.empty() ? ' ' : row.modo.front();
        LM_DESCRIZIONE = row.nick + ". ";
        switch (letter) {
            case 'P':
                LM_DESCRIZIONE += "PULSANTE ";
                break;
            case 'T':
                LM_DESCRIZIONE += LM_TIPO == "BASE" ? "PULSANTE " : "TENUTO ";
                break;
            case 'I':
                LM_DESCRIZIONE += "INTERUTTORE ";
                break;
            case 'J':
            case 'W':
            case 'X':
                LM_DESCRIZIONE += temperature_text(letter);
                break;
            default:
                break;
        }
    }
}

std::string LineDecoder::temperature_text(char letter) const {
    const int v = value_ - 49;
    switch (letter) {
        case 'J':
            return texts_.text(Text::INPUT_ROOM_TEMPERATURE_SENSOR) + temperature_figure(v * 0.25);
        case 'W':
            return texts_.text(Text::INPUT_INDUSTRIAL_TEMPERATURE_SENSOR) +
                   temperature_figure(v * 0.5);
        default:
            return texts_.text(Text::INPUT_EXTENDED_TEMPERATURE_SENSOR) + temperature_figure(v);
    }
}

void LineDecoder::DECODIFICA_PROGRAMMAZIONE() {
    LM_DECODIFICATO = "si";
    LM_PREFISSO = "PROGRAMMAZIONE. ";
    LM_MITTENTE = "DESTINATARIO, " + LM_MODULO + ", ";
    LM_NUMERO_INGRESSO = "INGRESSO, " + LM_INGRESSO + ", ";
    if (!directory_) return;
    const std::vector<MonitorRow>* rows = directory_->rows_of(LM_MODULO);
    if (!rows || rows->empty()) return;
    LM_NOME = rows->front().note + ". ";
    LM_DESCRIZIONE = "USCITA, " + LM_VALORE + ". ";
}

}  // namespace filo::diagnostics
