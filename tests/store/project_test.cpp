#include "store/project.hpp"

#include <gtest/gtest.h>

#include "store/foreign_project.hpp"
#include "store/module_table.hpp"
#include "store/project_files.hpp"
#include "store/sqlite.hpp"
#include "store/store_fixture.hpp"
#include "support/sample_project.hpp"
#include "support/temp_dir.hpp"

namespace filo::store {
namespace {

using testing::read_file;
using testing::TempDir;

ProjectProblem problem_opening(const std::filesystem::path& file) {
    Project p;
    try {
        p.open(file);
    } catch (const ProjectError& e) {
        EXPECT_FALSE(p.is_open());
        return e.problem();
    }
    ADD_FAILURE() << "opened " << file;
    return ProjectProblem::Unreadable;
}

TEST(ProjectOpening, RefusesWhatIsNotAProjectAndLeavesItUntouched) {
    TempDir dir;
    testing::write_file(dir / "testo.TRN", "questo non è un database\n");
    testing::write_file(dir / "vuoto.TRN", "");
    {
        sqlite::Connection c(dir / "altro.mdb", sqlite::OpenMode::ReadWriteCreate);
        c.exec("CREATE TABLE clienti (nome TEXT)");
    }
    testing::make_foreign_project(dir / "senza_link.TRN", false, false);
    {
        sqlite::Connection c(dir / "colonne.TRN", sqlite::OpenMode::ReadWriteCreate);
        c.exec("CREATE TABLE nick (ID INTEGER, codice TEXT)");
        c.exec("CREATE TABLE associazioni (ID INTEGER)");
    }
    struct Case {
        const char* file;
        ProjectProblem problem;
    } cases[] = {
        {"manca.TRN", ProjectProblem::Missing},
        {"testo.TRN", ProjectProblem::NotADatabase},
        {"vuoto.TRN", ProjectProblem::MissingTables},
        {"altro.mdb", ProjectProblem::MissingTables},
        {"senza_link.TRN", ProjectProblem::MissingTables},
        {"colonne.TRN", ProjectProblem::MissingColumns},
    };
    for (const Case& c : cases) {
        const auto file = dir / c.file;
        const bool existed = std::filesystem::exists(file);
        const std::string before = existed ? read_file(file) : "";
        EXPECT_EQ(problem_opening(file), c.problem) << c.file;
        EXPECT_EQ(std::filesystem::exists(file), existed) << c.file;
        if (existed) {
            EXPECT_EQ(read_file(file), before) << c.file << " was written to";
        }
    }
}

TEST(ProjectOpening, UpgradesAnOlderProjectMadeByAnotherTool) {
    TempDir dir;
    const auto file = dir / "vecchio.mdb";
    testing::make_foreign_project(file);
    {
        sqlite::Connection c(file, sqlite::OpenMode::ReadWrite);
        c.exec(
            "INSERT INTO nick (ID, codice, campo, numero_filo, nick, note, nick_numerico, "
            "riserva2, "
            "riserva3, riserva4) VALUES (1, '00121F', '1', '1', 'Luce d''ingresso ', 'Quadro', 1, "
            "NULL, '01', NULL)");
    }
    Project p;
    p.open(file);
    EXPECT_EQ(p.NOME_PROGETTO, "vecchio");
    ModuleTable table(p);
    table.LEGGI_MODULO("00121f");  // codes match without regard to case
    ASSERT_EQ(table.STATO_MODULO, kModuloEsistente);
    const NickRow& r = table.RIGHE_MODULO.riga(1);
    EXPECT_EQ(r.nick, "Luce d'ingresso ");
    EXPECT_EQ(r.dati_aggiuntivi1, "");  // Null in the new column
    EXPECT_EQ(r.riserva2, "");          // Null reads as ""
    EXPECT_EQ(r.riserva3, std::string(26, '0'));
    EXPECT_EQ(r.riserva4, std::string(50, '0'));
    // The column is there now, and stays when the project is opened again.
    table.RIGHE_MODULO.riga(1).dati_aggiuntivi1 = "AB";
    table.CODICE_MODULO = "00121F";
    table.MODIFICA_MODULO();
    p.open(file);
    table.LEGGI_MODULO("00121F");
    EXPECT_EQ(table.RIGHE_MODULO.riga(1).dati_aggiuntivi1, "AB");
}

TEST(ProjectFiles, RestoresTheEmptyProjectFromItsMasterCopy) {
    TempDir dir;
    ProjectFiles files(dir.path());
    files.ensure_empty_project();
    ASSERT_TRUE(std::filesystem::exists(files.master_copy()));
    ASSERT_TRUE(std::filesystem::exists(files.empty_project()));

    // A master copy of the installer's own: the next empty project is made from it.
    std::filesystem::remove(files.empty_project());
    {
        sqlite::Connection c(files.master_copy(), sqlite::OpenMode::ReadWrite);
        c.exec("INSERT INTO nick (ID, codice, campo) VALUES (1, 'FFFEFF', '1')");
    }
    ASSERT_EQ(files.create_project(dir / "nuovo.TRN"), ProjectFiles::Creation::Created);
    EXPECT_TRUE(std::filesystem::exists(files.empty_project()));
    Project p;
    p.open(dir / "nuovo.TRN");
    ModuleTable t(p);
    t.LEGGI_MODULO("FFFEFF");
    EXPECT_EQ(t.STATO_MODULO, kModuloEsistente);
}

TEST(ProjectFiles, NeverOverwritesAProject) {
    TempDir dir;
    ProjectFiles files(dir.path());
    testing::write_file(dir / "casa.TRN", "lavoro di ieri");
    EXPECT_EQ(files.create_project(dir / "casa.TRN"), ProjectFiles::Creation::Exists);
    EXPECT_EQ(read_file(dir / "casa.TRN"), "lavoro di ieri");
    EXPECT_THROW(files.create_project(dir / "cartella-che-non-c-e" / "x.TRN"),
                 std::filesystem::filesystem_error);
    EXPECT_FALSE(is_valid_project_name(""));
    EXPECT_FALSE(is_valid_project_name(" casa"));
    EXPECT_TRUE(is_valid_project_name("casa "));
}

using SqlFunctionsTest = testing::StoreTest;

std::string one(sqlite::Connection& db, const std::string& query) {
    auto q = db.prepare(query);
    EXPECT_TRUE(q.step()) << query;
    return q.text(0);
}

TEST_F(SqlFunctionsTest, ClassicFunctionsAreAvailableToQueries) {
    auto& db = project.database();
    EXPECT_EQ(one(db, "SELECT \"LEFT\"('00121F', 4)"), "0012");
    EXPECT_EQ(one(db, "SELECT \"RIGHT\"('00121F', 2)"), "1F");
    EXPECT_EQ(one(db, "SELECT \"RIGHT\"('ab', 5)"), "ab");
    EXPECT_EQ(one(db, "SELECT \"LEFT\"('Umidità', 6)"), "Umidit");
    EXPECT_EQ(one(db, "SELECT \"RIGHT\"('Umidità', 2)"), "tà");
    EXPECT_EQ(one(db, "SELECT VAL(' 12abc')"), "12.0");
    EXPECT_EQ(one(db, "SELECT CINT('2.5')"), "2");
    EXPECT_EQ(one(db, "SELECT \"LEFT\"(NULL, 2) IS NULL"), "1");
    testing::add_module(table, "00011F", 12, "");  // LIKE: "_" one character, any case
    EXPECT_EQ(one(db, "SELECT COUNT(*) FROM nick WHERE codice LIKE '____1f'"), "12");
}

}  // namespace
}  // namespace filo::store
