// filo-cli run as a user runs it: a separate process, its output and exit code.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"

namespace filo {
namespace {

using CliTest = testing::CliFixture;

TEST_F(CliTest, NewCreatesAProjectOnceAndMakesTheTemplates) {
    const std::string project = (dir / "Villa Rossi.TRN").string();
    auto first = cli({"new", project});
    EXPECT_EQ(first.exit_code, 0) << first.err;
    EXPECT_EQ(first.out, "Progetto Villa Rossi Creato\n");
    EXPECT_TRUE(std::filesystem::exists(dir / "home" / "DATIBASE.BAW"));
    EXPECT_TRUE(std::filesystem::exists(dir / "home" / "domotica_base.MDB"));

    auto again = cli({"new", project});
    EXPECT_EQ(again.exit_code, 1);
    EXPECT_EQ(again.out, "");
    EXPECT_EQ(again.err, "Villa Rossi  Questo progetto esiste già\n");

    auto blank = cli({"new", (dir / " casa.TRN").string()});
    EXPECT_EQ(blank.exit_code, 1);
    EXPECT_EQ(blank.err, "Inserire un nome progetto valido\n");

    // A project is <name>.TRN whatever else the name ends with.
    const struct {
        const char* typed;
        const char* file;  // made, or nullptr for a refusal
        const char* out;
    } names[] = {{"x.txt", "x.txt.TRN", "Progetto x.txt Creato\n"},
                 {"tre.trn", "tre.trn", "Progetto tre Creato\n"},
                 {".TRN", nullptr, ""},
                 {".trn", nullptr, ""}};
    for (const auto& n : names) {
        auto r = cli({"new", (dir / n.typed).string()});
        EXPECT_EQ(r.exit_code, n.file ? 0 : 1) << n.typed;
        EXPECT_EQ(r.out, n.out) << n.typed;
        if (n.file) EXPECT_TRUE(std::filesystem::exists(dir / n.file)) << n.typed;
    }
    EXPECT_FALSE(std::filesystem::exists(dir / ".TRN.TRN"));
    EXPECT_FALSE(std::filesystem::exists(dir / "x.txt"));
}

TEST_F(CliTest, ProjectsThatCannotBeOpenedAreUserErrors) {
    testing::write_file(dir / "rotto.TRN", "non un database");
    auto missing = cli({"modules", (dir / "manca.TRN").string()});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_EQ(missing.err.rfind(" Questo progetto non esiste", 0), 0u) << missing.err;
    auto broken = cli({"modules", (dir / "rotto.TRN").string()});
    EXPECT_EQ(broken.exit_code, 1);
    EXPECT_NE(broken.err.find("rotto.TRN"), std::string::npos);
    EXPECT_EQ(testing::read_file(dir / "rotto.TRN"), "non un database");
}

TEST_F(CliTest, WrongUsageExitsTwo) {
    EXPECT_EQ(cli({}).exit_code, 2);
    EXPECT_EQ(cli({"new"}).exit_code, 2);
    EXPECT_EQ(cli({"--lang", "ENG", "texts"}).exit_code, 2);
    EXPECT_EQ(cli({"--help"}).exit_code, 0);
    EXPECT_EQ(cli({"code"}).exit_code, 2);
    EXPECT_EQ(cli({"frame"}).exit_code, 2);
    EXPECT_EQ(cli({"code", "00121F", "00121F"}).exit_code, 2);
}

}  // namespace
}  // namespace filo
