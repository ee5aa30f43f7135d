#pragma once
// The rows of the five reports: the link table or the module table turned
// into text, one row a link (or a named point), in the report's order.
#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace filo::store {
class Project;
struct LinkRow;
}  // namespace filo::store

namespace filo::exchange {

// A report holds at most this many rows (the arrays of the report were
// sized so); a larger project is refused, not cut.
inline constexpr std::size_t kReportRowLimit = 3000;

// One row of a report. In a link report: names and codes of both ends and
// the technical line; in the module report STAMPA_NICK_TX is the group key
// (code, four blanks, note), STAMPA_RIGA the point line and STAMPA_CODICE
// the numeric name and point index.
struct ReportRow {
    std::string STAMPA_NICK_TX;
    std::string STAMPA_ID_TX;
    std::string STAMPA_NICK_RX;
    std::string STAMPA_ID_RX;
    std::string STAMPA_RIGA;
    std::string STAMPA_CODICE;

    bool operator==(const ReportRow&) const = default;
};

// Which way LISTA_PER_STAMPA sorts the links.
enum class LinkOrder { ByCommand = 1, ByUser = 2 };

// Seconds as the reports show a time: 3725 is 01h02'05".
std::string time_form(long long seconds);
// A text cut or filled with blanks to a number of characters (UTF-8 aware,
// so a "°" counts as one).
std::string fit(std::string_view text, std::size_t characters);

// The report row of one link. off_delay is the third time of its second
// page (0 when it has none).
ReportRow link_report_row(const store::LinkRow& link, long long off_delay);

// The report's rows, filled from the open project.
class ReportRows {
  public:
    explicit ReportRows(store::Project& project) : project_(project) {}

    std::vector<ReportRow> rows;
    int N_LINK() const { return static_cast<int>(rows.size()); }
    // Row i, from 1.
    const ReportRow& row(int i) const { return rows.at(static_cast<std::size_t>(i - 1)); }

    // The links with a receiver, by command name and code or by user name
    // and code; second pages stay out (they only lend their third time).
    // Throws ReportTooLarge beyond kReportRowLimit rows.
    void LISTA_PER_STAMPA(LinkOrder order);
    // The named points, by module code and row.
    void LISTA_PER_STAMPA_NICK();

  private:
    store::Project& project_;
};

// More rows than a report can hold.
class ReportTooLarge : public std::exception {
  public:
    explicit ReportTooLarge(std::size_t rows) : rows_(rows) {}
    std::size_t rows() const { return rows_; }
    const char* what() const noexcept override { return "report too large"; }

  private:
    std::size_t rows_;
};

}  // namespace filo::exchange
