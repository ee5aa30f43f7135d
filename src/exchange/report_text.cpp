#include "exchange/report_text.hpp"

#include <cstdio>
#include <ostream>

namespace filo::exchange {

std::string escaped_field(std::string_view field) {
    std::string out;
    out.reserve(field.size());
    for (char ch : field) {
        const auto b = static_cast<unsigned char>(ch);
        if (b < 0x20 || b == 0x7F || b == '\\') {
            char escaped[5];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", b);
            out += escaped;
        } else {
            out += ch;
        }
    }
    return out;
}

void write_report_text(const ReportKind& kind, const std::vector<ReportRow>& rows,
                       std::ostream& out) {
    for (const ReportRow& r : rows) {
        if (kind.layout == ReportLayout::Modules) {
            out << escaped_field(r.STAMPA_NICK_TX) << '\t' << escaped_field(r.STAMPA_CODICE) << '\t'
                << escaped_field(r.STAMPA_RIGA) << '\n';
        } else {
            out << escaped_field(r.STAMPA_NICK_TX) << '\t' << escaped_field(r.STAMPA_ID_TX) << '\t'
                << escaped_field(r.STAMPA_NICK_RX) << '\t' << escaped_field(r.STAMPA_ID_RX) << '\t'
                << escaped_field(r.STAMPA_RIGA) << '\n';
        }
    }
}

}  // namespace filo::exchange
