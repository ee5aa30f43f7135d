// A clone of a 30-module sample with 300 links into a 1000-module project,
// and the export (SQLite copy of nick and card-reader groups) of that project.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "bus/module_code.hpp"
#include "exchange/clone_job.hpp"
#include "exchange/clone_sample.hpp"
#include "exchange/export_project.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace {

using namespace filo;
namespace fs = std::filesystem;

struct Files {
    Files()
        : large(testing::make_empty_project(dir.path(), "grande")),
          sample(testing::make_empty_project(dir.path(), "campione")) {
        {
            store::Project p;
            p.open(large);
            store::ModuleTable t(p);
            sqlite::Transaction tr(p.database());
            testing::add_generated_modules(t, 1000);
            // Forty card readers in groups of three to seven.
            for (int i = 0; i < 40; ++i) {
                char code[8];
                std::snprintf(code, sizeof code, "%04X1A", 0x2000 + i);
                testing::add_module(t, code, 9, "Lettore");
                testing::set_column(p, code, 1, "riserva", "Gruppo " + std::to_string(i % 7));
            }
            tr.commit();
        }
        store::Project p;
        p.open(sample);
        store::ModuleTable t(p);
        testing::add_generated_modules(t, 30);
        std::vector<std::string> codes = t.ELENCO_MODULI().by_code;
        for (std::string& c : codes) c.resize(6);
        testing::add_generated_links(p, codes, 300);
    }
    testing::TempDir dir;
    fs::path large;
    fs::path sample;
};

const Files& files() {
    static const Files f;
    return f;
}

void BM_Clone30ModulesInto1000(benchmark::State& state) {
    const Files& f = files();
    const fs::path work = f.dir / "lavoro.TRN";
    for (auto _ : state) {
        state.PauseTiming();
        fs::copy_file(f.large, work, fs::copy_options::overwrite_existing);
        store::Project target;
        target.open(work);
        store::ModuleTable table(target);
        state.ResumeTiming();

        exchange::CloneSample sample;
        if (sample.open(f.sample)) state.SkipWithError("sample refused");
        exchange::CloneJob job(sample, table);
        exchange::CloneRequest request{
            .group = "Villa", .number = "1", .codes = {}, .check_digits = true};
        for (const exchange::SampleModule& m : sample.rows)
            request.codes.push_back(bus::printed_code("1" + m.codice.substr(1)));
        const exchange::CloneOutcome outcome = job.prepare(request);
        if (outcome.refused()) state.SkipWithError("clone refused");
        job.write(outcome.plan);
        benchmark::DoNotOptimize(outcome.plan.links.size());
    }
}
BENCHMARK(BM_Clone30ModulesInto1000)->Unit(benchmark::kMillisecond);

void BM_Export1000Modules(benchmark::State& state) {
    const Files& f = files();
    store::Project project;
    project.open(f.large, filo::store::Access::ReadOnly);
    for (auto _ : state) {
        exchange::ProjectExport ex(project, f.dir.path() / "home");
        fs::create_directories(f.dir.path() / "home");
        benchmark::DoNotOptimize(ex.convert());
        benchmark::DoNotOptimize(ex.export_cards());
    }
}
BENCHMARK(BM_Export1000Modules)->Unit(benchmark::kMillisecond);

}  // namespace
BENCHMARK_MAIN();
