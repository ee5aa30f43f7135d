#include <QDate>
#include <QGuiApplication>
#include <QPageSize>
#include <QString>
#include <cstdlib>
#include <memory>
#include <ostream>

#include "cli/commands.hpp"
#include "exchange/report_layout.hpp"
#include "exchange/report_renderer.hpp"
#include "exchange/report_text.hpp"
#include "store/project.hpp"

namespace filo::cli {
namespace {

// Fonts and PDF need a GUI application, which keeps its arguments by
// reference for its whole life.
struct GuiApplication {
    int argc = 1;
    char name[9] = "filo-cli";
    char* argv[2] = {name, nullptr};
    QGuiApplication application{argc, argv};
};

// Without a display it runs off screen.
std::unique_ptr<GuiApplication> gui_application() {
    if (QGuiApplication::instance()) return nullptr;
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY") &&
        !std::getenv("QT_QPA_PLATFORM"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    return std::make_unique<GuiApplication>();
}

}  // namespace

int print_report(Context& context, const ReportRequest& request) {
    const exchange::ReportKind* kind = exchange::report_kind(request.kind);
    if (!kind) return kExitUsage;
    store::Project project;
    project.open(request.project, store::Access::ReadOnly);
    exchange::ReportRows rows(project);
    try {
        exchange::build_rows(*kind, rows);
    } catch (const exchange::ReportTooLarge& e) {
        throw UserError(context.texts.text(texts::Text::REPORT_TOO_LARGE) +
                        std::to_string(e.rows()) + " > " +
                        std::to_string(exchange::kReportRowLimit));
    }
    if (request.text) {
        exchange::write_report_text(*kind, rows.rows, context.out);
        return kExitOk;
    }
    auto application = gui_application();
    const exchange::ReportDocument document =
        exchange::make_document(*kind, rows.rows, context.texts, project.NOME_PROGETTO,
                                QDate::currentDate().toString(Qt::ISODate).toStdString());
    const QPageSize size(request.page == "Letter" ? QPageSize::Letter : QPageSize::A4);
    if (!exchange::write_report_pdf(document, QString::fromStdString(request.pdf), size))
        throw UserError(context.texts.text(texts::Text::FILE_ERROR) + request.pdf);
    return kExitOk;
}

}  // namespace filo::cli
