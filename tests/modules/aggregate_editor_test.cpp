// ASSOCIA's rules on the sets of TUTTI and ALMENO1, on the shared record.
#include "modules/aggregate_editor.hpp"

#include <gtest/gtest.h>

#include "store/link_table.hpp"
#include "store/store_fixture.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

class AggregateEditorTest : public testing::StoreTest {
  protected:
    // Module `code`, rows 9 up named by `names` ("" for none), read into the
    // shared record as the module window holds it.
    void module(const std::string& code, const std::vector<std::string>& names) {
        testing::add_module(table, code, 32, "Quadro", "RELE");
        for (std::size_t k = 0; k < names.size(); ++k)
            testing::set_column(project, code, static_cast<int>(k + 9), "nick", names[k]);
        table.LEGGI_MODULO(code);
        table.set_codice_modulo(code);
    }
    const std::string& riserva3(int r) { return table.RIGHE_MODULO.riga(r).riserva3; }

    texts::LanguageTables texts;
};

TEST_F(AggregateEditorTest, TheFullPageKeepsEachSetItsRulesAndItsRows) {
    module("000115", {"Luce", "Cappa", "", "Scale", "", "", "", "", "Notte"});
    AggregateEditor e(table, texts);
    ASSERT_TRUE(e.full);
    EXPECT_EQ(e.Check2[28].caption, "Relè 4 Scale");  // four relays on type 15
    EXPECT_EQ(e.Check2[33].caption, "Flag 9 Notte");
    EXPECT_FALSE(e.Check2_Click(3, true));  // a point without a name can't take part
    EXPECT_FALSE(e.Check3_Click(2, true));  // no participant yet
    for (int n : {1, 25, 33}) EXPECT_TRUE(e.Check2_Click(n, true));
    EXPECT_FALSE(e.Check2[1].ticked);   // "spenti" took the tick from "accesi"
    EXPECT_FALSE(e.Check3[9].enabled);  // a participant can't react
    EXPECT_FALSE(e.Check3[3].enabled);  // nor an unnamed relay
    for (int n : {2, 12}) EXPECT_TRUE(e.Check3_Click(n, true));
    e.Option3_Click(0);
    e.Text5_Change("Notte'tutta");  // name characters only, eight at most

    // To b and back before any CONFERMA.
    e.Option5_Click(2);
    EXPECT_EQ(riserva3(2).substr(24, 9), "100000001");
    EXPECT_EQ(riserva3(3).substr(0, 17), "01000000000100001");
    EXPECT_EQ(table.RIGHE_MODULO.riga(2).riserva, "Nottetut");
    EXPECT_FALSE(e.Check2[25].ticked);
    EXPECT_TRUE(e.Check3[1].enabled);  // b has no participant
    e.Option5_Click(1);
    EXPECT_TRUE(e.Check2[25].ticked && e.Check3[2].ticked && e.or_logic);
    EXPECT_EQ(e.Text5, "Nottetut");

    // The last participant goes with the reactions and the name; "K" is no name.
    for (int n : {33, 25}) EXPECT_TRUE(e.Check2_Click(n, false));
    EXPECT_FALSE(e.Check3[2].ticked);
    EXPECT_EQ(e.Text5, "");
    EXPECT_TRUE(e.Check2_Click(2, true));
    e.Text5_Change("K");
    EXPECT_TRUE(e.Label35_Click());
    EXPECT_EQ(table.RIGHE_MODULO.riga(2).riserva, "");
    EXPECT_EQ(riserva3(2).substr(0, 2), "01");
}

TEST_F(AggregateEditorTest, TheSimplePageTicksNamedRelaysOnly) {
    for (const char* type : {"48", "49"}) {
        SCOPED_TRACE(type);
        const std::string code = std::string("0003") + type;
        module(code, {"Luce", "", "Cappa"});
        // A tick left on a relay that lost its name doesn't load.
        table.RIGHE_MODULO.riga(1).riserva3 = "01000000007000020010010030";
        AggregateEditor e(table, texts);
        ASSERT_FALSE(e.full);
        EXPECT_FALSE(e.Check1[2].ticked);
        EXPECT_EQ(e.Check1[1].caption, "RELE  Luce");
        EXPECT_EQ(e.Check1[2].caption, ".......");
        EXPECT_FALSE(e.Check1_Click(2, true));
        EXPECT_TRUE(e.Check1_Click(3, true));
        EXPECT_TRUE(e.Label37_Click());
        EXPECT_EQ(riserva3(1), "00100000007000020010010030");  // the parameters stay
    }
}

TEST_F(AggregateEditorTest, TakingTheNameAwayFromLinkedEventsAsksFirst) {
    module("000215", {"Luce", "Cappa"});
    store::LinkTable links(project);
    // Two from set b; one from set a, one from set b of another module.
    for (const auto& [tx, marker] : {std::pair{"000215/28", "ALMENO1b"},
                                     {"000215/29", "TUTTIb"},
                                     {"000215/26", "ALMENO1a"},
                                     {"000315/28", "ALMENO1b"}}) {
        links.LINK_CORRENTE = testing::switching_link("009911/1", tx, "Luce ", marker);
        links.AGGIUNGI_LINK();
    }
    table.RIGHE_MODULO.riga(4).riserva = "Notte";
    table.RIGHE_MODULO.riga(4).riserva3[0] = '1';
    int asked = -1;
    bool answer = false;
    AggregateEditor e(table, texts);
    e.confirm_name_removal = [&](int links) {
        asked = links;
        return answer;
    };
    e.Option5_Click(2);
    e.Text5_Change("");
    e.Option5_Click(1);  // No: the name stays
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(table.RIGHE_MODULO.riga(4).riserva, "Notte");

    e.Option5_Click(2);
    asked = -1;
    EXPECT_FALSE(e.Check2_Click(1, false));  // the last participant stays
    EXPECT_EQ(asked, 2);
    answer = true;
    EXPECT_TRUE(e.Check2_Click(1, false));
    e.Label35_Click();
    EXPECT_EQ(table.RIGHE_MODULO.riga(4).riserva, "");

    // A set that no link starts from loses its name without a question.
    asked = -1;
    e.Option5_Click(3);
    ASSERT_TRUE(e.Check2_Click(2, true));
    e.Text5_Change("Giorno");
    ASSERT_TRUE(e.Check2_Click(2, false));
    EXPECT_EQ(asked, -1);
}

}  // namespace
}  // namespace filo::modules
