#include "diagnostics/module_analysis.hpp"

#include "bus/conversions.hpp"
#include "bus/frame.hpp"
#include "common/basic_functions.hpp"

namespace filo::diagnostics {
namespace {

using basic::mid;

// Register read by each step ("" for the two frames of their own), and
// whether only the types with flags and group lamps are asked.
struct Step {
    std::string_view reg;
    bool groups_only;
};
constexpr std::array<Step, 15> kSteps = {{
    {"", false},
    {"65", false},
    {"A1", true},
    {"A2", true},
    {"", false},
    {"86", true},
    {"87", true},
    {"8E", true},
    {"8F", true},
    {"96", true},
    {"97", true},
    {"61", false},
    {"62", false},
    {"63", false},
    {"64", false},
}};

int hex_value(std::string_view text) {
    int v = 0;
    for (char c : text) {
        int d;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        else if (c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else
            break;
        v = v * 16 + d;
    }
    return v;
}

}  // namespace

bool ModuleAnalysis::has_groups() const {
    return ANALISI_TIPO == "11" || ANALISI_TIPO == "12" || ANALISI_TIPO == "15" ||
           ANALISI_TIPO == "25";
}

void ModuleAnalysis::start(std::string_view address) {
    *this = ModuleAnalysis{};
    ANALISI_INDIRIZZO = std::string(address);
    ANALISI_ATTIVA = true;
    bar_height.fill(kAnalogBarReset);
    bar_top.fill(kAnalogBarBase - kAnalogBarReset);
}

std::optional<std::string> ModuleAnalysis::tick() {
    if (ANALISI_PASSO > ANALISI_ULTIMO) {
        ANALISI_ATTIVA = false;
        return std::nullopt;
    }
    ++ANALISI_PASSO;
    // The tick after the last step still collects; the next one ends.
    if (ANALISI_PASSO > ANALISI_ULTIMO) return std::nullopt;
    const Step& step = kSteps[static_cast<std::size_t>(ANALISI_PASSO)];
    if (step.groups_only && !has_groups()) return std::nullopt;
    if (ANALISI_PASSO == 0) return "(A" + ANALISI_INDIRIZZO + "0000]";
    if (ANALISI_PASSO == 4) return "(B" + ANALISI_INDIRIZZO + "00]";
    return "(4" + ANALISI_INDIRIZZO + std::string(step.reg) + "00]";
}

void ModuleAnalysis::collect(std::string_view rx_trama, std::string_view rx_grezzo) {
    const std::string_view target = mid(rx_trama, 5, 6);
    if (target == ANALISI_INDIRIZZO + "FF") {
        ANALISI_TIPO = std::string(mid(rx_trama, 11, 2));
        return;
    }
    if (mid(rx_trama, 4, 1) == "C" && ANALISI_PASSO == 4) {
        for (std::size_t i = 1; i <= 8; ++i) {
            const std::string_view two = mid(rx_grezzo, 9 + (i - 1) * 2, 2);
            if (two.empty() || two.front() == bus::kAnalogListEnd) break;
            bar_height[i] = hex_value(two) * 13;
            bar_top[i] = kAnalogBarBase - bar_height[i];
        }
        return;
    }
    if (target != ANALISI_INDIRIZZO + "FE") return;
    const std::string bits = bus::DEC_A_BIN(std::to_string(hex_value(mid(rx_trama, 11, 2))));
    for (int i = 1; i <= 8; ++i) {
        if (bits[static_cast<std::size_t>(i - 1)] != '1') continue;
        const int p = ANALISI_PASSO;
        if (p == 1) relays[9 - i] = true;
        if (p == 2) flags[9 - i] = true;
        if (p == 3) flags[17 - i] = true;
        if (p >= 5 && p <= 10) ANALISI_LAMPADE[i] = true;
        if (p >= 11 && p <= 14) inputs[9 - i] = p - 10;
    }
    if (ANALISI_PASSO == 10)
        for (int i = 1; i <= 8; ++i)
            if (ANALISI_LAMPADE[i]) relay_red[9 - i] = !relay_red[9 - i];
}

}  // namespace filo::diagnostics
