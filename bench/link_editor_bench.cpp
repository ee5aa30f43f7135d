// The link editor on a large installation: 1000 modules and 3000 links.
// Opening (both lists loaded), selecting a point with its side list, and
// saving one link.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "links/link_editor.hpp"
#include "store/link_queries.hpp"
#include "store/link_table.hpp"
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
        testing::add_generated_modules(table, 1000);
        std::vector<std::string> codes;
        auto q =
            project.database().prepare("SELECT codice FROM nick WHERE campo = '1' ORDER BY ID");
        while (q.step()) codes.push_back(q.text(0));
        testing::add_generated_links(project, codes, 3000);
        texts.ITALIANO();
        // A pushbutton and a relay output of two modules of type 1F.
        auto id = [this](const char* where) {
            auto s = project.database().prepare(std::string("SELECT ID FROM nick WHERE ") + where +
                                                " ORDER BY ID LIMIT 1");
            s.step();
            return s.integer(0);
        };
        command = id("codice LIKE '____1F' AND campo = '1'");
        output = id("codice LIKE '____1F' AND campo = '9' AND tipologia = 'RELE' AND ID > 5000");
    }
    testing::TempDir dir;
    std::filesystem::path file;
    store::Project project;
    store::ModuleTable table{project};
    store::LinkTable links{project};
    texts::LanguageTables texts;
    std::int64_t command = 0, output = 0;
};

Installation& installation() {
    static Installation i;  // built once for all the measurements
    return i;
}

void BM_OpenLinkEditor(benchmark::State& state) {
    Installation& i = installation();
    for (auto _ : state) {
        store::PointLists lists(i.project, i.texts);
        lists.STATO_GRUPPO = "VUOTO";
        lists.CARICA_COMBO(3);
        benchmark::DoNotOptimize(lists.Combo_COMANDI.size() + lists.Combo_UTILIZZATORI.size());
    }
}
BENCHMARK(BM_OpenLinkEditor)->Unit(benchmark::kMillisecond);

void BM_SelectCommandWithItsLinks(benchmark::State& state) {
    Installation& i = installation();
    store::LinkQueries queries(i.project, i.links, i.texts);
    links::LinkEditor editor(i.table, i.links, queries, i.texts);
    for (auto _ : state) {
        editor.select_command(i.command, "Pulsante");
        // LISTA_COMANDATI: what the point already commands.
        i.links.LEGGI_LINK();
        std::size_t n = 0;
        for (const store::LinkRow& r : i.links.TABELLA_LINK)
            n += r.identificativoTX == editor.command.identificativoTX;
        benchmark::DoNotOptimize(n);
    }
}
BENCHMARK(BM_SelectCommandWithItsLinks)->Unit(benchmark::kMillisecond);

void BM_SelectOutputWithItsLinks(benchmark::State& state) {
    Installation& i = installation();
    store::LinkQueries queries(i.project, i.links, i.texts);
    links::LinkEditor editor(i.table, i.links, queries, i.texts);
    editor.select_command(i.command, "Pulsante");
    for (auto _ : state) {
        editor.select_user(i.output, "Luce");  // with the pair check and the modes
        i.links.LINK_CORRENTE.identificativoRX = editor.user.identificativoRX;
        benchmark::DoNotOptimize(queries.LEGGI_ASSOCIATI_A_UTILIZZATORE());
    }
}
BENCHMARK(BM_SelectOutputWithItsLinks)->Unit(benchmark::kMillisecond);

void BM_SaveLink(benchmark::State& state) {
    Installation& i = installation();
    store::LinkQueries queries(i.project, i.links, i.texts);
    links::LinkEditor editor(i.table, i.links, queries, i.texts);
    editor.select_command(i.command, "Pulsante");
    editor.select_user(i.output, "Luce");
    std::vector<std::int64_t> ids;
    for (auto _ : state) {
        editor.select_mode(2);
        if (editor.COLLEGA(false, &ids) != links::LinkEditor::Save::Saved)
            state.SkipWithError("not saved");
        state.PauseTiming();
        editor.CANCELLA(ids.front());
        state.ResumeTiming();
    }
}
BENCHMARK(BM_SaveLink)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
