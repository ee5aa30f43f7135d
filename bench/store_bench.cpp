// The module table on a large installation: the lists of the project window,
// and one module read and written back.
#include <benchmark/benchmark.h>

#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace {

using namespace filo;

struct Installation {
    Installation() : file(testing::make_empty_project(dir.path(), "grande")) {
        project.open(file);
        testing::add_generated_modules(table, 1000);
    }
    testing::TempDir dir;
    std::filesystem::path file;
    store::Project project;
    store::ModuleTable table{project};
};

Installation& installation() {
    static Installation i;  // built once for all benchmarks of the run
    return i;
}

void BM_ModuleLists(benchmark::State& state) {
    auto& table = installation().table;
    std::size_t entries = 0;
    for (auto _ : state) {
        store::ModuleLists lists = table.ELENCO_MODULI();
        entries = lists.by_code.size() + lists.by_name.size();
        benchmark::DoNotOptimize(entries);
    }
    state.counters["entries"] = static_cast<double>(entries);
}
BENCHMARK(BM_ModuleLists)->Unit(benchmark::kMillisecond);

void BM_ReadAndWriteBackOneModule(benchmark::State& state) {
    auto& table = installation().table;
    table.ELENCO_MODULI();
    const std::vector<std::string> codes = table.ELENCO_CODICI;
    std::size_t m = 0;
    for (auto _ : state) {
        const std::string& code = codes[(m++ * 37) % codes.size()];
        table.LEGGI_MODULO(code);
        table.CODICE_MODULO = code;
        table.RIGHE_MODULO.riga(9).nick = "Luce " + std::to_string(m) + " ";
        table.MODIFICA_MODULO();
    }
}
BENCHMARK(BM_ReadAndWriteBackOneModule)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
