#include <gtest/gtest.h>

#include <algorithm>

#include "cli/cli_fixture.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "support/sample_project.hpp"

namespace filo::testing {
namespace {

class ReportCliTest : public CliFixture {
  protected:
    ReportCliTest() : file(make_empty_project(dir.path(), "Villa")) {}

    void add_link(const std::string& rx, const std::string& tx, const std::string& nick_rx,
                  const std::string& nick_tx) {
        store::Project project;
        project.open(file);
        store::LinkTable links(project);
        links.LINK_CORRENTE = switching_link(rx, tx, nick_rx, nick_tx);
        links.AGGIUNGI_LINK();
    }
    ProgramResult report(const std::string& kind, const std::string& output) {
        if (output == "--text") return cli({"report", file.string(), "--kind", kind, "--text"});
        return cli({"report", file.string(), "--kind", kind, "--pdf", output});
    }

    std::filesystem::path file;
};

TEST_F(ReportCliTest, TextIsOneEscapedLineARow) {
    add_link("000215/1", "000111/2", "Luce\tbagno", "Tasto \\ 2°");
    add_link("000215/2", "000111/3", "Allarme", "Centrale");
    {
        store::Project project;
        project.open(file);
        store::ModuleTable modules(project);
        add_module(modules, "000111", 9, "Cucina");
        set_column(project, "000111", 9, "nick", "Luce 1°");
    }
    const std::string line1 =
        "    000111/2 -> 000215/1  :P: 00000011 :251/8  : --------- --------- --------- "
        "---------  ";
    const std::string line2 =
        "    000111/3 -> 000215/2  :P: 00000011 :251/8  : --------- --------- --------- "
        "---------  ";
    const std::pair<const char*, std::string> cases[] = {
        {"2", "Centrale\t000111/3 \tAllarme\t000215/2 \t" + line2 + "\n" +
                  "Tasto \\x5C 2°\t000111/2 \tLuce\\x09bagno\t000215/1 \t" + line1 + "\n"},
        {"5", "000111    Cucina\t1 / 8\t      RELE            .         1         Luce 1°\n"},
    };
    for (const auto& [kind, expected] : cases) {
        const ProgramResult r = report(kind, "--text");
        EXPECT_EQ(r.exit_code, 0) << kind << r.err;
        EXPECT_EQ(r.out, expected) << kind;
    }
    EXPECT_EQ(report("6", "--text").exit_code, 2);
}

TEST_F(ReportCliTest, PdfReadsBackWithTitlePageAndRows) {
    add_link("000215/1", "000111/2", "Luce cucina", "Tasto ingresso");
    const auto pdf = dir / "villa.pdf";
    const ProgramResult r = report("2", pdf.string());
    ASSERT_EQ(r.exit_code, 0) << r.err;
    std::string text = run_program("/usr/bin/pdftotext", {"-layout", pdf.string(), "-"}).out;
    // Blanks come back from a PDF as the text's positions give them: one each.
    const auto collapsed = [](std::string s) {
        for (char& c : s)
            if (c == '\n') c = ' ';
        s.erase(
            std::unique(s.begin(), s.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
            s.end());
        return s;
    };
    text = collapsed(text);
    for (const char* expected :
         {"REPORT DEI COLLEGAMENTI", "ORDINATI PER COMANDO", "Villa", "Pagina 1 di 1",
          "Tasto ingresso", "Luce cucina", "000111/2 -> 000215/1 :P: 00000011 :251/8"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected << "\n" << text;

    ASSERT_EQ(
        cli({"report", file.string(), "--kind", "5", "--pdf", pdf.string(), "--page", "Letter"})
            .exit_code,
        0);
    EXPECT_NE(run_program("/usr/bin/pdfinfo", {pdf.string()}).out.find("612 x 792"),
              std::string::npos);
}

TEST_F(ReportCliTest, MoreRowsThanAReportHoldsIsRefused) {
    {
        store::Project project;
        project.open(file);
        add_generated_links(project, {"000111", "000215"}, 3001);
    }
    for (const char* output : {"--text", "x.pdf"}) {
        const ProgramResult r = report("1", output);
        EXPECT_EQ(r.exit_code, 1) << output;
        EXPECT_NE(r.err.find("3001"), std::string::npos) << r.err;
        EXPECT_TRUE(r.out.empty());
    }
}

}  // namespace
}  // namespace filo::testing
