// The reports of a large project: 3000 links between 125 modules, half of them
// with a second page (whose off delay the report looks up), and the
// module report of the same project.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QPageSize>
#include <QString>
#include <cstdlib>
#include <filesystem>

#include "exchange/report_layout.hpp"
#include "exchange/report_renderer.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"
#include "texts/language_tables.hpp"

namespace {

using namespace filo;

struct Installation {
    Installation() : file(testing::make_empty_project(dir.path(), "grande")) {
        project.open(file);
        sqlite::Transaction t(project.database());
        store::ModuleTable table(project);
        testing::add_generated_modules(table, 125);  // 2997 named points
        std::vector<std::string> codes;
        sqlite::Statement q =
            project.database().prepare("SELECT DISTINCT codice FROM nick ORDER BY codice");
        while (q.step()) codes.push_back(q.text(0));
        store::LinkTable links(project);
        for (int i = 0; i < 1500; ++i) {
            const std::string& rx = codes[static_cast<std::size_t>(i * 37) % codes.size()];
            const std::string& tx = codes[static_cast<std::size_t>(i * 101 + 7) % codes.size()];
            const std::string out = std::to_string(i % 8 + 1), in = std::to_string(i % 5 + 1);
            links.LINK_CORRENTE =
                testing::switching_link(rx + "/" + out, tx + "/" + in, "Luce " + rx + "." + out,
                                        "Pulsante " + tx + "." + in);
            links.LINK_CORRENTE.tempo_on2 = std::to_string(i % 200);
            links.AGGIUNGI_LINK();
            links.LINK_CORRENTE = store::second_page(links.LINK_CORRENTE);
            links.LINK_CORRENTE.dato13 = "001044";
            links.AGGIUNGI_LINK();
        }
        // A second link on every output, from another input: 3000 links in all.
        for (int i = 0; i < 1500; ++i) {
            const std::string& rx = codes[static_cast<std::size_t>(i * 37) % codes.size()];
            const std::string& tx = codes[static_cast<std::size_t>(i * 53 + 3) % codes.size()];
            links.LINK_CORRENTE = testing::switching_link(
                rx + "/" + std::to_string(i % 8 + 1), tx + "/" + std::to_string(i % 3 + 6),
                "Luce " + rx + "." + std::to_string(i % 8 + 1), "Tasto " + tx);
            links.AGGIUNGI_LINK();
        }
        t.commit();
    }
    testing::TempDir dir;
    std::filesystem::path file;
    store::Project project;
    texts::LanguageTables texts;
};

Installation& installation() {
    static Installation i;
    return i;
}

void BM_ReportRows(benchmark::State& state) {
    Installation& i = installation();
    const exchange::ReportKind& kind = *exchange::report_kind(static_cast<int>(state.range(0)));
    exchange::ReportRows rows(i.project);
    for (auto _ : state) {
        exchange::build_rows(kind, rows);
        benchmark::DoNotOptimize(rows.rows.data());
    }
    state.counters["rows"] = rows.N_LINK();
}
BENCHMARK(BM_ReportRows)->Arg(1)->Arg(3)->Arg(5)->Unit(benchmark::kMillisecond);

// Rows, pages and the PDF file, as `filo-cli report --pdf` makes it.
void BM_ReportPdf(benchmark::State& state) {
    Installation& i = installation();
    const exchange::ReportKind& kind = *exchange::report_kind(static_cast<int>(state.range(0)));
    const QString pdf = QString::fromStdString((i.dir.path() / "report.pdf").string());
    std::size_t pages = 0;
    for (auto _ : state) {
        exchange::ReportRows rows(i.project);
        exchange::build_rows(kind, rows);
        const exchange::ReportDocument document =
            exchange::make_document(kind, rows.rows, i.texts, "grande", "2026-01-01");
        if (!exchange::write_report_pdf(document, pdf, QPageSize(QPageSize::A4)))
            state.SkipWithError("PDF not written");
        pages = document.pages.size();
    }
    state.counters["pages"] = static_cast<double>(pages);
}
BENCHMARK(BM_ReportPdf)->Arg(2)->Arg(3)->Arg(5)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
