#include <gtest/gtest.h>

#include "store/channels.hpp"
#include "store/link_queries.hpp"
#include "store/point_fixture.hpp"
#include "store/point_lists.hpp"
#include "store/sqlite.hpp"
#include "store/text_match.hpp"

namespace filo::store {
namespace {

using testing::add_module;

const std::string kContatti = std::string(48, ' ') + "-------CONTATTI-------";
const std::string kVideo = std::string(44, ' ') + "-------VIDEOCITOFONO-------";
const std::string kRemoti = std::string(48, ' ') + "-------REMOTI--------";
const std::string kAnalogici = std::string(47, ' ') + "-------ANALOGICI---------";
const std::string kSensori = std::string(47, ' ') + "-------SENSORI-----------";
const std::string kTermostati = std::string(47, ' ') + "-------TERMOSTATI---------";
const std::string kSicurezza = std::string(50, ' ') + "------SICUREZZA------";
const std::string kCambioStato = std::string(32, ' ') + "-------EVENTI DI CAMBIO STATO---------";
const std::string kEventi = std::string(48, ' ') + "-------EVENTI---------";
const std::string kAggregazioni = std::string(47, ' ') + "-------AGGREGAZIONI---------";
constexpr std::int64_t H = kGroupHeaderItemData;

class PointListsTest : public testing::PointTest {
  protected:
    PointLists lists{project, texts};

    // Every family of output, a deleted relay and a message module.
    void outputs_project() {
        const char* modules[][4] = {{"000111", "32", "Quadro", "RELE"},
                                    {"000215", "10", "Spie", "SPIA"},
                                    {"000325", "11", "Strip", "RGB"},
                                    {"00040B", "9", "Dimmer", "DIMMER"},
                                    {"000520", "9", "Bus", "B_LUCE"},
                                    {"00061F", "9", "Presa", "MODULATORE"},
                                    {"000719", "9", "Sonda", "REGOLATORE"},
                                    {"FFF123", "9", "PAGINA 2 VIDEOCITOFONO", "VCITOF"},
                                    {"00081E", "11", "*Pannello", "OUT_SERIALE"}};
        for (auto& m : modules) add_module(table, m[0], std::stoi(m[1]), m[2], m[3]);
        const std::tuple<const char*, int, const char*> names[] = {
            {"000111", 9, "Luce sala "},  {"000111", 17, "Luce nove "},  // output 9
            {"000111", 10, "Spenta "},    {"000215", 9, "Spia cucina "},
            {"000325", 9, "Rosso "},      {"000325", 10, "Verde "},
            {"000325", 11, "Blu "},       {"00040B", 9, "Dimmer tavolo "},
            {"000520", 9, "Bus luce "},   {"00061F", 9, "Modulatore "},
            {"000719", 9, "Regolatore "}, {"FFF123", 9, "Cancello "},
            {"00081E", 9, "Msg uno"},     {"00081E", 10, "Msg due"}};
        for (auto& [code, campo, nick] : names) name(code, campo, nick);
        set("000111", 10, "riserva", "K");
    }

    // Inputs of every group, a power-line modulator and a card reader.
    void commands_project() {
        add_module(table, "001011", 32, "Ingressi", "RELE");
        const std::pair<char, const char*> inputs[] = {
            {'P', "Pulsante ingresso"}, {'T', "Tenuto scale"}, {'i', "Finestra"}, {'V', "Sonda"},
            {'L', "Luminosità"},        {'J', "Termostato"},   {'R', "Radio"}};
        for (int i = 0; i < 7; ++i) {
            kind("001011", i + 1, inputs[i].first);
            name("001011", i + 1, inputs[i].second);
        }
        set("001011", 1, "riserva3", "00000000005" + std::string(15, '0'));
        add_module(table, "00201F", 9, "Presa");
        name("00201F", 1, "Comando presa");
        name("00201F", 8, "(COMANDO) Presa ");
        name("00201F", 9, "Presa ");
        add_module(table, "00301A", 9, "Lettore");
        name("00301A", 1, "Lettore");
        add_module(table, "FFF023", 9, "PAGINA 1 VIDEOCITOFONO", "VCITOF");
        kind("FFF023", 1, 'v');
        name("FFF023", 1, "Chiamata");
    }
};

TEST_F(PointListsTest, OutputsComeByFamilyWithTheirBlocks) {
    outputs_project();
    lists.STATO_GRUPPO = "VUOTO";
    lists.CARICA_PUNTI_UTILIZZATORI();
    const std::vector<ListEntry> expected = {
        {"Luce nove ", id("000111", 17) + 100000},  // a relay from output 9 up
        {"Luce sala ", id("000111", 9)},
        {"Cancello ", id("FFF123", 9)},
        {"Spia cucina ", id("000215", 9) + 200000},
        {"RGB --->  Rosso   Verde   Blu ", id("000325", 9) + 500000},
        {"Dimmer tavolo ", id("00040B", 9) + 300000},
        {"Bus luce ", id("000520", 9) + 400000},
        {"Modulatore ", id("00061F", 9) + 600000},
        {"Regolatore ", id("000719", 9) + 700000},
        {"MESSAGGIO del modulo Pannello", 0x100081E},  // once, for two messages
        {"CREA GRUPPO", 0},
    };
    EXPECT_EQ(lists.Combo_UTILIZZATORI, expected);
}

TEST_F(PointListsTest, OutputFiltersAndGroupCommands) {
    outputs_project();
    struct Case {
        const char* what;
        PointFilters filters;
        std::string group;
        std::vector<std::string> texts;
    } cases[] = {
        {"a code, typed in small letters; messages are never filtered",
         {"00040b", "", "", ""},
         "",
         {"Dimmer tavolo ", "MESSAGGIO del modulo Pannello"}},
        {"a name in any case",
         {"", "LUCE", "", ""},
         "",
         {"Luce nove ", "Luce sala ", "Bus luce ", "MESSAGGIO del modulo Pannello"}},
        {"the name filter of RGB reads the whole entry",
         {"", "verde", "", ""},
         "",
         {"RGB --->  Rosso   Verde   Blu ", "MESSAGGIO del modulo Pannello"}},
        {"a group made: its two commands first",
         {"0002", "", "", ""},
         "CREATO",
         {"USA GRUPPO", "VISUALIZZA GRUPPO", "MESSAGGIO del modulo Pannello"}},
    };
    for (const Case& c : cases) {
        lists.filters = c.filters;
        lists.STATO_GRUPPO = c.group;
        lists.CARICA_PUNTI_UTILIZZATORI();
        std::vector<std::string> got;
        for (const ListEntry& e : lists.Combo_UTILIZZATORI) got.push_back(e.text);
        EXPECT_EQ(got, c.texts) << c.what;
    }
}

TEST_F(PointListsTest, CommandsComeByGroupWithHeadersAndHeldPushbuttons) {
    commands_project();
    lists.CARICA_PUNTI_TRASMITTENTI();
    const std::vector<ListEntry> expected = {
        {kContatti, H},
        {"Comando presa", id("00201F", 1)},  // its input 8 is the power-line command
        {"Finestra", id("001011", 3)},
        {"Lettore", id("00301A", 1) + 1400000},
        {"Pulsante ingresso", id("001011", 1)},
        {"Tenuto scale", id("001011", 2)},
        {"Pulsante tenuto    Tenuto scale", id("001011", 2) + 300000},
        {kVideo, H},
        {"Chiamata", id("FFF023", 1)},
        {kRemoti, H},
        {"Radio", id("001011", 7)},
        {kAnalogici, H},
        {"Sonda", id("001011", 4)},
        {kSensori, H},
        {"Luminosità", id("001011", 5)},
        {kTermostati, H},
        {"Termostato", id("001011", 6)},
        {kSicurezza, H},
        {"AVVISO PRESENZA modulo  001011", id("001011", 1) + 600000},
    };
    EXPECT_EQ(lists.Combo_COMANDI, expected);
}

TEST_F(PointListsTest, CommandFiltersKeepHeadersOnlyForEntriesShown) {
    commands_project();
    struct Case {
        const char* what;
        PointFilters filters;
        std::vector<std::string> texts;
    } cases[] = {
        {"a code keeps contacts, analogues, sensors and thermostats of that module only",
         {"", "", "00201F", ""},
         {kContatti, "Comando presa", kVideo, "Chiamata", kRemoti, "Radio", kSicurezza,
          "AVVISO PRESENZA modulo  001011"}},
        {"a name: the held entry follows its pushbutton",
         {"", "", "", "tenuto"},
         {kContatti, "Tenuto scale", "Pulsante tenuto    Tenuto scale"}},
        {"a pushbutton that the filter drops takes its held entry with it",
         {"", "", "", "pulsante"},
         {kContatti, "Pulsante ingresso"}},
        {"nothing found: no header at all", {"", "", "", "cantina"}, {}},
    };
    for (const Case& c : cases) {
        lists.filters = c.filters;
        lists.CARICA_PUNTI_TRASMITTENTI();
        std::vector<std::string> got;
        for (const ListEntry& e : lists.Combo_COMANDI) got.push_back(e.text);
        EXPECT_EQ(got, c.texts) << c.what;
    }
}

TEST_F(PointListsTest, NameFilterIgnoresCaseBothWays) {
    struct Case {
        const char* text;
        const char* filter;
        bool passes;
    } cases[] = {
        {"ABC", "abc", true},     {"abc", "ABC", true},      {"Luce Sala", "e s", true},
        {"Luce", "", true},       {"Luce", "luci", false},   {"ÈLITE", "èl", true},
        {"Città", "CITTÀ", true}, {"Città", "citta", false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(passes_name_filter(c.text, c.filter), c.passes) << c.text << " / " << c.filter;
}

TEST_F(PointListsTest, PresenceNeedsTheParameterAndGetsNullFixed) {
    add_module(table, "000111", 9, "Quadro");
    add_module(table, "000211", 9, "Quadro");
    name("000111", 1, "Uno");
    name("000211", 1, "Due");
    sql("UPDATE nick SET riserva3 = NULL WHERE codice = '000211' AND campo = '1'");
    lists.CARICA_PUNTI_TRASMITTENTI();
    EXPECT_EQ(lists.Combo_COMANDI.size(), 3u);  // contacts only: no parameter set
    EXPECT_EQ(count("SELECT COUNT(*) FROM nick WHERE riserva3 IS NULL"), 0);
}

TEST_F(PointListsTest, EventsAreListedOncePerLinkThatGivesThem) {
    add_module(table, "000111", 9, "Relè");
    name("000111", 9, "Luce ");
    name("000111", 1, "Pulsante");
    add_module(table, "000225", 11, "Strip", "RGB");
    name("000225", 9, "R1 ");
    name("000225", 10, "G1 ");
    name("000225", 11, "B1 ");
    add_module(table, "00030B", 9, "Dimmer", "DIMMER");
    name("00030B", 9, "Dimmer ");
    const std::string event = "000010001", plain = "000000001";
    link("000111/1", "Luce ", "000111/1", "Pulsante", event);
    link("000111/1", "LUCE ", "000111/2", "Altro", event);  // names compare without case
    link("000111/1", "Luce ", "000111/3", "Terzo", plain);
    link("000225/1", "R1 ", "000111/1", "Pulsante", event);
    link("00030B/1", "Dimmer ", "000111/1", "Pulsante", event);
    lists.CARICA_PUNTI_TRASMITTENTI_ESTESI();
    const std::vector<ListEntry> expected = {
        {kCambioStato, H},
        {"Evento Luce ", id("000111", 9) + 100000},
        {"Evento Luce ", id("000111", 9) + 100000},
        {kEventi, H},
        {"MASTER RGB --->  R1 --G1 --B1   ", id("000225", 11) + 1300000},
        {kEventi, H},
        {"Evento Dimmer ", id("00030B", 9) + 100000},
    };
    EXPECT_EQ(lists.Combo_COMANDI, expected);
}

TEST_F(PointListsTest, AggregationsOfScenesAndFlags) {
    add_module(table, "000148", 9, "Scenari");
    add_module(table, "000248", 9, "");
    add_module(table, "000348", 9, "Senza dati");
    add_module(table, "000411", 32, "Flag");
    set("000148", 1, "riserva3", "00000001" + std::string(18, '0'));
    set("000248", 1, "riserva3", "00000010" + std::string(18, '0'));
    sql("UPDATE nick SET riserva3 = NULL WHERE codice = '000348' AND campo = '1'");
    set("000411", 2, "riserva", "Notte");
    set("000411", 6, "riserva", "Giorno");
    const std::int64_t flags = id("000411", 1);
    lists.EVENTI_SPECIALI();
    const std::vector<ListEntry> expected = {
        {kAggregazioni, H},
        {"Scenari   SE ALMENO 1 é Vero", id("000148", 1) + 400000},
        {"Scenari   TUTTI Veri", id("000148", 1) + 500000},
        {"000248   SE ALMENO 1 é Vero", id("000248", 1) + 400000},  // no note: the code
        {"000248   TUTTI Veri", id("000248", 1) + 500000},
        {"Notte   SE ALMENO 1 é Vero", flags + 700000},
        {"Notte   TUTTI Veri", flags + 800000},
        {"Giorno   SE ALMENO 1 é Vero", flags + 1100000},
        {"Giorno   TUTTI Veri", flags + 1200000},
    };
    EXPECT_EQ(lists.Combo_COMANDI, expected);
}

TEST_F(PointListsTest, TheLevelDecidesWhatTheCommandListHolds) {
    add_module(table, "000111", 9, "Relè");
    add_module(table, "000248", 9, "Scenari");
    name("000111", 9, "Luce ");
    name("000111", 1, "Pulsante");
    name("000111", 2, "Cancello");
    set("000248", 1, "riserva3", "00000001" + std::string(18, '0'));
    link("000111/1", "Luce ", "000111/1", "Pulsante", "000010001");
    struct Case {
        int level;
        const char* name_filter;
        std::size_t entries;
    } cases[] = {
        {1, "xyz", 3},       // contacts only; the name filter box is hidden at this level
        {2, "", 5},          // and the event of Luce
        {2, "cancello", 2},  // the name filter works from this level up
        {3, "", 8},          // and the two aggregations of the scene module
    };
    for (const Case& c : cases) {
        lists.filters.nome_comandi = c.name_filter;
        lists.CARICA_COMBO(c.level);
        EXPECT_EQ(lists.Combo_COMANDI.size(), c.entries) << c.level << " " << c.name_filter;
        EXPECT_EQ(lists.filters.nome_comandi, c.name_filter);  // as the installer typed it
    }
}

TEST_F(PointListsTest, MessagesOfAModuleWithThoseOfTheLinkSelected) {
    add_module(table, "00081E", 11, "*Pannello", "OUT_SERIALE");
    name("00081E", 9, "Msg uno");
    name("00081E", 10, "Msg due");
    name("00081E", 11, "Msg tre");
    set("00081E", 11, "riserva", "K");
    std::string bits(96, '0');
    bits[95] = '1';  // message 1
    MessageList list = lists.ELENCO_MESSAGGI("00081E", bits);
    EXPECT_EQ(list.entries, (std::vector<ListEntry>{{"Msg due", 2}, {"Msg uno", 1}}));
    EXPECT_EQ(list.selected, (std::vector<bool>{false, true}));
}

TEST_F(PointListsTest, RadioReceiversAndCardReaderGroups) {
    EXPECT_FALSE(lists.LEGGI_TIPO_radio());
    add_module(table, "00094A", 9, "Radio");
    EXPECT_EQ(lists.LEGGI_TIPO_radio(), 9);

    const char* readers[][2] = {{"00101A", "Ingresso"}, {"00111A", "Ingresso"},
                                {"00121A", "Garage"},   {"00131A", "Ingresso"},
                                {"00141A", "Ingresso"}, {"00151A", "Ingresso"}};
    for (auto& r : readers) {
        add_module(table, r[0], 9, "Lettore");
        set(r[0], 1, "riserva", r[1]);
        name(r[0], 1, std::string("L") + r[0]);
    }
    const std::vector<TransponderRow> expected = {
        {"Garage", "L00121A", "00121A", "", "", ""},
        {"Ingresso", "L00101A", "00101A", "00111A", "00131A", "00141A"},
        {"Ingresso", "L00151A", "00151A", "", "", ""},  // the fifth reader goes on
    };
    EXPECT_EQ(lists.LEGGI_TIPO_1A(), expected);
}

TEST_F(PointListsTest, ReferenceSettersBeginWithTheGatewayChannel) {
    add_module(table, "000111", 9, "Ingressi");
    add_module(table, "000225", 11, "Uscite");
    const std::pair<char, const char*> inputs[] = {{'A', "Sonda"}, {'B', "Riferimento"},
                                                   {'z', "Crono"}, {'z', "Video"},
                                                   {'P', "Tasto"}, {'A', "Comando"}};
    for (int i = 0; i < 6; ++i) {
        kind("000111", i + 1, inputs[i].first);
        name("000111", i + 1, inputs[i].second);
    }
    set("000111", 3, "note", "CRONOTERMOSTATO");
    link("000225/1", "Luce ", "FFFEFF/3", "NET_GATE", "010000003", "a");
    link("000225/2", "Luce 2", "FFFEFF/7", "NET_GATE", "010000003", "a");

    GatewayChannels channels(table);
    LinkQueries queries(project, links, texts);
    links.LINK_CORRENTE.identificativoRX = "000225/1";
    struct Case {
        const char* stesso_modo;
        int channel;
    } cases[] = {{"NO", 8}, {"SI", 3}};
    for (const Case& c : cases) {
        const std::vector<ListEntry> expected = {
            {"Net Gate  canale " + std::to_string(c.channel), 1000000 + c.channel},
            {"Cronotermostato esterno Crono", id("000111", 3)},
            {"Rif per temperatura 0-5V Riferimento", id("000111", 2)},
            {"Analogico Sonda", id("000111", 1)},
        };
        EXPECT_EQ(lists.ELENCO_ANALOGICI(channels, queries, c.stesso_modo, id("000111", 6)),
                  expected);
        EXPECT_EQ(channels.CANALE_FORZATO, c.channel);
        EXPECT_FALSE(lists.all_channels_used);
    }
    link("000225/3", "Luce 3", "FFFEFF/249", "NET_GATE", "010000003", "a");
    lists.ELENCO_ANALOGICI(channels, queries, "NO", 0);
    EXPECT_TRUE(lists.all_channels_used);
}

}  // namespace
}  // namespace filo::store
