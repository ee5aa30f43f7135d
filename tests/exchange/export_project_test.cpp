#include "exchange/export_project.hpp"

#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"
#include "exchange/export_cards.hpp"
#include "exchange/export_nick.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/sample_project.hpp"

namespace filo::testing {
namespace {

namespace fs = std::filesystem;
using exchange::CardGroupRow;

// Rows of a query, fields joined by "|".
std::vector<std::string> rows_of(const fs::path& file, const std::string& query) {
    sqlite::Connection c(file, sqlite::OpenMode::ReadOnly);
    auto q = c.prepare(query);
    std::vector<std::string> rows;
    while (q.step()) {
        std::string row;
        for (int i = 0; i < q.column_count(); ++i) row += (i ? "|" : "") + q.text(i);
        rows.push_back(row);
    }
    return rows;
}

class ExportTest : public CliFixture {
  protected:
    ExportTest() : file(make_empty_project(dir.path(), "casa")) { project.open(file); }
    void reader(const std::string& code, const std::string& group, const std::string& name) {
        add_module(table, code, 9, "Lettore");
        set_column(project, code, 1, "riserva", group);
        set_column(project, code, 1, "nick", name);
    }
    fs::path file;
    store::Project project;
    store::ModuleTable table{project};
};

TEST_F(ExportTest, NickCopyKeepsEveryValueAndTheColumnTypes) {
    EXPECT_EQ(exchange::sqlite_copy_path("/p/a.TRN"), fs::path("/p/a.DB"));
    EXPECT_EQ(exchange::sqlite_copy_path("/p/a.mdb"), fs::path("/p/a.DB"));
    const fs::path copy = dir / "casa.DB";
    exchange::ProjectExport ex(project, dir / "home");

    EXPECT_EQ(ex.convert(), 0);  // no rows: a file without a table
    EXPECT_TRUE(fs::exists(copy));
    EXPECT_TRUE(rows_of(copy, "SELECT name FROM sqlite_master").empty());

    add_module(table, "00011F", 16, "L'ingresso \"nord\" è là");
    set_column(project, "00011F", 9, "nick", "Luce dell'àtrio");
    std::vector<std::int64_t> steps;
    EXPECT_EQ(ex.convert([&](std::int64_t row, std::int64_t total) {
        if (row == total) steps.push_back(row);
    }),
              16);
    EXPECT_EQ(steps, std::vector<std::int64_t>{16});
    EXPECT_EQ(rows_of(copy, "SELECT sql FROM sqlite_master").at(0).substr(13, 49),
              "nick (ID INTEGER,codice VARCHAR(255),campo VARCHA");
    EXPECT_EQ(rows_of(copy,
                      "SELECT nick, note, typeof(ID), typeof(nick_numerico) FROM nick "
                      "WHERE campo = '9'"),
              std::vector<std::string>{"Luce dell'àtrio|L'ingresso \"nord\" è là|integer|integer"});
    EXPECT_EQ(exchange::copy_column_type("TEXT(6)"), " VARCHAR(6)");
    EXPECT_EQ(exchange::copy_column_type("MEMO"), " INTEGER");
}

TEST_F(ExportTest, CardReadersGroupByFourInGroupOrder) {
    EXPECT_TRUE(exchange::LEGGI_TIPO_1A(project.database()).empty());
    for (int i = 1; i <= 5; ++i)
        reader("000" + std::to_string(i) + "1A", "Ingressi", "Porta " + std::to_string(i));
    reader("00061A", "Box, \"nord\"", "Garage è");
    reader("00071A", "Box, \"nord\"", "");
    reader("00081A", "Box, \"nord\"", "");
    add_module(table, "00091F", 16, "");  // not a reader
    const std::vector<CardGroupRow> expected = {
        {"Box, \"nord\"", "Garage è", "00061A", "00071A", "00081A", ""},
        {"Ingressi", "Porta 1", "00011A", "00021A", "00031A", "00041A"},
        {"Ingressi", "Porta 5", "00051A", "", "", ""},
    };
    EXPECT_EQ(exchange::LEGGI_TIPO_1A(project.database()), expected);

    exchange::ProjectExport ex(project, dir / "home");
    fs::create_directories(dir / "home");
    EXPECT_EQ(ex.export_cards(), 3u);
    EXPECT_TRUE(fs::exists(dir / "home" / "ESPORTA_BASE.mdb"));
    EXPECT_EQ(rows_of(ex.cards, "SELECT * FROM dati_transponder ORDER BY ID").at(2),
              "3|Ingressi|Porta 5|00051A|||");
    EXPECT_EQ(read_file(ex.cards_csv),
              "ID,A,B,C,D,E,F\r\n"
              "1,\"Box, \"\"nord\"\"\",Garage è,00061A,00071A,00081A,\r\n"
              "2,Ingressi,Porta 1,00011A,00021A,00031A,00041A\r\n"
              "3,Ingressi,Porta 5,00051A,,,\r\n");
}

TEST_F(ExportTest, CommandWritesBothFilesOrNothing) {
    reader("00011A", "G", "Porta");
    project.close();
    const std::string before = read_file(file);
    ProgramResult r = cli({"export", file.string()});
    ASSERT_EQ(r.exit_code, 0) << r.err;
    EXPECT_EQ(rows_of(dir / "casa.DB", "SELECT COUNT(*) FROM nick").at(0), "9");
    const fs::path cards = dir / "home" / "ESP_casa" / "DATI_HARDWARE.mdb";
    EXPECT_EQ(rows_of(cards, "SELECT A, B, C FROM dati_transponder").at(0), "G|Porta|00011A");
    EXPECT_TRUE(fs::exists(cards.parent_path() / "dati_transponder.csv"));
    EXPECT_EQ(read_file(file), before);  // the project is only read

    r = cli({"export", file.string(), "--cards-only", "--cards", (dir / "out" / "c.mdb").string()});
    EXPECT_EQ(r.exit_code, 0) << r.err;
    EXPECT_TRUE(fs::exists(dir / "out" / "dati_transponder.csv"));

    const fs::path blocked = dir / "blocked";
    write_file(blocked, "a file, not a folder");
    r = cli({"export", file.string(), "--nick", (blocked / "x.DB").string()});
    EXPECT_EQ(r.exit_code, 1);
    EXPECT_NE(r.err, "");
    EXPECT_FALSE(fs::exists(blocked / "x.DB"));
}

}  // namespace
}  // namespace filo::testing
