// filo-cli image: the module image of one module, as the programming run sees it.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"

#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"

namespace filo {
namespace {

using testing::lines_of;

class ImageCliTest : public testing::CliFixture {
  protected:
    ImageCliTest() : file(testing::make_empty_project(dir.path(), "casa")) {
        store::Project p;
        p.open(file);
        store::ModuleTable table(p);
        testing::add_module(table, "00A211", 32, "Quadro scale");
        testing::set_column(p, "00A211", 2, "modo", "V" + std::string(23, '0'));
        testing::set_column(p, "00A211", 10, "modo",
                            "I00000001000000100000000");  // AND on relays 1 and 8
        testing::set_column(p, "00A211", 1, "riserva3", "00000000000200000000000000");  // P2 = 200
    }

    std::filesystem::path file;
};

TEST_F(ImageCliTest, PrintsTheImageInTheOrderOfItsTable) {
    const std::string before = testing::read_file(file);
    auto r = cli({"image", file.string(), "00a211"});
    ASSERT_EQ(r.exit_code, 0) << r.err;
    EXPECT_EQ(r.err, "");
    const std::vector<std::string> lines = lines_of(r.out);
    // 8 masks, 3 texts, 3 arrays of 8, 5 of 16, 8 parameters, the group mask,
    // 32 groups, 3 texts.
    ASSERT_EQ(lines.size(), 8u + 3 + 24 + 80 + 8 + 1 + 32 + 3);
    EXPECT_EQ(lines[0], "MASCHERA_INGRESSI=253");
    EXPECT_EQ(lines[1], "MASCHERA_V=2");
    EXPECT_EQ(lines[8], "TIPOLOGIE=FD0200000000");
    EXPECT_EQ(lines[12], "AND_USCITA(2)=10000001");
    EXPECT_EQ(lines[50], "PARAMETRO_1(16)=000");
    EXPECT_EQ(lines[116], "PERSONALIZZATO_2=255");
    EXPECT_EQ(lines[124], "GRUPPO(1)=000");
    EXPECT_EQ(lines[158], "NUMERO_TX_RF=000");
    // Reading the image leaves the project as it was.
    EXPECT_EQ(testing::read_file(file), before);
}

TEST_F(ImageCliTest, AModuleOrProjectThatIsNotThereIsAUserError) {
    auto missing = cli({"image", file.string(), "0099AA"});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_EQ(missing.out, "");
    EXPECT_EQ(missing.err, "Modulo non presente nel progetto: 0099AA\n");

    auto german = cli({"--lang", "TED", "image", file.string(), "0099AA"});
    EXPECT_EQ(german.err, "Modul nicht im Projekt: 0099AA\n");

    EXPECT_EQ(cli({"image", file.string()}).exit_code, 2);
}

}  // namespace
}  // namespace filo
