#include "modules/descriptions.hpp"

#include <gtest/gtest.h>

#include "modules/parameter_fields.hpp"
#include "store/nick_row.hpp"
#include "support/sample_project.hpp"
#include "texts/language_tables.hpp"

namespace filo::modules {
namespace {

class DescriptionsTest : public ::testing::Test {
  protected:
    // A new module of the type, parameters set from a text of 18 digits.
    store::ModuleRecord module(const char* code,
                               const std::string& parameters = std::string(18, '0')) {
        const ModuleType* type = find_type(code);
        store::ModuleRecord m =
            testing::new_module_rows(code, type->rows, "", std::string(type->output_tipologia));
        set_module_parameters(m.riga(1).riserva3, parameters);
        return m;
    }
    std::vector<std::string> captions(const ParameterPage& page) {
        std::vector<std::string> c;
        for (const auto& b : page.boxes)
            if (b.visible) c.push_back(b.caption + "=" + b.value);
        return c;
    }
    texts::LanguageTables italian;
};

TEST_F(DescriptionsTest, OptionsPageShowsStoredValuesOrDefaults) {
    struct Case {
        const char* code;
        const char* stored;  // STRINGA_PARAMETRI
        std::vector<std::string> shown;
    } cases[] = {
        {"000111",
         "007000000000000000",
         {"Intervallo avviso presenza  =7", "Intervallo lettura dato analogico e di sicurezza=0",
          "Tempo anti-rimbalzo  =020", "Tempo lampeggio relè on (Decimi di Sec) =010",
          "Tempo lampeggio relè off (Decimi di Sec) =010"}},
        {"000215",
         "000123045000000000",
         {"Intervallo avviso presenza  =0", "Intervallo lettura dato analogico e di sicurezza =123",
          "Tempo anti-rimbalzo  =45", "Tempo lampeggio relè on (Decimi di Sec) =010",
          "Tempo lampeggio relè off (Decimi di Sec) =010"}},
        {"000348",
         "001002003004005006",
         {"Intervallo avviso presenza  =1", "Intervallo lettura dato analogico e di sicurezza=2",
          "Tempo anti-rimbalzo  =3"}},
        {"000650", "000000000000000000", {"Tempo tra due letture della temperatura  (Sec)  =040"}},
        {"00074A",
         "000000000000000000",
         {"Intervallo avviso presenza  =0", "Intervallo lettura dato analogico e di sicurezza=0",
          "Tempo anti-rimbalzo  =020", "VALORE FINESTRA ROLLING-CODE=030"}},
        {"000919",
         "000000000000000000",
         {"Intervallo avviso presenza  =0", "Valore della tolleranza del controllo=005",
          "Valore minimo delle lampade  comandate =040", "Valore di luminosità desiderato  =125",
          "Valore iniziale delle lampade  comandate   =200", "Tipo di regolazione  =001"}},
        {"000A34", "000000000000000000", {}},
    };
    for (const Case& c : cases) {
        store::ModuleRecord m = module(c.code, c.stored);
        EXPECT_EQ(captions(read_parameters(*find_type(c.code), m, italian)), c.shown) << c.code;
    }
}

TEST_F(DescriptionsTest, ConfirmingThePageStoresWhatItShowsAndKeepsTheRest) {
    // A relay module with P3 "000" shows the default; confirming stores it.
    store::ModuleRecord relay = module("000111", "000000000000000000");
    const ModuleType& rele2 = *find_type("11");
    write_parameters(rele2, read_parameters(rele2, relay, italian), relay);
    EXPECT_EQ(module_parameters(relay.riga(1).riserva3), "000000020010010000");

    // A field that the page doesn't show stays as stored (P4 to P6 of type 48).
    store::ModuleRecord simple = module("000248", "001002003444555666");
    const ModuleType& rele4s = *find_type("48");
    ParameterPage page = read_parameters(rele4s, simple, italian);
    page.boxes[0].value = "9";
    page.boxes[2].value = "300";  // held to a byte
    write_parameters(rele4s, page, simple);
    EXPECT_EQ(module_parameters(simple.riga(1).riserva3), "009002255444555666");
    EXPECT_EQ(simple.riga(1).riserva3.substr(0, 8), "00000000");  // aggregate bits untouched

    // The card reader writes P1 only.
    store::ModuleRecord reader = module("00031A", "001002003004005000");
    const ModuleType& badge = *find_type("1A");
    ParameterPage reader_page = read_parameters(badge, reader, italian);
    reader_page.boxes[0].value = "";
    write_parameters(badge, reader_page, reader);
    EXPECT_EQ(module_parameters(reader.riga(1).riserva3), "000002003004005000");
}

TEST_F(DescriptionsTest, PhotosensorPageFollowsTheKindOfItsSensor) {
    store::ModuleRecord m = module("000119");
    const ModuleType& type = *find_type("19");
    m.riga(1).modo[0] = 'L';
    EXPECT_EQ(captions(read_parameters(type, m, italian)),
              (std::vector<std::string>{"Intervallo avviso presenza  =0",
                                        "Intervallo lettura dato  =005"}));
    m.riga(1).modo[0] = 'M';
    EXPECT_EQ(captions(read_parameters(type, m, italian)).size(), 2u);
    m.riga(1).modo[0] = 'K';
    EXPECT_EQ(captions(read_parameters(type, m, italian)).size(), 6u);
}

TEST_F(DescriptionsTest, SpecialOptions) {
    // Channels: rows 9 to 11 become RGB, row 12 stays a dimmer.
    store::ModuleRecord led = module("000116");
    const ModuleType& pilota = *find_type("16");
    ParameterPage page = read_parameters(pilota, led, italian);
    EXPECT_FALSE(page.rgb_channels);
    page.rgb_channels = true;
    write_parameters(pilota, page, led);
    EXPECT_EQ(led.riga(9).tipologia, "RGB");
    EXPECT_EQ(led.riga(11).tipologia, "RGB");
    EXPECT_EQ(led.riga(12).tipologia, "DIMMER");
    EXPECT_TRUE(read_parameters(pilota, led, italian).rgb_channels);

    // The card reader: model and cards; entries other than six characters are dropped.
    store::ModuleRecord reader = module("00031A");
    reader.riga(2).dati_aggiuntivi1 = "A1B2C3D4E5F6";
    const ModuleType& badge = *find_type("1A");
    ParameterPage cards = read_parameters(badge, reader, italian);
    EXPECT_EQ(cards.reader, 'G');
    EXPECT_EQ(cards.cards[2], (std::vector<std::string>{"A1B2C3", "D4E5F6"}));
    cards.reader = 'E';
    cards.cards[2].push_back("Elenco card inserite");
    cards.cards[3] = {"ABCDEF", "12345"};
    write_parameters(badge, cards, reader);
    EXPECT_EQ(reader.riga(1).connesso, ".E......");
    EXPECT_EQ(reader.riga(2).dati_aggiuntivi1, "A1B2C3D4E5F6");
    EXPECT_EQ(reader.riga(3).dati_aggiuntivi1, "ABCDEF");
    auto list = kind_options(badge, 2, reader, italian);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].text, "Elenco card inserite");
    EXPECT_EQ(list[2].text, "D4E5F6");
}

TEST_F(DescriptionsTest, OutputBoxesOfferContactsByType) {
    store::ModuleRecord relay = module("000115");
    relay.riga(9).modo = "II00000000000000000000000";
    relay.riga(10).modo = "I000000001000000000000000";
    relay.riga(20).nick = "Flag porta ";
    const ModuleType& rele4 = *find_type("15");
    OutputBox first = output_box(rele4, 1, relay);
    EXPECT_EQ(first.contacts, (std::vector<char>{'0', 'I'}));
    EXPECT_EQ(first.contact, 'I');
    EXPECT_FALSE(first.options_marked);
    EXPECT_TRUE(output_box(rele4, 2, relay).options_marked);  // an AND bit
    EXPECT_EQ(output_box(rele4, 5, relay).contacts, (std::vector<char>{'0', 'V'}));
    EXPECT_EQ(output_box(rele4, 12, relay).name, "Flag porta ");

    store::ModuleRecord led = module("000226");
    const ModuleType& emergenza = *find_type("26");
    EXPECT_TRUE(output_box(emergenza, 3, led).contacts.empty());
    EXPECT_EQ(output_box(emergenza, 5, led).contacts, (std::vector<char>{'0', 'V'}));

    store::ModuleRecord radio = module("00034A");
    radio.riga(9).modo = "I00000000100000000000000";
    OutputBox channel = output_box(*find_type("4A"), 1, radio);
    EXPECT_TRUE(channel.contacts.empty());
    EXPECT_FALSE(channel.options_marked);  // no mark on the radio channels
    EXPECT_TRUE(channel.option_button_hidden);
    EXPECT_EQ(output_box(*find_type("49"), 8, module("000449")).contacts, (std::vector<char>{'0'}));
}

TEST_F(DescriptionsTest, WindowCaptions) {
    WindowLayout led = window_layout(*find_type("0B"), "00010B", italian);
    EXPECT_EQ(led.input_captions[6], "Ingresso 6");
    EXPECT_EQ(led.input_captions[7], "");
    EXPECT_EQ(led.output_captions[7], "Segna-passo ");
    EXPECT_EQ(window_layout(*find_type("11"), "000111", italian).output_captions[3],
              "Relè vituale 3");
    EXPECT_EQ(window_layout(*find_type("26"), "000126", italian).output_captions[4], "");
    const ModuleType& video = *find_type("23");
    EXPECT_EQ(window_layout(video, "FFF123", italian).output_captions[8],
              "Evento 116 sul videocitofono");
    WindowLayout fourth = window_layout(video, "FFF323", italian);
    EXPECT_EQ(fourth.input_captions[5], "Cronotermostato n° 205");
    EXPECT_EQ(fourth.output_captions[2], "Analogico152 sul videocitofono");
}

}  // namespace
}  // namespace filo::modules
