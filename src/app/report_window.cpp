#include "app/report_window.hpp"

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "store/sqlite.hpp"

namespace filo::app {

using texts::Text;

ReportWindow::ReportWindow(Session& session, ReportHost host)
    : session_(session), host_(std::move(host)) {}

bool ReportWindow::STAMPA(int numero_report, const std::string& date) {
    const exchange::ReportKind* kind = exchange::report_kind(numero_report);
    if (!kind) return false;
    exchange::ReportRows rows(session_.project);
    try {
        exchange::build_rows(*kind, rows);
    } catch (const exchange::ReportTooLarge& e) {
        session_.message(
            Text::REPORT_TOO_LARGE, Text::TITLE_WARNING, {},
            std::to_string(e.rows()) + " > " + std::to_string(exchange::kReportRowLimit));
        return false;
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
        return false;
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session_, e);
        return false;
    }
    document_ = exchange::make_document(*kind, rows.rows, session_.texts,
                                        session_.project.NOME_PROGETTO, date);
    NUMERO_REPORT = std::to_string(numero_report);
    STAMPA_ESTESA = kind->layout == exchange::ReportLayout::Modules ? ""
                    : kind->STAMPA_ESTESA                           ? "SI"
                                                                    : "NO";
    Label1 = document_.title;
    Label5 = document_.heads;
    NUMERO_PAGINA = 1;
    show_page();
    return true;
}

void ReportWindow::show_page() {
    const exchange::ReportPage& p = page();
    Label2 = std::to_string(p.first_row);
    Label3 = std::to_string(p.last_row);
    Label4 = session_.texts.text(Text::REPORT_PAGE) + std::to_string(NUMERO_PAGINA);
    Command1 = NUMERO_PAGINA > 1;
    Command2 = page_index() + 1 < document_.pages.size();
    STAMPA_FINITA = Command2 ? "" : "TUTTO";
}

void ReportWindow::Command1_Click() {
    if (NUMERO_PAGINA <= 1) return;
    --NUMERO_PAGINA;
    show_page();
}

void ReportWindow::Command2_Click() {
    if (page_index() + 1 >= document_.pages.size()) return;
    ++NUMERO_PAGINA;
    show_page();
}

void ReportWindow::Command3_Click() {
    std::size_t pages = document_.pages.size();
    if (pages > kPagesBeforeQuestion &&
        !session_.ask(Text::PRINT_TEN_PAGES_QUEUED, Text::PRINT_CONTINUE))
        pages = kPagesBeforeQuestion;
    if (host_.print) host_.print(document_, pages);
}

void ReportWindow::Command4_Click() {
    if (host_.close) host_.close();
}

}  // namespace filo::app
