#include "modules/module_rows.hpp"

#include "common/basic_functions.hpp"
#include "modules/type_catalogue.hpp"
#include "store/module_table.hpp"

namespace filo::modules {
namespace {

const std::string kFiftyZeros(50, '0');
constexpr std::string_view kNewOutputModo = "I00000000000000000000000";

std::string type_of(const store::ModuleTable& t) {
    return std::string(basic::mid(t.CODICE_MODULO, 5, 2));
}

store::NickRow blank_row(const store::ModuleTable& t, int k) {
    store::NickRow r;
    r.codice = t.CODICE_MODULO;
    r.campo = std::to_string(k);
    r.connesso = "........";
    r.riserva2 = r.riserva3 = r.riserva4 = kFiftyZeros;
    return r;
}

// The video door pages' notes, by page and row.
std::string video_door_note(std::string_view page, int row) {
    if (page == "FFF023") return "PAGINA 1 VIDEOCITOFONO";
    if (page == "FFF123") return "PAGINA 2 VIDEOCITOFONO";
    if (page == "FFF223") return "PAGINA 3 VIDEOCITOFONO";
    if (row <= 5) return "CRONOTERMOSTATI  VIDEOCITOFONO";
    if (row <= 8) return "TIMER  VIDEOCITOFONO";
    if (row <= 10) return "ANALOGICO  VIDEOCITOFONO";
    return "LIBERO  VIDEOCITOFONO";
}

}  // namespace

void CREA_RIGHE_INGRESSI(store::ModuleTable& t, std::string_view tipologia, std::string& letter) {
    if (letter.size() > 1) letter = "P";
    const std::string type = type_of(t);
    t.RIGHE_MODULO.rows.clear();
    t.RIGHE_MODULO.M_NICK_NUMERICO = std::to_string(t.N_PROGRESSIVO + 1);
    for (int k = 1; k <= 8; ++k) {
        if (t.CODICE_MODULO == "FFF323") letter = "z";
        store::NickRow r = blank_row(t, k);
        r.numero_filo = std::to_string(k);
        r.modo = letter + std::string(23, '0');
        r.tipologia = tipologia;
        if (k == 1) r.riserva3 = std::string(26, '0');
        if (type == "26") r.connesso[1] = 'E';
        if (type == "1A" && k == 1) r.connesso[1] = 'G';
        t.RIGHE_MODULO.rows.push_back(std::move(r));
    }
}

void CREA_RIGHE_USCITE(store::ModuleTable& t, std::string_view tipologia) {
    const std::string type = type_of(t);
    const ModuleType* known = find_type(type);
    const int rows = known && has_flags(*known) ? 32 : 16;
    t.RIGHE_MODULO.rows.resize(8);
    t.RIGHE_MODULO.M_NICK_NUMERICO = std::to_string(t.N_PROGRESSIVO + 1);
    for (int k = 9; k <= rows; ++k) {
        store::NickRow r = blank_row(t, k);
        r.numero_filo = std::to_string(k - 8);
        r.modo = kNewOutputModo;
        r.tipologia = tipologia;
        if (type == "25" || type == "26") r.connesso[1] = 'E';
        t.RIGHE_MODULO.rows.push_back(std::move(r));
    }
    // The two relays start interlocked: each has the other's RECIPROCO bit.
    if (type == "11" || type == "12" || type == "49") {
        t.RIGHE_MODULO.riga(9).modo = "I00000000000000001000000";
        t.RIGHE_MODULO.riga(10).modo = "I00000000000000010000000";
    }
}

void PREPARA_OUT_232(store::ModuleTable& t) {
    t.RIGHE_MODULO.rows.clear();
    t.RIGHE_MODULO.M_NICK_NUMERICO = std::to_string(t.N_PROGRESSIVO + 1);
    for (int k = 1; k <= 99; ++k) {
        store::NickRow r;
        r.codice = t.CODICE_MODULO;
        r.campo = r.numero_filo = std::to_string(k);
        r.modo = kNewOutputModo;
        r.tipologia = "OUT_SERIALE";
        r.connesso = "0";
        t.RIGHE_MODULO.rows.push_back(std::move(r));
    }
}

void CREA_VIDEOCITOFONO(store::ModuleTable& t) {
    t.LEGGI_MODULO(kVideoDoorPages[0]);
    if (t.STATO_MODULO == store::kModuloEsistente) {
        t.CODICE_MODULO = kVideoDoorPages[0];
        return;  // the four pages come and go together
    }
    for (std::string_view page : kVideoDoorPages) {
        t.LEGGI_MODULO(page);
        if (t.STATO_MODULO != store::kNuovoModulo) continue;
        t.LEGGI_N_PROGRESSIVO();
        t.CODICE_MODULO = page;
        std::string letter = "v";
        CREA_RIGHE_INGRESSI(t, "INPUT", letter);
        CREA_RIGHE_USCITE(t, "VCITOF");
        for (int r = 1; r <= 16; ++r) t.RIGHE_MODULO.riga(r).note = video_door_note(page, r);
        t.AGGIUNGI_MODULO();
    }
    t.CODICE_MODULO = kVideoDoorPages[0];
}

bool prepare_new_module(store::ModuleTable& t) {
    const ModuleType* type = find_type(type_of(t));
    if (!type) return false;
    t.LEGGI_N_PROGRESSIVO();
    std::string letter(1, type->first_kind);
    CREA_RIGHE_INGRESSI(t, "INPUT", letter);
    if (!type->output_tipologia.empty()) CREA_RIGHE_USCITE(t, type->output_tipologia);
    return true;
}

}  // namespace filo::modules
