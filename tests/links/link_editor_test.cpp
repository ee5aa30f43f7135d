#include "links/link_editor.hpp"

#include <gtest/gtest.h>

#include "store/link_queries.hpp"
#include "store/point_fixture.hpp"

namespace filo::links {
namespace {

using testing::add_module;

class LinkEditorTest : public testing::PointTest {
  protected:
    LinkEditorTest() {
        add_module(table, "001A11", 16, "Ingressi");
        name("001A11", 2, "Pulsante");
        add_module(table, "002B15", 16, "Luci");
        name("002B15", 11, "Luce");
    }
    // Selects the input and output rows (module row numbers) and a mode.
    void pair(const std::string& tx, int tx_row, const std::string& rx, int rx_row,
              std::int64_t tx_block = 0) {
        ASSERT_TRUE(editor.select_command(id(tx, tx_row) + tx_block, "cmd"));
        ASSERT_TRUE(editor.select_user(id(rx, rx_row), "user"));
    }
    std::vector<store::LinkRow> saved() {
        std::vector<store::LinkRow> rows;
        auto q = project.database().prepare("SELECT ID FROM associazioni ORDER BY ID");
        while (q.step()) {
            store::LinkRow r;
            links.read_row(q.integer(0), r);
            rows.push_back(r);
        }
        return rows;
    }

    store::LinkQueries queries{project, links, texts};
    LinkEditor editor{table, links, queries, texts};
};

TEST_F(LinkEditorTest, AStepPushbuttonLinkIsAMainRowAndItsSecondPage) {
    pair("001A11", 2, "002B15", 11);
    EXPECT_EQ(editor.check(), LinkEditor::Check::Modes);
    EXPECT_FALSE(editor.ready());
    ASSERT_TRUE(editor.select_mode(2));
    std::vector<std::int64_t> ids;
    ASSERT_EQ(editor.COLLEGA(false, &ids), LinkEditor::Save::Saved);
    const std::vector<store::LinkRow> rows = saved();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(ids, (std::vector<std::int64_t>{rows[0].ID, rows[1].ID}));
    store::LinkRow expected;
    expected.ID = rows[0].ID;
    expected.identificativoRX = "002B15/3";
    expected.numero_uscita = "3";
    expected.nick_ricevente = "Luce";
    expected.identificativoTX = "001A11/2";
    expected.numero_ingresso = "2";
    expected.nick_trasmittente = "Pulsante";
    expected.opzione = "P";
    expected.tempo_on1 = expected.tempo_on2 = expected.tempo_off1 = expected.tempo_off2 = "0";
    expected.modo_ = "000000112";
    expected.on_ = "251";
    expected.off_ = "8";
    expected.and_ = "00000000";
    expected.minuto = expected.ora = expected.giorno = "00";
    expected.settimana = "00000000";
    expected.dato13 = "000000";
    EXPECT_EQ(rows[0], expected);
    EXPECT_EQ(rows[1].note, "SECONDA PAGINA");
    EXPECT_EQ(rows[1].identificativoRX, "");
    EXPECT_EQ(rows[1].dato13, "000000");
}

TEST_F(LinkEditorTest, TimesAndTenthsAsStored) {
    add_module(table, "003C25", 16, "Dimmer");
    struct Case {
        const char* module;
        TimeEntry on, delay, off;
        const char* on1;
        const char* on2;
        const char* off1;
        const char* off2;
        const char* dato13;
        const char* settimana;
    } cases[] = {
        {"002B15", {1, 2, 3, 0}, {}, {0, 0, 5, 0}, "14", "139", "0", "0", "000005", "00000000"},
        {"002B15", {0, 0, 37, 9}, {}, {}, "0", "37", "0", "0", "000000", "00000000"},  // no tenths
        {"003C25", {0, 0, 37, 9}, {0, 0, 1, 5}, {}, "1", "123D", "0", "15D", "000000", "00110000"},
        {"003C25", {}, {}, {0, 6, 49, 0}, "0", "0", "0", "0", "001153", "00000000"},  // 409 s:
                                                                                      // seconds
        {"003C25",
         {17, 59, 59, 0},
         {},
         {0, 6, 48, 3},
         "253",
         "31",
         "0",
         "0",
         "015243D",
         "00001000"},
    };
    for (const Case& c : cases) {
        project.database().exec("DELETE FROM associazioni");
        pair("001A11", 2, c.module, 9);
        ASSERT_TRUE(editor.select_mode(1));
        EXPECT_TRUE(editor.boxes().time_on);
        editor.time_on = c.on;
        editor.delay_on = c.delay;
        editor.delay_off = c.off;
        ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
        const store::LinkRow r = saved().front();
        const std::string what = std::string(c.module) + " " + c.on2;
        EXPECT_EQ(r.tempo_on1, c.on1) << what;
        EXPECT_EQ(r.tempo_on2, c.on2) << what;
        EXPECT_EQ(r.tempo_off1, c.off1) << what;
        EXPECT_EQ(r.tempo_off2, c.off2) << what;
        EXPECT_EQ(r.dato13, c.dato13) << what;
        EXPECT_EQ(r.settimana, c.settimana) << what;
        EXPECT_EQ(saved()[1].dato13, c.dato13) << what;
    }
}

TEST_F(LinkEditorTest, TheLampOfAnIndicatorOutput) {
    add_module(table, "004D15", 16, "Spie", "SPIA");
    struct Case {
        LampSettings lamp;
        const char *on1, *on2, *off1, *off2;
    } cases[] = {
        {{}, "170", "170", "0", "0"},  // the alternating pattern of a new link
        {{LampSettings::Kind::Composite, "1111000000000001", 1, 1}, "240", "1", "0", "0"},
        {{LampSettings::Kind::Simple, "", 5, 7}, "0", "5", "0", "7"},
        {{LampSettings::Kind::Steady, "", 1, 1}, "0", "0", "0", "255"},
    };
    for (const Case& c : cases) {
        project.database().exec("DELETE FROM associazioni");
        pair("001A11", 2, "004D15", 9);
        ASSERT_TRUE(editor.select_mode(1));
        EXPECT_TRUE(editor.boxes().lamp);
        editor.lamp = c.lamp;
        ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
        const store::LinkRow r = saved().front();
        EXPECT_EQ(r.tempo_on1 + "," + r.tempo_on2 + "," + r.tempo_off1 + "," + r.tempo_off2,
                  std::string(c.on1) + "," + c.on2 + "," + c.off1 + "," + c.off2);
    }
    // From output 7 up the ordinary times stay.
    pair("001A11", 2, "004D15", 15);
    ASSERT_TRUE(editor.select_mode(1));
    EXPECT_FALSE(editor.boxes().lamp);
}

TEST_F(LinkEditorTest, MessagesOfAMessageModule) {
    pair("001A11", 2, "002B15", 11);
    ASSERT_TRUE(editor.select_user(0x100301E, "MESSAGGIO del modulo Pannello"));
    EXPECT_EQ(editor.UTILIZZATORE, "MESSAGGI");
    ASSERT_TRUE(editor.select_mode(4));  // "Pulsante solo spegne"
    EXPECT_FALSE(editor.boxes().frame9);
    EXPECT_EQ(editor.COLLEGA(false), LinkEditor::Save::NoMessages);
    EXPECT_TRUE(saved().empty());
    editor.messages.set(0);
    editor.messages.set(95);
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    const store::LinkRow r = saved().front();
    EXPECT_EQ(r.identificativoRX, "00301E/0");
    EXPECT_EQ(r.modo_, "110000004");
    EXPECT_EQ(read_message_bits(r), editor.messages);
}

TEST_F(LinkEditorTest, DimmerAndRgbLinksCarryTheirChannelRows) {
    kind("001A11", 3, 'K');
    name("001A11", 3, "Regolatore");
    add_module(table, "005E25", 16, "Dimmer", "DIMMER");
    name("005E25", 9, "Faretti");
    add_module(table, "006F26", 16, "Strip", "RGB");
    name("006F26", 9, "Rosso");
    name("006F26", 10, "Verde");
    name("006F26", 11, "Blu");

    pair("001A11", 3, "005E25", 9);
    ASSERT_TRUE(editor.select_mode(1));  // "Regola la luminosità ambiente"
    ASSERT_TRUE(editor.ready());
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    std::vector<store::LinkRow> rows = saved();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].opzione, "K");
    EXPECT_EQ(rows[0].modo_, "001000101");
    const store::LinkRow& ch = rows[1];
    EXPECT_EQ(ch.nick_trasmittente, "SECONDA RIGA");
    EXPECT_EQ(ch.identificativoTX, "001A11/131");
    EXPECT_EQ(ch.numero_uscita, "9");
    EXPECT_EQ(ch.tempo_off2 + "," + ch.tempo_off1 + "," + ch.tempo_on2 + "," + ch.tempo_on1 + "," +
                  ch.minuto,
              "1,1,10,10,200");
    EXPECT_EQ(ch.modo_, "00000010");  // the source is a regulator

    project.database().exec("DELETE FROM associazioni");
    pair("001A11", 3, "006F26", 9);
    ASSERT_TRUE(editor.select_mode(1));
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    rows = saved();
    ASSERT_EQ(rows.size(), 6u);
    const char* outputs[] = {"006F26/1", "006F26/2", "006F26/3"};
    for (int c = 0; c < 3; ++c) {
        EXPECT_EQ(rows[2 * c].identificativoRX, outputs[c]);
        EXPECT_EQ(rows[2 * c + 1].opzione, "+");
        EXPECT_EQ(rows[2 * c + 1].numero_uscita, std::to_string(c + 1 + 8));
    }
    EXPECT_EQ(rows[4].nick_ricevente, "Blu");
}

TEST_F(LinkEditorTest, RefusedPairsAndModesThatNeedTheAdvancedOptions) {
    name("002B15", 11, "Pulsante");  // the same name on both sides
    ASSERT_TRUE(editor.select_command(id("001A11", 2), "Pulsante"));
    ASSERT_TRUE(editor.select_user(id("002B15", 11), "Pulsante"));
    EXPECT_EQ(editor.check(), LinkEditor::Check::Refused);
    EXPECT_EQ(editor.COMANDO, "");  // the side chosen earlier goes
    EXPECT_EQ(editor.UTILIZZATORE, "Pulsante");

    kind("001A11", 4, 'J');
    name("001A11", 4, "Sonda");
    ASSERT_TRUE(editor.select_command(id("001A11", 4), "Sonda"));
    ASSERT_TRUE(editor.select_mode(1));  // heating on a fixed value
    EXPECT_TRUE(editor.needs_advanced_options());
    EXPECT_EQ(editor.COLLEGA(false), LinkEditor::Save::NeedsAdvanced);
    EXPECT_TRUE(saved().empty());
}

TEST_F(LinkEditorTest, AnExistingPairIsReplacedOnlyWhenAsked) {
    pair("001A11", 2, "002B15", 11);
    ASSERT_TRUE(editor.select_mode(2));
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    const std::int64_t first = saved().front().ID;

    pair("001A11", 2, "002B15", 11);
    EXPECT_EQ(editor.stored_mode, 2);
    ASSERT_TRUE(editor.select_mode(1));
    EXPECT_EQ(editor.COLLEGA(false), LinkEditor::Save::Exists);
    EXPECT_EQ(editor.existing_id, first);
    EXPECT_EQ(saved().front().modo_, "000000112");
    ASSERT_EQ(editor.COLLEGA(true), LinkEditor::Save::Saved);
    const std::vector<store::LinkRow> rows = saved();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].modo_, "000000101");
}

TEST_F(LinkEditorTest, ALinkLandsWholeOrNotAtAll) {
    project.database().exec(
        "CREATE TRIGGER fail BEFORE INSERT ON associazioni WHEN NEW.note = 'SECONDA PAGINA' "
        "BEGIN SELECT RAISE(ABORT, 'disk full'); END");
    pair("001A11", 2, "002B15", 11);
    ASSERT_TRUE(editor.select_mode(2));
    EXPECT_ANY_THROW(editor.COLLEGA(false));
    EXPECT_TRUE(saved().empty());
}

// An event of a set starts a link as its marker; the events of a simple
// module keep off the relays that take part in them.
TEST_F(LinkEditorTest, AggregateEventsStartLinksByTheirMarkers) {
    name("001A11", 9, "Lampada");
    // TUTTI of set b of module 002B15, as the list of commands offers it.
    ASSERT_TRUE(editor.select_command(id("002B15", 1) + 1000000, "Notte   TUTTI Veri"));
    ASSERT_TRUE(editor.select_user(id("001A11", 9), "Lampada"));
    ASSERT_EQ(editor.check(), LinkEditor::Check::Modes);
    ASSERT_TRUE(editor.select_mode(1));
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    const store::LinkRow stored = saved().front();
    EXPECT_EQ(stored.identificativoTX + " " + stored.nick_trasmittente + " " + stored.opzione,
              "002B15/29 TUTTIb ES");

    add_module(table, "003C48", 16, "Scenari");
    set("003C48", 1, "riserva3", "01000000" + std::string(18, '0'));  // relay 2 takes part
    name("003C48", 9, "Uno");
    name("003C48", 10, "Due");
    for (const auto& [row, check] :
         {std::pair{9, LinkEditor::Check::Modes}, std::pair{10, LinkEditor::Check::Refused}}) {
        ASSERT_TRUE(editor.select_command(id("003C48", 1) + 400000, "Scenari"));
        ASSERT_TRUE(editor.select_user(id("003C48", row), "relay"));
        EXPECT_EQ(editor.check(), check) << row;
    }
}

}  // namespace
}  // namespace filo::links
