// The line monitor on a busy line: frames of a 1000-module installation
// decoded with their names, alone and with the monitor's entry and output line.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bus/checksum.hpp"
#include "bus/conversions.hpp"
#include "diagnostics/line_decoder.hpp"
#include "diagnostics/line_monitor.hpp"
#include "diagnostics/module_directory.hpp"
#include "diagnostics/monitor_format.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"
#include "texts/language_tables.hpp"

namespace {

using namespace filo;

struct Line {
    Line() {
        store::Project project;
        project.open(testing::make_empty_project(dir.path(), "grande"));
        store::ModuleTable table(project);
        testing::add_generated_modules(table, 1000);
        names = diagnostics::ModuleDirectory::load(project);
        texts.ITALIANO();
        // Presses, releases, held presses and events spread over the modules.
        for (int k = 0; k < 256; ++k) {
            const int module = (k * 389) % 1000;
            const int input = 1 + k % 24;
            const int value = k % 3 == 0 ? 9 : 251;
            char text[16];
            std::snprintf(text, sizeof text, "(8%04X%02X%02X]", module, input, value);
            frames.push_back(bus::with_checksum(text));
        }
    }
    testing::TempDir dir;
    diagnostics::ModuleDirectory names;
    texts::LanguageTables texts;
    std::vector<std::string> frames;
};

void BM_DecodeWithNames(benchmark::State& state) {
    Line line;
    diagnostics::LineDecoder decoder(line.texts, &line.names);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(decoder.decode(line.frames[i++ & 255]));
        benchmark::DoNotOptimize(decoder.TESTO_PARLATO.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DecodeWithNames);

void BM_MonitorEntryAndOutputLine(benchmark::State& state) {
    Line line;
    diagnostics::LineDecoder decoder(line.texts, &line.names);
    diagnostics::LineMonitor monitor(decoder);
    std::size_t written = 0;
    monitor.on_entry = [&written](const diagnostics::MonitorEntry& e) {
        written += diagnostics::tsv_line(e.fields).size();
    };
    std::size_t i = 0;
    for (auto _ : state) {
        const std::string& f = line.frames[i++ & 255];
        monitor.receive(f, f, 45296789);
    }
    benchmark::DoNotOptimize(written);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_MonitorEntryAndOutputLine);

}  // namespace

BENCHMARK_MAIN();
