// filo-cli clone as scripts run it: the contract lines and the refusals.
#include <gtest/gtest.h>

#include "bus/module_code.hpp"
#include "cli/cli_fixture.hpp"
#include "clone_fixture.hpp"

namespace filo::testing {
namespace {

class CloneCliTest : public CloneTest {
  protected:
    ProgramResult cli(std::vector<std::string> args) {
        return run_program("filo-cli", args, {{"FILO_HOME", (dir / "home").string()}});
    }
    std::vector<std::string> clone_args(const std::string& number) {
        std::vector<std::string> a = {"clone",   target.string(), "--sample", sample.string(),
                                      "--group", "Villa",         "--number", number};
        for (std::size_t i = 0; i < std::size(kCloneCodes); ++i) {
            a.push_back("--code");
            a.push_back(std::string(kSampleCodes[i]) + "=" + bus::printed_code(kCloneCodes[i]));
        }
        return a;
    }
};

TEST_F(CloneCliTest, ListsAndPrintsWhatItAppends) {
    {
        store::Project p;
        p.open(sample);
        set_column(p, "00031A", 1, "note", "Lettore\t2\\b\r\n");
    }
    ProgramResult list = cli({"clone", target.string(), "--sample", sample.string(), "--list"});
    EXPECT_EQ(list.exit_code, 0) << list.err;
    EXPECT_EQ(list.out,
              "row=1\tcode=00011F\ttype=TR-1F\titem=00011F  Cucina\n"
              "row=2\tcode=00021A\ttype=TR-1A\titem=00021A  Lettore\n"
              "row=3\tcode=00031A\ttype=TR-1A\titem=00031A  Lettore\\t2\\\\b\\r\\n\n"
              "row=4\tcode=FFF023\ttype=TR-23\titem=FFF023  PAGINA 1 VIDEOCITOFONO\n");

    const std::string before = read_file(target);
    ProgramResult dry = cli([&] {
        auto a = clone_args("1");
        a.push_back("--dry-run");
        return a;
    }());
    ASSERT_EQ(dry.exit_code, 0) << dry.err;
    EXPECT_EQ(read_file(target), before);

    ProgramResult done = cli(clone_args("1"));
    ASSERT_EQ(done.exit_code, 0) << done.err;
    EXPECT_EQ(done.out, dry.out);
    EXPECT_EQ(std::count(done.out.begin(), done.out.end(), '\n'), 16 + 9 + 9 + 16 + 4);
    EXPECT_EQ(done.out.substr(0, done.out.find('\n')),
              "codice=01011F\tcampo=1\tnumero_filo=1\tnick=Pulsante cucina>Villa 1\t"
              "note=Clone_Villa <1> Cucina\tnick_numerico=3\tmodo=P" +
                  std::string(23, '0') +
                  "\ttipologia=INPUT\tconnesso=........\triserva=\t"
                  "riserva2=" +
                  std::string(50, '0') + "\triserva3=" + std::string(26, '0') +
                  "\triserva4=" + std::string(50, '0') + "\tdati_aggiuntivi1=");
    EXPECT_NE(done.out.find("\nidentificativoRX=01011F/11\tidentificativoTX=FFFEFF/5\t"),
              std::string::npos);
}

TEST_F(CloneCliTest, EveryRefusalIsReportedAndChangesNothing) {
    auto with = [&](std::vector<std::string> a, std::size_t at, const std::string& value) {
        a[at] = value;
        return a;
    };
    const std::string wrong_digits = "00021A=01021A00";
    const std::string wrong_type = "FFF023=" + bus::printed_code("01011F");
    struct Case {
        std::string name;
        std::vector<std::string> args;
        std::string err;
    };
    const Case cases[] = {
        {"codes", with(with(clone_args("1"), 11, wrong_digits), 15, wrong_type),
         "row=2\tcode=01021A00\ttitle=ATTENZIONE\tmessage=Codice inserito non corretto\n"
         "row=4\tcode=" +
             bus::printed_code("01011F") +
             "\ttitle=ATTENZIONE\tmessage=Tipo di modulo non compatibile \n"},
        {"number_used", clone_args("7"),
         "title=ATTENZIONE\tmessage=Questo numero clone esiste già \n"},
        {"no_sample", with(clone_args("1"), 3, (dir / "nessuno.TRN").string()),
         "title=\tmessage= Questo progetto non esiste\n"},
    };
    const std::string before = read_file(target);
    for (const Case& c : cases) {
        ProgramResult r = cli(c.args);
        EXPECT_EQ(r.exit_code, 1) << c.name;
        EXPECT_EQ(r.err, c.err) << c.name;
        EXPECT_EQ(r.out, "") << c.name;
        EXPECT_EQ(read_file(target), before) << c.name;
    }
}

}  // namespace
}  // namespace filo::testing
