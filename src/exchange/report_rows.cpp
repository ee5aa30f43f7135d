#include "exchange/report_rows.hpp"

#include <cstdint>
#include <cstdio>
#include <unordered_map>

#include "common/basic_functions.hpp"
#include "store/link_row.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::exchange {
namespace {

constexpr std::string_view kNoValue = "---------";
constexpr std::string_view kAlleOre = "ALLE_ORE";
constexpr std::string_view kEventoOrario = "EVENTO ORARIO";

// Codes shorter than 9 characters get one blank, so the columns stay apart.
std::string padded_code(const std::string& code) {
    return code.size() < 9 ? code + ' ' : code;
}

std::string time_or_dashes(long long seconds) {
    return seconds == 0 ? std::string(kNoValue) : time_form(seconds);
}

bool is_continuation_byte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// "Hex" of the classic basic: upper case, negative values in 32 bits.
std::string hex_of(long long value) {
    char buffer[20];
    std::snprintf(buffer, sizeof buffer, "%X", static_cast<std::uint32_t>(value));
    return buffer;
}

void check_limit(std::size_t rows) {
    if (rows > kReportRowLimit) throw ReportTooLarge(rows);
}

}  // namespace

std::string time_form(long long seconds) {
    char buffer[48];
    std::snprintf(buffer, sizeof buffer, "%02lldh%02lld'%02lld\"", seconds / 3600,
                  seconds % 3600 / 60, seconds % 60);
    return buffer;
}

std::string fit(std::string_view text, std::size_t characters) {
    std::string out;
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!is_continuation_byte(text[i]) && count++ == characters) break;
        out += text[i];
    }
    if (count < characters) out.append(characters - count, ' ');
    return out;
}

ReportRow link_report_row(const store::LinkRow& link, long long off_delay) {
    ReportRow r;
    if (link.nick_trasmittente == store::kSecondaRiga) return r;  // a line, with nothing on it
    r.STAMPA_NICK_TX = link.nick_trasmittente;
    r.STAMPA_NICK_RX = link.nick_ricevente;
    r.STAMPA_ID_TX = padded_code(link.identificativoTX);
    r.STAMPA_ID_RX = padded_code(link.identificativoRX);
    std::string command_code = r.STAMPA_ID_TX;
    if (link.nick_trasmittente == kAlleOre) {
        r.STAMPA_NICK_TX = std::string(kEventoOrario);
        command_code = "ORARIO " + command_code;
    }
    std::string on = fit(link.on_, 3);
    std::string off = fit(link.off_, 3);
    // Neither a gateway channel nor a time of day has thresholds of its own.
    if (r.STAMPA_NICK_TX == store::kNetGate || r.STAMPA_NICK_TX == kEventoOrario) on = off = "...";
    const std::string solo_se = basic::val(link.and_) == 0 ? std::string(kNoValue) : link.and_;
    r.STAMPA_RIGA = "    " + command_code + "-> " + r.STAMPA_ID_RX + " :" + link.opzione + ": " +
                    std::string(basic::left(link.modo_, 8)) + " :" + on + "/" + off + ": " +
                    time_or_dashes(store::time_value(link.tempo_on1, link.tempo_on2)) + " " +
                    time_or_dashes(store::time_value(link.tempo_off1, link.tempo_off2)) + " " +
                    time_or_dashes(off_delay) + " " + solo_se + "  ";
    return r;
}

void ReportRows::LISTA_PER_STAMPA(LinkOrder order) {
    rows.clear();
    sqlite::Connection& db = project_.database();
    // The third time of a link sits on its second page, the row behind it by
    // number, wherever the sort puts the link itself.
    std::unordered_map<std::int64_t, long long> off_delays;
    {
        sqlite::Statement q =
            db.prepare("SELECT ID, dato13 FROM associazioni WHERE note = 'SECONDA PAGINA'");
        while (q.step()) off_delays.emplace(q.integer(0), store::dato13_value(q.text(1)));
    }
    const std::string_view sort =
        order == LinkOrder::ByCommand
            ? "nick_trasmittente COLLATE NOCASE, identificativoTX COLLATE NOCASE, ID"
            : "nick_ricevente COLLATE NOCASE, identificativoRX COLLATE NOCASE, ID";
    sqlite::Statement q = db.prepare(
        "SELECT ID, identificativoRX, identificativoTX, nick_ricevente, nick_trasmittente, "
        "opzione, tempo_on1, tempo_on2, modo_, on_, off_, tempo_off1, tempo_off2, \"and\" "
        "FROM associazioni WHERE identificativoRX <> '' ORDER BY " +
        std::string(sort));
    store::LinkRow link;
    while (q.step()) {
        int c = 0;
        link.ID = q.integer(c++);
        for (std::string* field :
             {&link.identificativoRX, &link.identificativoTX, &link.nick_ricevente,
              &link.nick_trasmittente, &link.opzione, &link.tempo_on1, &link.tempo_on2, &link.modo_,
              &link.on_, &link.off_, &link.tempo_off1, &link.tempo_off2, &link.and_})
            *field = q.text(c++);
        const auto next = off_delays.find(link.ID + 1);
        rows.push_back(link_report_row(link, next == off_delays.end() ? 0 : next->second));
        check_limit(rows.size());
    }
}

void ReportRows::LISTA_PER_STAMPA_NICK() {
    rows.clear();
    sqlite::Statement q = project_.database().prepare(
        "SELECT codice, note, modo, tipologia, numero_filo, nick, nick_numerico, campo FROM nick "
        "WHERE nick <> '' ORDER BY codice COLLATE NOCASE, VAL(campo), ID");
    while (q.step()) {
        ReportRow r;
        const std::string tipologia = q.text(3);
        r.STAMPA_NICK_TX = q.text(0) + "    " + q.text(1);
        const std::string configurazione =
            tipologia == "INPUT" ? std::string(basic::left(q.text(2), 1)) : ".";
        r.STAMPA_RIGA = "      " + fit(tipologia, 16) + configurazione + "         " +
                        fit(q.text(4), 3) + "       " + q.text(5);
        std::string numeric = q.text(6);
        std::erase(numeric, ' ');
        r.STAMPA_CODICE =
            numeric + " / " + hex_of(static_cast<long long>(basic::val(q.text(7))) - 1);
        rows.push_back(std::move(r));
        check_limit(rows.size());
    }
}

}  // namespace filo::exchange
