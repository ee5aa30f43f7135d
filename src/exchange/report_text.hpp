#pragma once
// The rows of a report as plain text, one line a row, fields separated by a
// tab: what `filo-cli report --text` prints and scripts read.
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/report_layout.hpp"

namespace filo::exchange {

// A field as the text shows it: control characters (below 0x20 and 0x7F)
// and the backslash as \xNN with upper-case hex digits; everything else,
// UTF-8 included, as it stands.
std::string escaped_field(std::string_view field);

// Links: STAMPA_NICK_TX, STAMPA_ID_TX, STAMPA_NICK_RX, STAMPA_ID_RX,
// STAMPA_RIGA. Modules: the group key, STAMPA_CODICE, STAMPA_RIGA.
void write_report_text(const ReportKind& kind, const std::vector<ReportRow>& rows,
                       std::ostream& out);

}  // namespace filo::exchange
