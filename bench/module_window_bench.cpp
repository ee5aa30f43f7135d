// The module window on a large project: Form_Load of a 32-row relay module
// among 1000 modules and 3000 links, and Salva of the same module.
#include <benchmark/benchmark.h>

#include "app/module_window.hpp"
#include "app/port_host.hpp"
#include "app/session.hpp"
#include "bus/receive_assembler.hpp"
#include "bus/virtual_line.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace {

using namespace filo;

struct Quiet final : app::Messages {
    void show(const std::string&, const std::string&) override { ++shown; }
    bool ask(const std::string&, const std::string&) override { return false; }
    int shown = 0;
};
struct NoPort final : app::PortHost {
    explicit NoPort(bus::LineIo& io) : io_(io) {}
    void open(const std::string&) override {}
    void close() override {}
    bus::LineIo& io() override { return io_; }
    bus::LineIo& io_;
};

// Module 29 of the generated project: type 25, 32 rows.
constexpr const char* kModule = "001D25";

struct Installation {
    Installation() {
        const auto file = testing::make_empty_project(dir.path(), "grande");
        session.project.open(file);
        testing::add_generated_modules(session.modules, 1000);
        session.modules.ELENCO_MODULI();
        testing::add_generated_links(session.project, session.modules.ELENCO_CODICI, 3000);
    }
    void open() {
        session.modules.CODICE_MODULO = kModule;
        session.modules.TIPO_MODULO = "25";
        session.modules.STATO_MODULO = "MODULO_ESISTENTE";
        if (!window.load()) throw std::runtime_error("module window");
    }
    testing::TempDir dir;
    bus::ReceiveAssembler receiver;
    bus::VirtualLine line{receiver};
    NoPort port{line};
    Quiet messages;
    app::Session session{dir.path() / "home", port, receiver, messages};
    app::ModuleWindow window{session};
};

Installation& installation() {
    static Installation i;  // built once for all benchmarks of the run
    return i;
}

void BM_OpenModuleWindow(benchmark::State& state) {
    Installation& i = installation();
    for (auto _ : state) i.open();
    state.counters["rows"] = i.session.modules.RIGHE_MODULO.N_RIGHE_MODULO();
}
BENCHMARK(BM_OpenModuleWindow)->Unit(benchmark::kMillisecond);

void BM_SaveModuleWindow(benchmark::State& state) {
    Installation& i = installation();
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        i.open();
        i.window.Text1_Change(1, "Luce prova " + std::to_string(++n));
        state.ResumeTiming();
        i.window.Image1_Click(1);
        if (!i.window.closed()) state.SkipWithError("Salva refused");
    }
    state.counters["messages"] = i.messages.shown;
}
BENCHMARK(BM_SaveModuleWindow)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
