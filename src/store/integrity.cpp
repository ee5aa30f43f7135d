#include "store/integrity.hpp"

#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "common/basic_functions.hpp"
#include "store/link_repairs.hpp"
#include "store/link_row.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "store/text_match.hpp"
#include "texts/language_tables.hpp"

namespace filo::store {
namespace {

using basic::left;
using basic::mid;
using basic::right;
using basic::val;

struct Point {
    std::string codice;
    int campo = 0;
    std::string nick;
    std::string riserva;
};

// Table nick, by module code and row number (codes without regard to case).
struct NickIndex {
    std::unordered_set<std::string> codes;
    std::map<std::pair<std::string, int>, Point> points;

    bool has_module(std::string_view codice) const { return codes.contains(ascii_folded(codice)); }
    const Point* point(std::string_view codice, int campo) const {
        auto it = points.find({ascii_folded(codice), campo});
        return it == points.end() ? nullptr : &it->second;
    }
};

NickIndex read_nick(sqlite::Connection& db) {
    NickIndex index;
    sqlite::Statement q = db.prepare("SELECT codice, campo, nick, riserva FROM nick ORDER BY ID");
    while (q.step()) {
        Point p{q.text(0), static_cast<int>(val(q.text(1))), q.text(2), q.text(3)};
        const std::string code = ascii_folded(p.codice);
        index.codes.insert(code);
        index.points.try_emplace({code, p.campo}, std::move(p));
    }
    return index;
}

// Markers that stand in a link in place of a point's name.
bool is_marker(const std::string& nick_trasmittente) {
    return nick_trasmittente == kNetGate || nick_trasmittente == kSecondaRiga ||
           nick_trasmittente == "ALLE_ORE" || nick_trasmittente == "PRESENZA" ||
           nick_trasmittente.starts_with("ALMENO1") || nick_trasmittente.starts_with("TUTTI");
}

std::string quoted(const std::string& s) {
    return "\"" + s + "\"";
}

// The number after the "/" of a point's identifier.
int number_of(const std::string& identificativo) {
    const auto slash = identificativo.find('/');
    return slash == std::string::npos ? 0 : static_cast<int>(val(identificativo.substr(slash + 1)));
}

class LinkChecker {
  public:
    LinkChecker(const NickIndex& nick, std::vector<IntegrityFinding>& findings)
        : nick_(nick), findings_(findings) {}

    void check(const LinkRow& r) {
        const bool message =
            mid(r.identificativoRX, 5, 2) == "1E" || r.nick_ricevente.starts_with("MESSAGGIO");
        if (!nick_.has_module(left(r.identificativoRX, 6))) {
            add(Finding::ReceiverModuleMissing, r, r.identificativoRX);
        } else if (const int n = number_of(r.identificativoRX); !message && n >= 1 && n <= 24) {
            // Output n is row n + 8 of its module.
            const Point* p = nick_.point(left(r.identificativoRX, 6), n + 8);
            if (!p)
                add(Finding::ReceiverPointMissing, r, r.identificativoRX);
            else if (!equal_ignoring_ascii_case(p->nick, r.nick_ricevente))
                add(Finding::ReceiverNameDiffers, r,
                    r.identificativoRX + " " + quoted(r.nick_ricevente) + " / " + quoted(p->nick));
        }

        if (r.identificativoTX.empty() || r.nick_trasmittente == "ALLE_ORE") return;
        if (!nick_.has_module(left(r.identificativoTX, 6))) {
            add(Finding::CommandModuleMissing, r, r.identificativoTX);
            return;
        }
        if (is_marker(r.nick_trasmittente) || r.opzione == "ES" || r.opzione == "EP") return;
        // 1 to 8 an input, 9 to 16 the same held, 17 to 24 an event of output
        // n - 16: rows 1 to 16 all the same.
        const int n = static_cast<int>(val(r.numero_ingresso));
        if (n < 1 || n > 24) return;
        const int campo = n <= 8 ? n : n - 8;
        const Point* p = nick_.point(left(r.identificativoTX, 6), campo);
        if (!p)
            add(Finding::CommandPointMissing, r, r.identificativoTX);
        else if (!equal_ignoring_ascii_case(p->nick, r.nick_trasmittente))
            add(Finding::CommandNameDiffers, r,
                r.identificativoTX + " " + quoted(r.nick_trasmittente) + " / " + quoted(p->nick));
    }

  private:
    void add(Finding kind, const LinkRow& r, std::string detail) {
        findings_.push_back({kind, r.ID, std::move(detail)});
    }
    const NickIndex& nick_;
    std::vector<IntegrityFinding>& findings_;
};

void check_links(sqlite::Connection& db, const NickIndex& nick,
                 std::vector<IntegrityFinding>& findings) {
    sqlite::Statement q = db.prepare(
        "SELECT ID, identificativoRX, identificativoTX, nick_ricevente, nick_trasmittente, "
        "numero_ingresso, opzione, note FROM associazioni ORDER BY ID");
    LinkChecker checker(nick, findings);
    std::map<long long, std::vector<std::int64_t>> channels;
    std::int64_t previous = 0;
    bool first = true;
    while (q.step()) {
        LinkRow r;
        r.ID = q.integer(0);
        r.identificativoRX = q.text(1);
        r.identificativoTX = q.text(2);
        r.nick_ricevente = q.text(3);
        r.nick_trasmittente = q.text(4);
        r.numero_ingresso = q.text(5);
        r.opzione = q.text(6);
        r.note = q.text(7);
        const bool follows = !first && r.ID == previous + 1;
        previous = r.ID;
        first = false;
        if (r.nick_trasmittente == kNetGate)
            channels[basic::cint(r.numero_ingresso)].push_back(r.ID);
        if (r.identificativoRX.empty() || r.note == kSecondaPagina ||
            r.nick_trasmittente == kSecondaRiga) {
            // Rows of a link are consecutive: a continuation needs a row just before.
            if (!follows) findings.push_back({Finding::OrphanRow, r.ID, ""});
            continue;
        }
        checker.check(r);
    }
    for (const auto& [channel, ids] : channels) {
        if (ids.size() < 2) continue;
        std::string detail = std::to_string(channel) + " (";
        for (std::size_t i = 0; i < ids.size(); ++i)
            detail += (i ? ", " : "") + std::to_string(ids[i]);
        findings.push_back({Finding::ChannelRepeated, 0, detail + ")"});
    }
}

// A name is a duplicate only against a live row of the same side.
void check_names(sqlite::Connection& db, std::vector<IntegrityFinding>& findings) {
    sqlite::Statement q = db.prepare(
        "SELECT codice, campo, numero_filo, nick, riserva FROM nick WHERE nick <> '' AND "
        "codice <> 'FFFEFF' ORDER BY nick COLLATE NOCASE, ID");
    struct Named {
        std::string shown;
        std::vector<std::string> points;
    };
    std::map<std::pair<bool, std::string>, Named> by_name;
    std::vector<std::pair<bool, std::string>> order;
    while (q.step()) {
        if (left(q.text(4), 1) == "K") continue;
        const bool input = val(q.text(1)) <= 8;
        auto key = std::make_pair(input, ascii_folded(q.text(3)));
        auto [it, fresh] = by_name.try_emplace(key, Named{q.text(3), {}});
        if (fresh) order.push_back(key);
        it->second.points.push_back(q.text(0) + "/" + q.text(1));
    }
    for (bool inputs : {true, false}) {
        for (const auto& key : order) {
            const Named& n = by_name.at(key);
            if (key.first != inputs || n.points.size() < 2) continue;
            std::string detail = quoted(n.shown) + " (";
            for (std::size_t i = 0; i < n.points.size(); ++i)
                detail += (i ? ", " : "") + n.points[i];
            findings.push_back({inputs ? Finding::InputNameRepeated : Finding::OutputNameRepeated,
                                0, detail + ")"});
        }
    }
}

// Input 8 of a power-line modulator bears its output's name behind
// "(COMANDO) ", and a link from it drives output 1.
void check_powerline(sqlite::Connection& db, const NickIndex& nick,
                     std::vector<IntegrityFinding>& findings) {
    sqlite::Statement modules =
        db.prepare("SELECT DISTINCT codice FROM nick WHERE codice LIKE '____1F' ORDER BY codice");
    sqlite::Statement link = db.prepare(
        "SELECT 1 FROM associazioni WHERE identificativoRX = ?1 COLLATE NOCASE AND "
        "identificativoTX = ?2 COLLATE NOCASE LIMIT 1");
    while (modules.step()) {
        const std::string code = modules.text(0);
        const Point* command = nick.point(code, 8);
        const Point* output = nick.point(code, 9);
        if (!command || !output) continue;
        link.bind(1, code + "/1").bind(2, code + "/8");
        const bool linked = link.step();
        link.reset();
        if (command->nick.empty() || command->nick != "(COMANDO) " + output->nick || !linked)
            findings.push_back({Finding::PowerlineIncomplete, 0, code});
    }
}

}  // namespace

std::vector<IntegrityFinding> check_integrity(Project& project) {
    sqlite::Connection& db = project.database();
    const NickIndex nick = read_nick(db);
    std::vector<IntegrityFinding> findings;
    check_links(db, nick, findings);
    check_names(db, findings);
    check_powerline(db, nick, findings);
    return findings;
}

std::string describe(const IntegrityFinding& finding, const texts::LanguageTables& texts) {
    using texts::Text;
    Text text = Text::CHECK_ORPHAN_ROW;
    switch (finding.kind) {
        case Finding::ReceiverModuleMissing:
            text = Text::CHECK_RECEIVER_MODULE_MISSING;
            break;
        case Finding::CommandModuleMissing:
            text = Text::CHECK_COMMAND_MODULE_MISSING;
            break;
        case Finding::ReceiverPointMissing:
            text = Text::CHECK_RECEIVER_POINT_MISSING;
            break;
        case Finding::CommandPointMissing:
            text = Text::CHECK_COMMAND_POINT_MISSING;
            break;
        case Finding::ReceiverNameDiffers:
            text = Text::CHECK_RECEIVER_NAME_DIFFERS;
            break;
        case Finding::CommandNameDiffers:
            text = Text::CHECK_COMMAND_NAME_DIFFERS;
            break;
        case Finding::OrphanRow:
            text = Text::CHECK_ORPHAN_ROW;
            break;
        case Finding::InputNameRepeated:
            text = Text::CHECK_INPUT_NAME_REPEATED;
            break;
        case Finding::OutputNameRepeated:
            text = Text::CHECK_OUTPUT_NAME_REPEATED;
            break;
        case Finding::ChannelRepeated:
            text = Text::CHECK_CHANNEL_REPEATED;
            break;
        case Finding::PowerlineIncomplete:
            text = Text::CHECK_POWERLINE_INCOMPLETE;
            break;
        case Finding::ForeignCode:
            text = Text::CHECK_FOREIGN_CODE;
            break;
    }
    std::string line;
    if (finding.link_id != 0)
        line = texts.text(Text::CHECK_LINK) + std::to_string(finding.link_id) + ": ";
    line += texts.text(text) + finding.detail;
    // What completes it, so that the installer knows what to do.
    if (finding.kind == Finding::PowerlineIncomplete)
        line += texts.text(Text::CHECK_POWERLINE_TODO);
    return line;
}

}  // namespace filo::store
