// filo-cli's code and frame commands, run as a separate process.
#include <gtest/gtest.h>

#include "cli/cli_fixture.hpp"

namespace filo {
namespace {

using BusCliTest = testing::CliFixture;

TEST_F(BusCliTest, CodeGivesOrChecksTheCheckDigits) {
    struct Case {
        const char* typed;
        int exit_code;
        const char* out;
    } cases[] = {
        {"00121F", 0, "00121F68\n"},
        {"00121f", 0, "00121F68\n"},
        {"00121f68", 0, "00121F68\n"},
        {"FFFEFF64", 0, "FFFEFF64\n"},
        {"00121F69", 1, ""},
        {"00121G", 1, ""},
        {"00121", 1, ""},
        {"00121F680", 1, ""},
        {"0012 F68", 1, ""},
        {"", 1, ""},
    };
    for (const auto& c : cases) {
        const auto r = cli({"code", c.typed});
        EXPECT_EQ(r.exit_code, c.exit_code) << c.typed << ": " << r.err;
        EXPECT_EQ(r.out, c.out) << c.typed;
        EXPECT_EQ(r.err, c.exit_code == 0 ? "" : "Codice inserito non corretto\n") << c.typed;
    }
}

TEST_F(BusCliTest, FramePutsTheChecksumBehindTheStartMark) {
    struct Case {
        const char* frame;
        int exit_code;
        const char* out;
    } cases[] = {
        {"(600000055]", 0, "(1E600000055]\n"},
        {"[A00120000]", 0, "[22A00120000]\n"},
        {"(]", 0, "(5E]\n"},
        {"600000055]", 1, ""},
        {"(600000055", 1, ""},
        {"", 1, ""},
    };
    for (const auto& c : cases) {
        const auto r = cli({"frame", c.frame});
        EXPECT_EQ(r.exit_code, c.exit_code) << c.frame << ": " << r.err;
        EXPECT_EQ(r.out, c.out) << c.frame;
        if (c.exit_code != 0) {
            EXPECT_NE(r.err.find("Trama non valida"), std::string::npos) << c.frame;
        }
    }
}

TEST_F(BusCliTest, SendRefusesWhatIsNotAFrameBeforeTouchingThePort) {
    const std::string unknown =
        "Trama non valida: cifre esadecimali maiuscole nella lunghezza di un tipo di trama: ";
    const struct {
        const char* frame;
        std::string err;
    } cases[] = {
        {"(]", unknown + "(]"},
        {"(ZZZZZZZZZ]", unknown + "(ZZZZZZZZZ]"},
        {"(30012ec05]", unknown + "(30012ec05]"},
        {"(30012EC05", "Trama non valida: deve iniziare con ( o [ e finire con ]"},
        {"(30012\nEC05]", unknown + "(30012\\x0AEC05]"},
        {"(30012\x1b[2JEC05]", unknown + "(30012\\x1B[2JEC05]"},
    };
    for (const auto& c : cases) {
        const auto r = cli({"send", "--port", (dir / "nessuna").string(), c.frame});
        EXPECT_EQ(r.exit_code, 1) << c.frame;
        EXPECT_EQ(r.err, c.err + "\n") << c.frame;
    }
}

}  // namespace
}  // namespace filo
