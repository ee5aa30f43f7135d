#include "links/link_editor.hpp"

#include <gtest/gtest.h>

#include "store/link_queries.hpp"
#include "store/point_fixture.hpp"
#include "support/sample_project.hpp"

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
    const std::vector<store::LinkRow> rows = saved_links();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(ids, (std::vector<std::int64_t>{rows[0].ID, rows[1].ID}));
    // Mode 2 with the editor's values for a new link, as the shared sample gives them.
    store::LinkRow expected = testing::switching_link("002B15/3", "001A11/2", "Luce", "Pulsante");
    expected.ID = rows[0].ID;
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
        const char* stored;  // tempo_on1, tempo_on2, tempo_off1, tempo_off2, dato13, settimana
    } cases[] = {
        {"002B15", {1, 2, 3, 0}, {}, {0, 0, 5, 0}, "14,139,0,0,000005,00000000"},
        {"002B15", {0, 0, 37, 9}, {}, {}, "0,37,0,0,000000,00000000"},  // no tenths
        {"003C25", {0, 0, 37, 9}, {0, 0, 1, 5}, {}, "1,123D,0,15D,000000,00110000"},
        {"003C25", {}, {}, {0, 6, 49, 0}, "0,0,0,0,001153,00000000"},  // 409 s: seconds
        {"003C25", {17, 59, 59, 0}, {}, {0, 6, 48, 3}, "253,31,0,0,015243D,00001000"},
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
        const std::vector<store::LinkRow> rows = saved_links();
        const store::LinkRow& r = rows.front();
        EXPECT_EQ(r.tempo_on1 + "," + r.tempo_on2 + "," + r.tempo_off1 + "," + r.tempo_off2 + "," +
                      r.dato13 + "," + r.settimana,
                  c.stored);
        EXPECT_EQ(rows[1].dato13, r.dato13) << c.stored;
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
        const store::LinkRow r = saved_links().front();
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
    EXPECT_TRUE(saved_links().empty());
    editor.messages.set(0);
    editor.messages.set(95);
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    const store::LinkRow r = saved_links().front();
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
    std::vector<store::LinkRow> rows = saved_links();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].opzione, "K");
    EXPECT_EQ(rows[0].modo_, "001000101");
    // The channel row; its modo marks the source as a regulator.
    EXPECT_EQ(testing::filled_columns(rows[1]),
              "identificativoRX=005E25/1 identificativoTX=001A11/131 numero_uscita=9 "
              "nick_ricevente=Faretti numero_ingresso=131 nick_trasmittente=SECONDA RIGA "
              "opzione=+ tempo_on1=10 tempo_on2=10 modo_=00000010 tempo_off1=1 tempo_off2=1 "
              "and=00000000 minuto=200 ora=00 giorno=00 settimana=00000000 dato13=000000");

    project.database().exec("DELETE FROM associazioni");
    pair("001A11", 3, "006F26", 9);
    ASSERT_TRUE(editor.select_mode(1));
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    rows = saved_links();
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
    EXPECT_TRUE(saved_links().empty());
}

TEST_F(LinkEditorTest, AnExistingPairIsReplacedOnlyWhenAsked) {
    pair("001A11", 2, "002B15", 11);
    ASSERT_TRUE(editor.select_mode(2));
    ASSERT_EQ(editor.COLLEGA(false), LinkEditor::Save::Saved);
    const std::int64_t first = saved_links().front().ID;

    pair("001A11", 2, "002B15", 11);
    EXPECT_EQ(editor.stored_mode, 2);
    ASSERT_TRUE(editor.select_mode(1));
    EXPECT_EQ(editor.COLLEGA(false), LinkEditor::Save::Exists);
    EXPECT_EQ(editor.existing_id, first);
    EXPECT_EQ(saved_links().front().modo_, "000000112");
    ASSERT_EQ(editor.COLLEGA(true), LinkEditor::Save::Saved);
    const std::vector<store::LinkRow> rows = saved_links();
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
    EXPECT_TRUE(saved_links().empty());
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
    const store::LinkRow stored = saved_links().front();
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
