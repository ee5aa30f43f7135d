// The phases of the programming run with loops of their own: the remotes
// that receivers learn, the panel texts, the cards, the links and the
// temperature presets of the gateway.
#include <algorithm>

#include "bus/card_record.hpp"
#include "bus/conversions.hpp"
#include "bus/frame_builder.hpp"
#include "bus/line.hpp"
#include "commissioning/programming_run.hpp"
#include "commissioning/run_report.hpp"
#include "common/basic_functions.hpp"
#include "common/windows1252.hpp"
#include "links/link_record.hpp"
#include "store/link_row.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/programming_lists.hpp"

namespace filo::commissioning {
namespace {

using basic::mid;
using basic::val;

std::uint16_t address_of(std::string_view codice) {
    return bus::read_hex_address(mid(codice, 1, 4)).value_or(0);
}

}  // namespace

void ProgrammingRun::PROGRAMMA_RADIO() {
    enter_phase(8);
    for (MODULO_CORRENTE = 1; MODULO_CORRENTE <= modules_->N_MODULI; ++MODULO_CORRENTE) {
        PROSSIMO_MODULO();
        if (INDIRIZZO_MODULO == "0000" || TIPO_MODULO != "4A") continue;
        lists_->LISTA_telecomandi();
        // A remote is known by its number over the whole project, so one
        // that belongs to another receiver still uses up its number.
        for (int i = 1; i <= lists_->N_TELECOMANDI; ++i) {
            const store::Telecomando& t = lists_->TELECOMANDI[static_cast<std::size_t>(i - 1)];
            if (t.C != CODICE_MODULO) continue;
            send("(3" + INDIRIZZO_MODULO + bus::SOMMA_HEX(i - 1, "10") + t.A + "]", 0);
            send("(3" + INDIRIZZO_MODULO + bus::SOMMA_HEX(i - 1, "90") + t.B + "]", 0);
        }
    }
    line_.PAUSA(200);
}

void ProgrammingRun::TRASMETTI_TESTI() {
    enter_phase(13);
    lists_->CERCA_TESTI();
    for (const store::TestoSeriale& t : lists_->TESTI) {
        CODICE_MODULO = t.codice;
        progress_.codice = CODICE_MODULO;
        report_progress();
        const std::string address(mid(t.codice, 1, 4));
        int record = (static_cast<int>(val(t.numero_filo)) - 1) * 2 + 1;
        // The first text opens with its number in two digits, which the
        // panel reads as one character: the number plus 48.
        std::string first;
        if (!t.riserva2.empty()) {
            first += static_cast<char>(static_cast<int>(val(mid(t.riserva2, 1, 2))) + 48);
            first += basic::utf8_to_windows1252(mid(t.riserva2, 3));
        }
        INVIA_TESTO(address, record, first);
        ++record;
        INVIA_TESTO(address, record, basic::utf8_to_windows1252(t.riserva3));
    }
}

void ProgrammingRun::INVIA_TESTO(const std::string& address, int record, const std::string& text) {
    if (text.empty()) return;
    line_.write(bus::text_frame(address_of(address), static_cast<std::uint8_t>(record), text));
    line_.ATTESA(5);
}

void ProgrammingRun::send_cards() {
    enter_phase(14);
    for (const std::string& codice : modules_->ELENCO_CODICI) {
        if (mid(codice, 5, 2) != "1A") continue;
        INDIRIZZO_MODULO = std::string(mid(codice, 1, 4));
        CODICE_MODULO = codice;
        progress_.codice = CODICE_MODULO;
        report_progress();
        lists_->CERCA_CARD(CODICE_MODULO);
        for (int i = 1; i <= store::ProgrammingLists::kCardRows; ++i) {
            for (int j = 1; j <= store::ProgrammingLists::kCardsPerRow; ++j) {
                const std::string& entry =
                    lists_->CARD[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
                // A list ends at its first empty entry: later ones are not sent.
                if (entry.empty()) break;
                const bus::CardRecord card{address_of(codice), entry, static_cast<std::uint8_t>(i)};
                send("(7" + bus::card_record_text(card) + "]", 100);
            }
        }
    }
}

void ProgrammingRun::send_links() {
    enter_phase(15);
    links_->LEGGI_LINK();
    const int n_link = links_->N_LINK();
    if (n_link == 0) return;
    progress_.links = n_link;
    links::LinkImage image;
    for (int n = 1; n <= n_link; ++n) {
        if (!links::LEGGIprossimoLINK(*links_, n, image)) continue;
        if (image.regulator_source &&
            std::none_of(REGOLATORI.begin(), REGOLATORI.end(),
                         [&](const Regolatore& r) { return r.nick == image.nick_trasmittente; })) {
            REGOLATORI.push_back({image.nick_trasmittente,
                                  std::stoll("1" + image.codice_trasmittente, nullptr, 16)});
        }
        CODICE_MODULO = image.CODICE_MODULO;
        progress_.link = n;
        progress_.codice = CODICE_MODULO;
        report_progress();
        if (!image.RECORD_LINK.empty()) send("(1" + image.RECORD_LINK + "]", 100);
    }
}

void ProgrammingRun::send_temperature_presets() {
    enter_phase(16);
    links::LinkImage image;
    for (int n = 1; n <= links_->N_LINK(); ++n) {
        if (!links::LEGGIprossimoLINK(*links_, n, image)) continue;
        if (image.nick_trasmittente != store::kNetGate) continue;
        line_.STRINGA_TX = "(8FFFE" + image.INGRESSO_HEX + "81]";
        line_.INVIA_ORDINE();
    }
}

}  // namespace filo::commissioning
