#pragma once
// The five reports and how their rows are laid out page by page.
#include <string>
#include <string_view>
#include <vector>

#include "exchange/report_rows.hpp"
#include "texts/text_key.hpp"

namespace filo::texts {
class LanguageTables;
}

namespace filo::exchange {

enum class ReportLayout { ByCommand, ByUser, Modules };

// One report as the project window's entries open it (NUMERO_REPORT 1-5).
struct ReportKind {
    int NUMERO_REPORT;
    ReportLayout layout;
    bool STAMPA_ESTESA;  // two lines a row: the name, then the technical line
    int bound;           // lines of a page
    texts::Text Label1;  // title
    texts::Text Label5;  // column heads of the extended and module layouts
};

// The kind of NUMERO_REPORT n; nullptr outside 1-5.
const ReportKind* report_kind(int numero_report);

// Fills the rows a report lists.
void build_rows(const ReportKind& kind, ReportRows& rows);

// One group of a page: a frame with its caption and its lines. In the
// module report codes holds the second column (Text2), line for line.
struct ReportGroup {
    std::string caption;
    std::vector<std::string> lines;
    std::vector<std::string> codes;
    int top_line = 0;  // lines of the page used before the group
};

struct ReportPage {
    int first_row = 1;  // Label2
    int last_row = 0;   // Label3
    int lines_used = 0;
    std::vector<ReportGroup> groups;
};

// Lays out the page that starts at row PRIMA_RIGA_PAGINA (from 1). A row
// whose line passes the bound opens the next page; a group's caption and
// frame take two more lines, tested only with the next row, so a page may
// end a little past the bound. An empty report is one empty page.
ReportPage lay_out_page(const ReportKind& kind, const std::vector<ReportRow>& rows,
                        int PRIMA_RIGA_PAGINA);

// Every page of the report: the last row ends the last page, so there is
// never an empty page after it.
std::vector<ReportPage> paginate(const ReportKind& kind, const std::vector<ReportRow>& rows);

// The heads shown above the groups: those of the kind, or three blanks for a
// short link report.
std::string column_heads(const ReportKind& kind, const texts::LanguageTables& texts);

// Everything a page shows, ready for the renderer: the pages and the texts
// around them.
struct ReportDocument {
    const ReportKind* kind = nullptr;
    std::string title;      // Label1
    std::string heads;      // Label5
    std::string project;    // NOME_PROGETTO
    std::string date;       // of the print
    std::string page_word;  // "Pagina  "
    std::string page_of;    // " di "
    std::vector<ReportPage> pages;

    // "Pagina  n di m" for page index (from 0).
    std::string page_caption(std::size_t index) const;
};

ReportDocument make_document(const ReportKind& kind, const std::vector<ReportRow>& rows,
                             const texts::LanguageTables& texts, std::string project,
                             std::string date);

}  // namespace filo::exchange
