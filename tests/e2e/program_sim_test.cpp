// A whole programming run by filo-cli into filo-sim over a pseudo-terminal:
// what the modules hold afterwards is what the project says.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <nlohmann/json.hpp>
#include <thread>

#include "modules/message_editor.hpp"
#include "store/link_table.hpp"
#include "store/module_table.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"
#include "support/run_program.hpp"
#include "support/sample_project.hpp"
#include "support/sim_process.hpp"
#include "support/temp_dir.hpp"
#include "texts/language_tables.hpp"

namespace filo {
namespace {

using nlohmann::json;
using testing::SimProcess;

class ProgramSimTest : public ::testing::Test {
  protected:
    ProgramSimTest() : file(testing::make_empty_project(dir.path(), "villa")) {
        project.open(file);
    }

    testing::ProgramResult cli(const std::vector<std::string>& args) {
        return testing::run_program("filo-cli", args, {{"FILO_HOME", home().string()}});
    }
    std::filesystem::path home() const { return dir / "home"; }
    json dump() { return json::parse(testing::read_file(dir / "dump.json")); }
    void sql(const std::string& statement) { project.database().exec(statement); }
    void add(const std::string& codice, int rows, const std::string& outputs = "RELE") {
        testing::add_module(table, codice, rows, "Quadro " + codice, outputs);
    }
    void set(const std::string& codice, int campo, const std::string& column,
             const std::string& value) {
        testing::set_column(project, codice, campo, column, value);
    }
    void add_link(const std::string& rx, const std::string& tx, const std::string& nick_tx,
                  const std::string& input) {
        store::LinkTable links(project);
        links.LINK_CORRENTE = testing::switching_link(rx + "/1", tx + "/" + input, "Luce", nick_tx);
        links.AGGIUNGI_LINK();
    }

    // An installation of every kind of thing a run writes.
    void build_installation() {
        add("001211", 16);
        set("001211", 9, "modo", "II" + std::string(22, '0'));
        set("001211", 10, "modo", "II" + std::string(22, '0'));
        set("001211", 1, "riserva3",
            "00000000"
            "007000020010010030");
        for (int campo = 1; campo <= 8; ++campo)
            set("001211", campo, "modo", (campo == 5 ? "T" : "M") + std::string(23, '0'));
        set("001211", 5, "riserva2", "010002060" + std::string(41, '0'));

        add("00201E", 12, "OUT_SERIALE");
        set("00201E", 10, "riserva2", "05Relè");
        set("00201E", 10, "riserva3", "Già");

        add("00301A", 9);
        set("00301A", 1, "dati_aggiuntivi1", "AAAA11BBBB22");

        add("00404A", 9);
        add("A1B228", 1);
        set("A1B228", 1, "riserva4", "00404A");
        set("A1B228", 1, "modo", "R" + std::string(23, '0'));  // a remote's button

        // Texts and cards only where set above.
        sql("UPDATE nick SET riserva2 = '', riserva3 = '' WHERE tipologia = 'OUT_SERIALE' "
            "AND NOT (codice = '00201E' AND campo = '10')");
        sql("UPDATE nick SET dati_aggiuntivi1 = '' WHERE dati_aggiuntivi1 IS NULL");

        add_link("001211", "001211", "Pulsante", "1");
        add_link("00301A", "001211", "Pulsante 2", "2");
        add_link("001211", "FFFE00", "NET_GATE", "5");
    }

    // The records of the links, from the link list of filo-cli.
    std::vector<std::string> link_records() {
        const auto r = cli({"links", file.string()});
        EXPECT_EQ(r.exit_code, 0) << r.err;
        std::vector<std::string> records;
        for (const std::string& line : testing::lines_of(r.out)) {
            const auto frame = line.substr(line.find(' ') + 1);
            records.push_back(frame.substr(4, frame.size() - 5));  // "(", checksum, "1" ... "]"
        }
        return records;
    }

    testing::TempDir dir;
    std::filesystem::path file;
    store::Project project;
    store::ModuleTable table{project};
};

TEST_F(ProgramSimTest, TheModulesHoldWhatTheProjectSays) {
    build_installation();
    SimProcess sim({"--project", file.string(), "--dump", (dir / "dump.json").string()});
    const auto run = cli({"program", file.string(), "--port", sim.port()});
    ASSERT_EQ(run.exit_code, 0) << run.out << run.err;
    ASSERT_EQ(sim.stop(), 0) << sim.errors();
    const json d = dump();
    const json& m = d["modules"];

    EXPECT_EQ(m["001211"]["reset"], "68");
    EXPECT_EQ(m["001211"]["registers"],
              json({{"67", "03"}, {"EC", "07"}, {"74", "0A"}, {"7C", "02"}, {"D4", "3C"}}));
    EXPECT_EQ(m["001211"]["tipologie"], "000000000010");
    EXPECT_EQ(m["00201E"]["texts"], json({{"03", "5Relè"}, {"04", "Già"}}));
    EXPECT_EQ(m["00301A"]["cards"], json::parse(R"([{"list":1,"entry":"AAAA11"},
                                                    {"list":1,"entry":"BBBB22"}])"));
    EXPECT_EQ(m["00404A"]["remotes"], json({{"1", "A1B2"}}));
    EXPECT_FALSE(m.contains("A1B228"));  // a remote has no place on the bus
    EXPECT_EQ(d["links"], json(link_records()));
    // The gateway's temperature preset for the input of its link.
    bool preset = false;
    for (const auto& frame : d["bus"]) {
        const std::string f = frame;
        preset |= f.size() > 6 && f.substr(3) == "8FFFE0581]";
    }
    EXPECT_TRUE(preset);
    EXPECT_EQ(d["programming"]["closed"], 3);
    EXPECT_EQ(d["rejected"], 0);

    // The report of the run was saved in the data directory.
    int reports = 0;
    for (const auto& entry : std::filesystem::directory_iterator(home()))
        reports += entry.path().string().ends_with(" REPORT.txt");
    EXPECT_EQ(reports, 1);
}

TEST_F(ProgramSimTest, PanelMessagesReachThePanelAsTheHalvesOfTheirRecords) {
    // Written as the panel window writes them.
    texts::LanguageTables texts;
    store::LinkTable links(project);
    modules::MessageEditor panel(table, links, texts);
    table.set_codice_modulo("00501E");
    panel.load();
    panel.Text4_Change("Pannello");
    panel.Text1_Change("Porta");
    panel.RichTextBox1_Change("\\bCittà chiusa!");
    panel.Combo1_DropDown();
    panel.Combo1_Click(1);
    const std::string x(40, 'x'), y(30, 'y');
    panel.Text1_Change("Lungo");
    panel.RichTextBox1_Change("\\d" + x + "\\h" + y);  // beyond the 61 characters of text
    panel.Combo4_Click(3);
    panel.Combo1_DropDown();
    panel.Check2_Click(true);  // the idle message
    panel.RichTextBox1_Change("\\aChiuso");
    panel.Combo4_Click(0);
    ASSERT_TRUE(panel.SALVA_INTERFACCIA());

    SimProcess sim({"--project", file.string(), "--dump", (dir / "dump.json").string()});
    const auto run = cli({"program", file.string(), "--port", sim.port()});
    ASSERT_EQ(run.exit_code, 0) << run.out << run.err;
    ASSERT_EQ(sim.stop(), 0) << sim.errors();
    // Message n in records 2n-1 and 2n; the persistence packed into one
    // character (15 + 48 is "?"); an empty half is not sent.
    EXPECT_EQ(dump()["modules"]["00501E"]["texts"],
              json({{"01", "4B\\bCittà chiusa!"},
                    {"03", "?V\\d" + x.substr(0, 27)},
                    {"04", x.substr(0, 13) + "\\h" + y.substr(0, 17)},
                    {"C3", "2B\\aChiuso"}}));
}

TEST_F(ProgramSimTest, ASilentModuleIsReportedAndTheRestIsProgrammed) {
    build_installation();
    SimProcess sim(
        {"--project", file.string(), "--dump", (dir / "dump.json").string(), "--silent", "00404A"});
    const auto run = cli({"program", file.string(), "--port", sim.port()});
    EXPECT_EQ(run.exit_code, 3) << run.err;
    // The reset and the two halves of its remote: each line once in the failures.
    EXPECT_EQ(run.out.substr(0, run.out.find(home().string())),
              "Modulo n° 00404A reset NO\n"
              "Modulo n° 00404A autoapprendimento NO\n"
              "Modulo n° 00404A autoapprendimento NO\n");
    EXPECT_NE(run.out.find("UNO O PIU' MODULI NON HANNO RISPOSTO"), std::string::npos);
    ASSERT_EQ(sim.stop(), 0);
    EXPECT_EQ(dump()["modules"]["00201E"]["texts"].size(), 2u);
    EXPECT_EQ(dump()["links"], json(link_records()));
}

TEST_F(ProgramSimTest, AfterTenFailuresTheInstallersAnswerStopsTheRun) {
    // Twelve modules that are not there: the question comes at the eleventh reset.
    for (int i = 0; i < 12; ++i) add("00A" + std::string(1, "0123456789AB"[i]) + "11", 16);
    add("00B011", 16);
    add_link("00B011", "00B011", "Pulsante", "1");
    SimProcess sim({"--modules", "00B011", "--dump", (dir / "dump.json").string()});
    const auto run = cli({"program", file.string(), "--port", sim.port(), "--on-errors", "stop"});
    EXPECT_EQ(run.exit_code, 3);
    EXPECT_NE(run.out.find("Programmazione sospesa dopo dieci trame"), std::string::npos)
        << run.out;
    EXPECT_EQ(run.out.find("dall'utente"), std::string::npos) << run.out;
    ASSERT_EQ(sim.stop(), 0);
    const json d = dump();
    EXPECT_EQ(d["modules"]["00B011"]["resets"], 1);  // the phase in hand ran to its end
    EXPECT_TRUE(d["links"].empty());
    EXPECT_EQ(d["programming"]["closed"], 3);
}

TEST_F(ProgramSimTest, APortThatGoesMidRunLeavesAReportOfWhereTheRunStopped) {
    build_installation();
    auto sim = std::make_unique<SimProcess>(std::vector<std::string>{"--project", file.string()});
    const std::string port = sim->port();
    // One second in, the run is in the reset phase's pause of two seconds.
    std::thread pull_out([&sim] {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        sim.reset();
    });
    const auto run = cli({"program", file.string(), "--port", port});
    pull_out.join();
    EXPECT_EQ(run.exit_code, 3) << run.err;
    std::filesystem::path saved;
    for (const auto& entry : std::filesystem::directory_iterator(home()))
        if (entry.path().string().ends_with(" REPORT.txt")) saved = entry.path();
    ASSERT_FALSE(saved.empty());
    EXPECT_NE(run.err.find(saved.string()), std::string::npos) << run.err;
    const std::string report = testing::read_file(saved);
    EXPECT_NE(report.find("\r\nPROGRAMMAZIONE INTERROTTA, NON ARRIVATA ALLA FINE: La porta seriale "
                          "non risponde più"),
              std::string::npos)
        << report;
    EXPECT_NE(report.find("\r\nInterrotta nella fase: "), std::string::npos) << report;
    EXPECT_NE(report.find(", Testi, CARD, Associazioni, preset temperatura"), std::string::npos)
        << report;
    EXPECT_EQ(run.out.find("PROGRAMMAZIONE TERMINATA"), std::string::npos) << run.out;
}

TEST_F(ProgramSimTest, CtrlCStopsTheRunAtItsNextStopTestAndItStillCloses) {
    build_installation();
    SimProcess sim({"--project", file.string(), "--dump", (dir / "dump.json").string()});
    // SIGINT one second in: within the reset phase's pause of two seconds.
    const std::string command = "FILO_HOME='" + home().string() +
                                "' timeout --preserve-status -s INT 1 '" +
                                testing::program_path("filo-cli").string() + "' program '" +
                                file.string() + "' --port '" + sim.port() + "' > /dev/null";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 3);
    ASSERT_EQ(sim.stop(), 0);
    const json d = dump();
    EXPECT_EQ(d["modules"]["001211"]["resets"], 1);
    EXPECT_TRUE(d["modules"]["001211"]["registers"].empty());
    EXPECT_TRUE(d["links"].empty());
    EXPECT_EQ(d["programming"]["closed"], 3);
}

}  // namespace
}  // namespace filo
