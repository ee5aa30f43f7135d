// The two lists of the link editor at the highest level on a large
// installation: 1000 modules, 3000 links, a third of them making their output
// give events.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "store/module_table.hpp"
#include "store/point_lists.hpp"
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
        sqlite::Connection& db = project.database();
        sqlite::Transaction t(db);
        testing::add_generated_modules(table, 1000);
        // Scenes on the flag modules, presence warnings on a few modules.
        db.exec(
            "UPDATE nick SET riserva = 'Scena ' || ID WHERE codice LIKE '____11' AND "
            "campo IN ('2', '4', '6')");
        db.exec(
            "UPDATE nick SET riserva3 = '00000000030' || substr(riserva3, 12) WHERE "
            "campo = '1' AND ID % 7 = 0");

        struct Point {
            std::string identificativo, nick;
        };
        std::vector<Point> outputs, inputs;
        sqlite::Statement q = db.prepare(
            "SELECT codice, campo, numero_filo, nick FROM nick WHERE nick <> '' ORDER BY ID");
        while (q.step()) {
            Point p{q.text(0) + "/" + q.text(2), q.text(3)};
            (std::stoi(q.text(1)) <= 8 ? inputs : outputs).push_back(std::move(p));
        }
        sqlite::Statement insert = db.prepare(
            "INSERT INTO associazioni (ID, identificativoRX, identificativoTX, numero_uscita, "
            "nick_ricevente, numero_ingresso, nick_trasmittente, opzione, modo_, on_, off_, "
            "\"and\", settimana, dato13, dato14) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, 'P', ?8, "
            "'251', '9', '00000000', '00000000', '000000', '')");
        for (int k = 1; k <= 3000; ++k) {
            const Point& rx = outputs[static_cast<std::size_t>(k * 7919) % outputs.size()];
            const Point& tx = inputs[static_cast<std::size_t>(k * 104729) % inputs.size()];
            insert.bind(1, k)
                .bind(2, rx.identificativo)
                .bind(3, tx.identificativo)
                .bind(4, rx.identificativo.substr(7))
                .bind(5, rx.nick)
                .bind(6, tx.identificativo.substr(7))
                .bind(7, tx.nick)
                .bind(8, k % 3 == 0 ? "000010001" : "000000001");
            insert.run();
            insert.reset();
        }
        t.commit();
        texts.ITALIANO();
    }
    testing::TempDir dir;
    std::filesystem::path file;
    store::Project project;
    store::ModuleTable table{project};
    texts::LanguageTables texts;
};

Installation& installation() {
    static Installation i;  // built once for all benchmarks of the run
    return i;
}

// What the link editor does on opening and at each change of a filter.
void BM_BothListsLevel3(benchmark::State& state) {
    Installation& i = installation();
    store::PointLists lists(i.project, i.texts);
    lists.STATO_GRUPPO = "VUOTO";
    for (auto _ : state) {
        lists.CARICA_COMBO(3);
        benchmark::DoNotOptimize(lists.Combo_COMANDI.data());
    }
    state.counters["outputs"] = static_cast<double>(lists.Combo_UTILIZZATORI.size());
    state.counters["commands"] = static_cast<double>(lists.Combo_COMANDI.size());
}
BENCHMARK(BM_BothListsLevel3)->Unit(benchmark::kMillisecond);

// Each part on its own.
template <void (store::PointLists::*part)()>
void BM_Part(benchmark::State& state) {
    Installation& i = installation();
    store::PointLists lists(i.project, i.texts);
    for (auto _ : state) {
        lists.Combo_COMANDI.clear();
        (lists.*part)();
        benchmark::DoNotOptimize(lists.Combo_COMANDI.data());
    }
    state.counters["entries"] =
        static_cast<double>(lists.Combo_COMANDI.size() + lists.Combo_UTILIZZATORI.size());
}
BENCHMARK(BM_Part<&store::PointLists::CARICA_PUNTI_UTILIZZATORI>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Part<&store::PointLists::CARICA_PUNTI_TRASMITTENTI>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Part<&store::PointLists::CARICA_PUNTI_TRASMITTENTI_ESTESI>)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Part<&store::PointLists::EVENTI_SPECIALI>)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
