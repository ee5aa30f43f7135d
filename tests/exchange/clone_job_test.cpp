#include "exchange/clone_job.hpp"

#include <gtest/gtest.h>

#include "bus/module_code.hpp"
#include "clone_fixture.hpp"

namespace filo::testing {
namespace {

using exchange::CloneJob;
using exchange::CloneRequest;
using exchange::CloneSample;
using texts::Text;

CloneRequest request(const std::string& number, const std::string& prefix = "01") {
    CloneRequest r{.group = "Villa", .number = number, .codes = {}, .check_digits = true};
    for (const char* code : kCloneCodes)
        r.codes.push_back(bus::printed_code(prefix + std::string(code).substr(2)));
    return r;
}

std::int64_t count(store::Project& p, const std::string& query) {
    auto q = p.database().prepare(query);
    q.step();
    return q.integer(0);
}

class CloneJobTest : public CloneTest {
  protected:
    void SetUp() override {
        ASSERT_FALSE(cloned.open(sample));
        project.open(target);
    }
    CloneSample cloned;
    store::Project project;
    store::ModuleTable table{project};
    CloneJob job{cloned, table};
};

TEST_F(CloneJobTest, ListsLiveModulesAndMarksWhatItCopies) {
    ASSERT_EQ(cloned.N_RIGHE_CLONE(), 4);  // the deleted module isn't offered
    EXPECT_EQ(cloned.rows[1].item, "00021A  Lettore");
    EXPECT_EQ(cloned.rows[3].type_label, "TR-23");

    const exchange::CloneOutcome out = job.prepare(request("1"));
    ASSERT_FALSE(out.refused());
    ASSERT_EQ(out.plan.modules.size(), 4u);
    const store::ModuleRecord& relays = out.plan.modules[0];
    EXPECT_EQ(relays.M_NICK_NUMERICO, "3");
    EXPECT_EQ(out.plan.modules[3].M_NICK_NUMERICO, "6");
    EXPECT_EQ(relays.riga(1).codice, "01011F");
    EXPECT_EQ(relays.riga(1).nick, "Pulsante cucina>Villa 1");
    EXPECT_EQ(relays.riga(2).nick, "");  // an empty name stays empty
    EXPECT_EQ(relays.riga(2).note, "Clone_Villa <1> Cucina");
    EXPECT_EQ(relays.riga(1).riserva, "");
    EXPECT_EQ(out.plan.modules[1].riga(1).riserva, "1");  // a reader's group is its clone
    EXPECT_EQ(out.plan.modules[2].riga(1).connesso, ".I......");

    ASSERT_EQ(out.plan.links.size(), 4u);
    const auto& l = out.plan.links;
    EXPECT_EQ(l[0].identificativoRX, "01011F/9");
    EXPECT_EQ(l[0].identificativoTX, "01011F/1");
    EXPECT_EQ(l[0].nick_ricevente, "Luce d'ingresso>Villa 1");
    EXPECT_EQ(l[0].nick_trasmittente, "Pulsante cucina>Villa 1");
    EXPECT_EQ(l[1], store::second_page(l[0]));  // a second page passes as it is
    EXPECT_EQ(l[2].identificativoTX, "01021A/1");
    EXPECT_EQ(l[3].identificativoTX, "FFFEFF/5");  // a gateway keeps its code
    EXPECT_EQ(l[3].nick_trasmittente, "NET_GATE");
}

TEST_F(CloneJobTest, TwoClonesInARowTakeNewNumbersAndCodes) {
    const exchange::CloneOutcome first = job.prepare(request("1"));
    ASSERT_FALSE(first.refused());
    job.write(first.plan);
    for (std::size_t i = 0; i < first.plan.modules.size(); ++i) {
        std::vector<store::NickRow> stored = table.read_rows(kCloneCodes[i]);
        for (store::NickRow& r : stored) r.ID = 0;
        EXPECT_EQ(stored, first.plan.modules[i].rows) << kCloneCodes[i];
    }

    const exchange::CloneOutcome again = job.prepare(request("1"));
    EXPECT_EQ(again.refused_codes.size(), 4u);  // the codes are taken now
    EXPECT_EQ(again.refused_codes[0].message.message, Text::MODULE_ALREADY_EXISTS);
    const exchange::CloneOutcome same_number = job.prepare(request("1", "02"));
    ASSERT_TRUE(same_number.refusal);
    EXPECT_EQ(same_number.refusal->message, Text::CLONE_NUMBER_EXISTS);

    const exchange::CloneOutcome second = job.prepare(request("2", "02"));
    ASSERT_FALSE(second.refused());
    job.write(second.plan);
    EXPECT_EQ(table.read_rows("02011F").at(0).nick, "Pulsante cucina>Villa 2");
    EXPECT_EQ(table.read_rows("01011F").at(0).nick, "Pulsante cucina>Villa 1");
    EXPECT_EQ(count(project, "SELECT MAX(nick_numerico) FROM nick"), 10);
    EXPECT_EQ(count(project, "SELECT COUNT(*) FROM associazioni"), 8);
}

TEST_F(CloneJobTest, AFailedWriteLeavesTheProjectAsItWas) {
    const exchange::CloneOutcome out = job.prepare(request("1"));
    ASSERT_FALSE(out.refused());
    project.database().exec(
        "CREATE TRIGGER stop BEFORE INSERT ON associazioni WHEN NEW.nick_trasmittente = "
        "'NET_GATE' BEGIN SELECT RAISE(ABORT, 'disk full'); END");
    const auto rows = count(project, "SELECT COUNT(*) FROM nick");
    EXPECT_THROW(job.write(out.plan), sqlite::SqlError);
    EXPECT_EQ(count(project, "SELECT COUNT(*) FROM nick"), rows);
    EXPECT_EQ(count(project, "SELECT COUNT(*) FROM associazioni"), 0);
}

TEST_F(CloneJobTest, CodeAndNumberChecks) {
    job.CERCA_MODULI();
    struct Case {
        int row;
        std::string typed;
        bool check_digits;
        std::optional<Text> refused;
    };
    const std::string good = bus::printed_code("01011F");
    const Case cases[] = {
        {1, good, true, std::nullopt},
        {1, "01011f" + good.substr(6), true, std::nullopt},  // lower case is filtered
        {1, "01011F00", true, Text::CODE_NOT_CORRECT},
        {1, "01011F00", false, std::nullopt},
        {1, bus::printed_code("01021A"), true, Text::MODULE_TYPE_NOT_COMPATIBLE},
        {1, bus::printed_code("00011F"), true, Text::MODULE_ALREADY_EXISTS},
        {1, good.substr(0, 7), true, Text::CODE_NOT_CORRECT},
        {1, "01011G00", false, Text::CODE_NOT_CORRECT},
        {1, "", true, Text::CLONE_ENTER_CODE},
        {4, bus::printed_code("010123"), true, std::nullopt},
    };
    for (const Case& c : cases) {
        auto m = job.check_code(c.row, c.typed, c.check_digits);
        EXPECT_EQ(m ? std::optional<Text>(m->message) : std::nullopt, c.refused) << c.typed;
    }
    const std::pair<std::string, std::optional<Text>> numbers[] = {
        {"", Text::ENTER_CLONE_NUMBER},
        {"0", Text::ENTER_CLONE_NUMBER},
        {"7", Text::CLONE_NUMBER_EXISTS},
        {"07", Text::CLONE_NUMBER_EXISTS},
        {"8", std::nullopt}};
    for (const auto& [number, refused] : numbers) {
        auto m = job.CONTROLLA_NUMERO_CLONE(number);
        EXPECT_EQ(m ? std::optional<Text>(m->message) : std::nullopt, refused) << number;
        EXPECT_EQ(job.CLONE_RIFIUTATO, refused.has_value());
    }
    EXPECT_EQ(exchange::refused_group_character("Villa °2 a-b_c/d.e,f"), "");
    EXPECT_EQ(exchange::refused_group_character("Villa è"), "è");
}

TEST_F(CloneTest, SampleChecksCountEveryModuleAndReaderPlace) {
    struct Case {
        std::string name;
        int extra_modules;
        std::string reader_place;
        std::optional<Text> refused;
    };
    const Case cases[] = {
        {"thirty", 25, ".E......", std::nullopt},  // 5 already, the deleted one counted
        {"thirty_one", 26, ".E......", Text::CLONE_SAMPLE_TOO_LARGE},
        {"unplaced_reader", 0, "........", Text::CLONE_READER_PLACE_UNDEFINED},
    };
    for (const Case& c : cases) {
        const auto file = make_empty_project(dir.path(), c.name);
        fill_clone_sample(file);
        {
            store::Project p;
            p.open(file);
            store::ModuleTable t(p);
            for (int i = 0; i < c.extra_modules; ++i)
                add_module(t, "20" + std::to_string(10 + i) + "1F", 9, "");
            set_column(p, "00021A", 1, "connesso", c.reader_place);
        }
        CloneSample s;
        auto m = s.open(file);
        EXPECT_EQ(m ? std::optional<Text>(m->message) : std::nullopt, c.refused) << c.name;
        EXPECT_EQ(s.N_RIGHE_CLONE(), c.refused ? 0 : 4 + c.extra_modules) << c.name;
    }
}

}  // namespace
}  // namespace filo::testing
