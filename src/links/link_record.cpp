#include "links/link_record.hpp"

#include "bus/checksum.hpp"
#include "bus/conversions.hpp"
#include "common/basic_functions.hpp"
#include "store/link_table.hpp"

namespace filo::links {
namespace {

using basic::mid;
using bus::DEC_A_HEX;

std::string first_four(std::string text) {
    // A command without a point (a gateway channel) is all zeros.
    if (text.size() < 4) text.insert(0, 4 - text.size(), '0');
    return text.substr(0, 4);
}

}  // namespace

LinkImage link_image(const store::LinkRow& row) {
    LinkImage image;
    image.INGRESSO_HEX = DEC_A_HEX(row.numero_ingresso);
    image.CODICE_MODULO = std::string(mid(row.identificativoRX, 1, 6));
    image.nick_trasmittente = row.nick_trasmittente;
    image.codice_trasmittente = std::string(mid(row.identificativoTX, 1, 6));
    const bool second_row = row.nick_trasmittente == store::kSecondaRiga;
    image.regulator_source = mid(row.identificativoTX, 5, 4) == "19/1" && !second_row;
    if (row.identificativoRX.empty()) return image;

    std::string minuto = DEC_A_HEX(store::minuto_bus_value(row.minuto));
    std::string ora = DEC_A_HEX(row.ora);
    std::string giorno = DEC_A_HEX(row.giorno);
    // The delay before switching off travels where the time of day would.
    if (!second_row && basic::val(row.dato13) != 0) {
        minuto = DEC_A_HEX(mid(row.dato13, 4, 3));
        ora = DEC_A_HEX(mid(row.dato13, 1, 3));
        giorno = "80";
    }
    // The message module keeps its bits first-highest in the and column.
    const bool messages = mid(row.identificativoRX, 5, 2) == "1E";
    std::string& r = image.RECORD_LINK;
    r = first_four(row.identificativoRX);
    r += image.INGRESSO_HEX;
    r += bus::NUM_A_CIFRA(row.numero_uscita);
    r += first_four(row.identificativoTX);
    r += DEC_A_HEX(row.tempo_on1);
    r += DEC_A_HEX(row.tempo_on2);
    r += DEC_A_HEX(row.tempo_off1);
    r += DEC_A_HEX(row.tempo_off2);
    r += bus::BIN_A_HEX(row.modo_);
    r += messages ? bus::BIN_A_HEX(row.and_) : bus::BIN_A_HEX_INV(row.and_);
    r += DEC_A_HEX(store::on_off_bus_value(row.on_));
    r += DEC_A_HEX(store::on_off_bus_value(row.off_));
    r += minuto;
    r += ora;
    r += giorno;
    r += bus::BIN_A_HEX(row.settimana);
    // The four video door pages are one module on the bus.
    if (image.CODICE_MODULO == "FFF123" || image.CODICE_MODULO == "FFF223" ||
        image.CODICE_MODULO == "FFF323")
        r.replace(0, 4, "FFF0");
    return image;
}

bool LEGGIprossimoLINK(store::LinkTable& links, int n, LinkImage& image) {
    store::LinkRow row;
    if (!links.read_row(links.link(n).ID, row)) return false;
    image = link_image(row);
    return true;
}

std::string link_frame(const std::string& record_link) {
    return bus::with_checksum("(1" + record_link + "]");
}

}  // namespace filo::links
