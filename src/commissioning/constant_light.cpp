#include "commissioning/constant_light.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "bus/conversions.hpp"
#include "bus/line.hpp"
#include "bus/receive_assembler.hpp"
#include "common/basic_functions.hpp"
#include "store/module_table.hpp"

namespace filo::commissioning {
namespace {

using texts::Text;

// The set point and the lowest power in the first row's riserva3.
constexpr std::size_t kPowerAt = 14;  // characters 15-17
constexpr std::size_t kPointAt = 17;  // characters 18-20
constexpr std::size_t kFieldWidth = 3;
constexpr std::size_t kRiserva3Width = 26;
constexpr double kLevelPerStep = 2.55;

// A number as the system writes it in text: no trailing zeros, "127.5".
std::string decimal_text(double value) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.15g", value);
    return buffer;
}

int hex_at(std::string_view frame, std::size_t position) {
    if (frame.size() < position + 2) return -1;
    const auto v = bus::read_hex_byte(frame.substr(position, 2));
    return v ? *v : -1;
}

}  // namespace

ConstantLight::ConstantLight(store::ModuleTable& modules, bus::Line& line)
    : modules_(modules), line_(line) {}

ConstantLight::~ConstantLight() {
    close();
}

std::string ConstantLight::regulator_of_item(std::int64_t item_data) {
    if (item_data == 0) return {};
    char buffer[24];
    std::snprintf(buffer, sizeof buffer, "%llX", static_cast<unsigned long long>(item_data));
    return std::string(buffer).substr(1, 6);
}

void ConstantLight::Form_Load() {
    Label4 = Text::LIGHT_SET_LEVEL;
    modules_.LEGGI_MODULO(MODULO_REGOLATORE);
    std::string riserva3;
    if (modules_.RIGHE_MODULO.N_RIGHE_MODULO() > 0)
        riserva3 = modules_.RIGHE_MODULO.riga(1).riserva3;
    riserva3.resize(std::max(riserva3.size(), kRiserva3Width), '0');
    PUNTO_LAVORO = riserva3.substr(kPointAt, kFieldWidth);
    POTENZA_MINIMA = riserva3.substr(kPowerAt, kFieldWidth);
    const double point = basic::val(PUNTO_LAVORO);
    Slider1 = static_cast<int>(std::lround(point / kLevelPerStep));
    Label7 = static_cast<int>(point);
    bus::ReceiveAssembler& receiver = line_.receiver();
    receiver.set_consumer(
        bus::ReceiveAssembler::Consumer::ConstantLight,
        [this](const bus::ReceiveAssembler& r) { GRAFICA_PER_AVANZATE2(r.RX_TRAMA); });
    receiver.flags.LUCE_COSTANTE_ATTIVA = true;
    open_ = true;
}

void ConstantLight::Slider1_Change(int slider) {
    Slider1 = std::clamp(slider, 0, 100);
    const double level = Slider1 * kLevelPerStep;
    Label7 = std::clamp(static_cast<int>(std::lround(level)), 0, 255);
    PUNTO_LAVORO = decimal_text(level);
}

void ConstantLight::send_tail(const std::string& frame) {
    // The full envelope with its "00" cut off: no "OK" is waited for.
    line_.STRINGA_TX = frame;
    line_.PREPARA_STRINGA();
    line_.write(line_.STRINGA_TX.substr(2));
}

void ConstantLight::send_set_point() {
    line_.STRINGA_TX = "(3" + address() + "6501]";
    line_.INVIA_ORDINE();
    line_.ATTESA(kSetPointGapTenths);
    send_tail("(3" + address() + "13" + bus::hex_byte(static_cast<std::uint8_t>(Label7)) + "]");
    Timer2 = true;
}

void ConstantLight::Timer2_Timer() {
    send_tail("(B" + address() + "00]");
}

void ConstantLight::Timer3_Timer() {
    Timer3 = false;
    send_tail("(B" + address() + "00]");
}

void ConstantLight::GRAFICA_PER_AVANZATE2(std::string_view RX_TRAMA) {
    if (RX_TRAMA.size() < 8 || RX_TRAMA.substr(4, 4) != address()) return;
    const char kind = RX_TRAMA[3];
    if (kind == 'C') {
        const int v = hex_at(RX_TRAMA, 8);
        if (v < 0) return;
        Label6 = v;
        if (changed) changed();
        return;
    }
    if (kind != '8') return;
    const int v = hex_at(RX_TRAMA, 10);
    if (v < 0) return;
    comando = v;
    const double minimum = basic::val(POTENZA_MINIMA);
    if (v > kFullPower) {
        Shape6_red = true;
        Label4 = Text::LIGHT_FULL_POWER;
    }
    if (minimum >= v) {
        Shape6B_visible = true;
        Label4 = Text::LIGHT_MINIMUM_POWER;
    }
    if (v < kFullPower && minimum < v) {
        Shape6B_visible = false;
        Shape6_red = false;
        Label4 = Text::LIGHT_SET_LEVEL;
    }
    Timer3 = true;
    if (changed) changed();
}

void ConstantLight::Label1_Click(bool on_line) {
    Timer2 = false;
    std::string point = PUNTO_LAVORO.substr(0, kFieldWidth);
    // A shorter point keeps the field three characters wide.
    point.insert(0, kFieldWidth - point.size(), '0');
    modules_.LEGGI_MODULO(MODULO_REGOLATORE);
    if (modules_.RIGHE_MODULO.N_RIGHE_MODULO() > 0) {
        std::string& riserva3 = modules_.RIGHE_MODULO.riga(1).riserva3;
        riserva3.resize(std::max(riserva3.size(), kRiserva3Width), '0');
        riserva3.replace(kPointAt, kFieldWidth, point);
        modules_.CODICE_MODULO = MODULO_REGOLATORE;
        modules_.MODIFICA_MODULO();
    }
    close();
    if (on_line) {
        line_.STRINGA_TX = "(3" + address() + "6581]";
        line_.INVIA_ORDINE();
    }
}

void ConstantLight::close() {
    if (!open_) return;
    open_ = false;
    Timer2 = Timer3 = false;
    bus::ReceiveAssembler& receiver = line_.receiver();
    receiver.flags.LUCE_COSTANTE_ATTIVA = false;
    receiver.set_consumer(bus::ReceiveAssembler::Consumer::ConstantLight, {});
}

}  // namespace filo::commissioning
