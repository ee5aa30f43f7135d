// A process killed in the middle of writing never leaves half a module behind.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace filo::store {
namespace {

// Tells `ready` once the first module is written, so that a loaded machine
// cannot kill the writer before it wrote anything.
[[noreturn]] void write_until_killed(const std::filesystem::path& file, int ready) {
    Project project;
    project.open(file);
    ModuleTable table(project);
    for (;;) {
        // Numbered after the last whole module, whatever an earlier writer left.
        table.LEGGI_N_PROGRESSIVO();
        char code[16];
        std::snprintf(code, sizeof code, "%04X1F", (table.N_PROGRESSIVO + 1) & 0xFFFF);
        testing::add_module(table, code, 24, "Quadro");
        // Rewrite it at once, so that updates are interrupted as well as inserts.
        table.LEGGI_MODULO(code);
        table.CODICE_MODULO = code;
        for (auto& r : table.RIGHE_MODULO.rows) r.nick = "Punto " + r.campo + " ";
        table.MODIFICA_MODULO();
        if (ready >= 0) {
            (void)!::write(ready, "1", 1);
            ::close(ready);
            ready = -1;
        }
    }
}

TEST(CrashSafety, AKilledWriterLeavesWholeModules) {
    testing::TempDir dir;
    const auto file = testing::make_empty_project(dir.path());
    for (int attempt = 0; attempt < 5; ++attempt) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) write_until_killed(file, ready[1]);
        ::close(ready[1]);
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        std::this_thread::sleep_for(std::chrono::milliseconds(20 + 37 * attempt));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));

        Project project;
        project.open(file);
        auto q = project.database().prepare(
            "SELECT codice, COUNT(*), SUM(nick <> ''), MIN(ID), MAX(ID) FROM nick GROUP BY codice");
        int modules = 0;
        while (q.step()) {
            ++modules;
            EXPECT_EQ(q.integer(1), 24) << q.text(0);
            const auto named = q.integer(2);
            EXPECT_TRUE(named == 0 || named == 24) << q.text(0) << " half renamed";
            EXPECT_EQ(q.integer(4) - q.integer(3), 23) << q.text(0);
        }
        EXPECT_GT(modules, 0);
    }
}

}  // namespace
}  // namespace filo::store
