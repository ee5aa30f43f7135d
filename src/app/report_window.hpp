#pragma once
// Form18, the report window: the pages of one of the five reports, a page at
// a time with previous and next, printed through a preview or saved as PDF.
#include <cstddef>
#include <functional>
#include <string>

#include "exchange/report_layout.hpp"

namespace filo::app {

class Session;

// What the window asks of the world around it.
struct ReportHost {
    // The print preview of the first `pages` pages, from which they print.
    std::function<void(const exchange::ReportDocument&, std::size_t pages)> print;
    // "EXIT": the window goes.
    std::function<void()> close;
};

class ReportWindow {
  public:
    // The ten pages after which printing asks before going on.
    static constexpr std::size_t kPagesBeforeQuestion = 10;

    ReportWindow(Session& session, ReportHost host);

    // STAMPA_1 to STAMPA_5: the rows, then page 1. False, after the message,
    // when the project holds more rows than a report can.
    bool STAMPA(int numero_report, const std::string& date);
    // Previous and next page.
    void Command1_Click();
    void Command2_Click();
    // "STAMPA": every page, asking once after the tenth whether to go on.
    void Command3_Click();
    // "EXIT".
    void Command4_Click();

    // The pages, the one shown and its labels.
    const exchange::ReportDocument& document() const { return document_; }
    std::size_t page_index() const { return static_cast<std::size_t>(NUMERO_PAGINA - 1); }
    const exchange::ReportPage& page() const { return document_.pages.at(page_index()); }

    std::string NUMERO_REPORT;
    std::string STAMPA_ESTESA;  // "SI" or "NO"; "" in the module report
    std::string STAMPA_FINITA;  // "TUTTO" on the last page
    int NUMERO_PAGINA = 1;
    std::string Label1, Label2, Label3, Label4, Label5;
    bool Command1 = false;
    bool Command2 = false;

  private:
    void show_page();

    Session& session_;
    ReportHost host_;
    exchange::ReportDocument document_;
};

}  // namespace filo::app
