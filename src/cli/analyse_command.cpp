// analyse: the diagram of what commands one output, for scripts.
#include <QGuiApplication>
#include <filesystem>
#include <memory>
#include <ostream>

#include "cli/commands.hpp"
#include "diagnostics/diagram_painter.hpp"
#include "diagnostics/output_diagram.hpp"
#include "store/project.hpp"

namespace filo::cli {
namespace {

using texts::Text;

void print_diagram(Context& context, const diagnostics::OutputDiagram& d) {
    std::ostream& out = context.out;
    out << d.UTILIZZATORE << '\t' << d.module_label << '\n';
    for (std::size_t i = 1; i < d.tied.size(); ++i)
        if (!d.tied[i].name.empty())
            out << (d.tied[i].reciprocal ? "RECIPROCO" : "AND") << '\t' << i << '\t'
                << d.tied[i].name << '\n';
    for (const diagnostics::DiagramRow& r : d.rows) {
        out << r.command << '\t' << r.label_on << (r.mark_on ? " *" : "") << '\t' << r.t_asp << '\t'
            << r.t_on << '\t' << r.label_off << (r.mark_off ? " *" : "") << '\t' << r.t_rit;
        if (r.has_conditions) {
            out << '\t' << r.conditions_caption << '\t';
            for (std::size_t i = 0; i < r.conditions.size(); ++i)
                out << (i ? ", " : "") << r.conditions[i];
        }
        out << '\n';
    }
}

// Qt's drawing needs its application object, with no screen; its arguments
// must outlive it.
struct DrawingApplication {
    int argc = 1;
    char name[9] = "filo-cli";
    char* argv[2] = {name, nullptr};
    std::unique_ptr<QGuiApplication> application;
};

std::unique_ptr<DrawingApplication> drawing_application() {
    auto d = std::make_unique<DrawingApplication>();
    if (QGuiApplication::instance()) return d;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    d->application = std::make_unique<QGuiApplication>(d->argc, d->argv);
    return d;
}

void draw(Context& context, const std::string& path, bool written) {
    if (!written || !std::filesystem::exists(path))
        throw UserError(context.texts.text(Text::RECORDING_NOT_WRITTEN) + path);
}

}  // namespace

int analyse_output(Context& context, const AnalyseRequest& request) {
    store::Project project;
    project.open(request.project, store::Access::ReadOnly);
    const std::int64_t id = diagnostics::find_output(project, request.output);
    if (id == 0) throw UserError(context.texts.text(Text::OUTPUT_NOT_FOUND) + request.output);
    const diagnostics::OutputDiagram diagram =
        diagnostics::build_output_diagram(project, context.texts, id);
    if (request.svg.empty() && request.png.empty()) {
        print_diagram(context, diagram);
        return kExitOk;
    }
    const std::unique_ptr<DrawingApplication> application = drawing_application();
    if (!request.svg.empty()) {
        std::filesystem::remove(request.svg);
        draw(context, request.svg,
             diagnostics::write_diagram_svg(diagram, QString::fromStdString(request.svg)));
    }
    if (!request.png.empty())
        draw(context, request.png,
             diagnostics::write_diagram_png(diagram, QString::fromStdString(request.png)));
    return kExitOk;
}

}  // namespace filo::cli
