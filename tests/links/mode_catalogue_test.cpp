#include "links/mode_catalogue.hpp"

#include <gtest/gtest.h>

#include "texts/language_tables.hpp"

namespace filo::links {
namespace {

std::string shown(const ModeOffer& offer) {
    std::string s;
    for (int i = 1; i <= kModeCount; ++i)
        if (offer.shown[i]) s += static_cast<char>('0' + i);
    return s;
}

struct OfferCase {
    const char* what;
    ModePair pair;
    const char* family;
    const char* modes;  // the indices shown, in order
};

TEST(ModeCatalogue, FamilyAndModesOfEachPair) {
    texts::LanguageTables texts;
    const OfferCase cases[] = {
        {"pushbutton on a relay",
         {.TIPO_COMANDO = "P", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "MONOSTABILE",
         "123456"},
        {"safety pushbutton keeps its numbers",
         {.TIPO_COMANDO = "p", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "MONOSTABILE",
         "1345"},
        {"switch",
         {.TIPO_COMANDO = "I", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "BISTABILE",
         "1234567"},
        {"held",
         {.TIPO_COMANDO = "T", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "TENUTO_TANTO",
         "12345"},
        {"short press",
         {.TIPO_COMANDO = "t", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "TENUTO_POCO",
         "123"},
        {"pulses",
         {.TIPO_COMANDO = "N", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "IMPULSI",
         "123"},
        {"presence never changes state",
         {.TIPO_COMANDO = "EP", .CLASSE_COMANDO = "PRESENZA", .TIPO_UTILIZZATORE = "RELE"},
         "EVENTO_PRESENZA",
         "12"},
        {"card",
         {.TIPO_COMANDO = "card", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "CARD",
         "1234567"},
        {"thermostat",
         {.TIPO_COMANDO = "J", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "6",
         "12345"},
        {"analogue on relay",
         {.TIPO_COMANDO = "A", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "3A",
         "12"},
        {"analogue on relay group",
         {.TIPO_COMANDO = "A",
          .CLASSE_COMANDO = "INPUT",
          .TIPO_UTILIZZATORE = "RELE",
          .UTILIZZATORE = "USA GRUPPO"},
         "3A",
         "1"},
        {"variator on RGB",
         {.TIPO_COMANDO = "V", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RGB"},
         "3B",
         "12"},
        {"variator on dimmer",
         {.TIPO_COMANDO = "V", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "DIMMER"},
         "3B",
         "1"},
        {"analogue on lamp",
         {.TIPO_COMANDO = "A", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "SPIA"},
         "3D",
         "12"},
        {"analogue on video door",
         {.TIPO_COMANDO = "A", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "VCITOF"},
         "",
         ""},
        {"light sensor",
         {.TIPO_COMANDO = "L", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"},
         "7E",
         "12"},
        {"regulator on a group offers nothing",
         {.TIPO_COMANDO = "K",
          .CLASSE_COMANDO = "INPUT",
          .TIPO_UTILIZZATORE = "DIMMER",
          .UTILIZZATORE = "USA GRUPPO"},
         "7G",
         ""},
        {"current sensor on a group",
         {.TIPO_COMANDO = "b",
          .CLASSE_COMANDO = "INPUT",
          .TIPO_UTILIZZATORE = "RELE",
          .UTILIZZATORE = "USA GRUPPO"},
         "CORRENTE",
         "13"},
        {"event",
         {.TIPO_COMANDO = "E", .CLASSE_COMANDO = "EVENTO", .TIPO_UTILIZZATORE = "RELE"},
         "EVENTO",
         "1234567"},
        {"event on dimmer with consent",
         {.TIPO_COMANDO = "E",
          .CLASSE_COMANDO = "EVENTO",
          .TIPO_UTILIZZATORE = "DIMMER",
          .CONSENSO_COMANDI = "CONSENTE_COMANDI"},
         "EVENTO",
         "123456789"},
        {"event on messages keeps Cambia stato",
         {.TIPO_COMANDO = "E", .CLASSE_COMANDO = "EVENTO", .UTILIZZATORE = "MESSAGGI"},
         "EVENTO",
         "1234567"},
        {"event on a flag hides Cambia stato",
         {.TIPO_COMANDO = "E", .CLASSE_COMANDO = "EVENTO", .TIPO_UTILIZZATORE = "FLAG"},
         "EVENTO",
         "123467"},
        {"aggregate on flag output",
         {.TIPO_COMANDO = "ES",
          .CLASSE_COMANDO = "EVENTO",
          .TIPO_UTILIZZATORE = "RELE",
          .user_module_type = "15",
          .numero_uscita = 9},
         "ASSOCIAZIONI",
         "123567"},
        {"analogue event",
         {.TIPO_COMANDO = "EA", .CLASSE_COMANDO = "EVENTO", .TIPO_UTILIZZATORE = "RELE"},
         "",
         ""},
        {"pushbutton without timers loses both step modes",
         {.TIPO_COMANDO = "P",
          .CLASSE_COMANDO = "INPUT",
          .TIPO_UTILIZZATORE = "RELE",
          .user_module_type = "11",
          .numero_uscita = 10},
         "MONOSTABILE",
         "1345"},
        {"pushbutton on a low output of the same type keeps them",
         {.TIPO_COMANDO = "P",
          .CLASSE_COMANDO = "INPUT",
          .TIPO_UTILIZZATORE = "RELE",
          .user_module_type = "11",
          .numero_uscita = 8},
         "MONOSTABILE",
         "123456"},
        {"switch on messages",
         {.TIPO_COMANDO = "I", .CLASSE_COMANDO = "INPUT", .UTILIZZATORE = "MESSAGGI"},
         "BISTABILE",
         "134567"},
        {"pushbutton on video door",
         {.TIPO_COMANDO = "P", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "VCITOF"},
         "BISTABILE",
         "1"},
        {"pushbutton on variator relay",
         {.TIPO_COMANDO = "P",
          .CLASSE_COMANDO = "INPUT",
          .TIPO_UTILIZZATORE = "RELE",
          .MODO_UTILIZZATORE = "0V"},
         "MONOSTABILE",
         "1"},
        {"held on variator relay",
         {.TIPO_COMANDO = "T",
          .CLASSE_COMANDO = "INPUT",
          .TIPO_UTILIZZATORE = "RELE",
          .MODO_UTILIZZATORE = "0V"},
         "TENUTO_TANTO",
         "4"},
    };
    for (const OfferCase& c : cases) {
        const ModeOffer offer = offer_modes(c.pair, texts);
        EXPECT_EQ(offer.FAMIGLIA, c.family) << c.what;
        EXPECT_EQ(shown(offer), c.modes) << c.what;
    }
}

TEST(ModeCatalogue, CaptionsFollowTheLanguageButFixedOnes) {
    texts::LanguageTables texts;
    texts.ITALIANO();
    const ModePair video{
        .TIPO_COMANDO = "P", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "VCITOF"};
    EXPECT_EQ(offer_modes(video, texts).caption[1], "Visualizza messaggio a schermo");
    const ModePair push{
        .TIPO_COMANDO = "P", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    EXPECT_EQ(offer_modes(push, texts).caption[2],
              "Pulsante passo-passo (un colpo accende e uno spegne)");
    const ModePair event{
        .TIPO_COMANDO = "E", .CLASSE_COMANDO = "EVENTO", .TIPO_UTILIZZATORE = "RELE"};
    texts.SPAGNOLO();
    EXPECT_EQ(offer_modes(push, texts).caption[1], "Pulsador tipo timbre");
    EXPECT_EQ(offer_modes(event, texts).caption[1], "Segue lo stato del relè");
    const ModePair thermo{
        .TIPO_COMANDO = "J", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    EXPECT_EQ(offer_modes(thermo, texts).caption[5], "Solo accende");
}

struct SettingCase {
    ModePair pair;
    int mode;
    const char* on;
    const char* off;
    const char* flags;  // A(ccende) S(pegne) P(asso) I(nvertito) V(aria colori) O(solo avanzate)
    int funzione;
};

std::string flags_of(const ModeFields& f) {
    std::string s;
    if (f.SOLO_ACCENDE == "SI") s += 'A';
    if (f.SOLO_SPEGNE == "SI") s += 'S';
    if (f.PASSO_PASSO == "1") s += 'P';
    if (f.INVERTITO == "1") s += 'I';
    if (f.VARIA_COLORI == "SI") s += 'V';
    if (f.SOLO_AVANZATE) s += 'O';
    return s;
}

TEST(ModeCatalogue, WhatEachModeWrites) {
    texts::LanguageTables texts;
    const ModePair push{
        .TIPO_COMANDO = "P", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    const ModePair sw{.TIPO_COMANDO = "I", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    const ModePair card{
        .TIPO_COMANDO = "card", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    const ModePair event{
        .TIPO_COMANDO = "E", .CLASSE_COMANDO = "EVENTO", .TIPO_UTILIZZATORE = "RELE"};
    const ModePair aggregate{
        .TIPO_COMANDO = "ES", .CLASSE_COMANDO = "EVENTO", .TIPO_UTILIZZATORE = "RELE"};
    const ModePair thermo{
        .TIPO_COMANDO = "J", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    const ModePair lamp{
        .TIPO_COMANDO = "A", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "SPIA"};
    const ModePair rgb{.TIPO_COMANDO = "V", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RGB"};
    const ModePair dimmer_push{
        .TIPO_COMANDO = "P", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "DIMMER"};
    const ModePair power{
        .TIPO_COMANDO = "b", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    const SettingCase cases[] = {
        {push, 1, "251", "9", "", 1},
        {push, 2, "251", "8", "P", 1},
        {push, 4, "251", "8", "SI", 1},
        {push, 6, "252", "9", "PI", 1},
        {sw, 1, "251", "9", "", 1},
        {sw, 3, "251", "8", "A", 1},  // differs from mode 1 in off_ alone
        {sw, 6, "252", "9", "AI", 1},
        {sw, 7, "251", "8", "SI", 1},
        {card, 2, "251", "8", "P", 1},
        {card, 7, "252", "9", "S", 1},
        {event, 3, "252", "9", "S", 1},
        {event, 4, "251", "9", "I", 1},
        {event, 5, "251", "8", "P", 1},
        {aggregate, 4, "251", "8", "P", 1},
        {aggregate, 5, "251", "9", "I", 1},
        {thermo, 1, "", "", "I", 4},  // thresholds left to the advanced options
        {thermo, 4, "", "", "", 5},
        {thermo, 5, "10", "8", "A", 1},
        {power, 3, "", "", "I", 8},
        {lamp, 1, "251", "9", "", 10},
        {lamp, 2, "10", "9", "O", 1},
        {rgb, 2, "251", "9", "VO", 6},
        {dimmer_push, 1, "251", "9", "", 7},  // a plain pushbutton on a dimmer stores a dimmer link
    };
    for (const SettingCase& c : cases) {
        const ModeFields f = select_mode(c.pair, offer_modes(c.pair, texts), c.mode);
        const std::string what = c.pair.TIPO_COMANDO + " mode " + std::to_string(c.mode);
        EXPECT_EQ(f.LK_ON, c.on) << what;
        EXPECT_EQ(f.LK_OFF, c.off) << what;
        EXPECT_EQ(flags_of(f), c.flags) << what;
        EXPECT_EQ(f.FUNZIONE, c.funzione) << what;
        EXPECT_EQ(f.LAMPEGGIO_AMMESSO, f.SOLO_SPEGNE != "SI") << what;
        EXPECT_EQ(f.INDICE_MODO, c.mode) << what;
    }
}

TEST(ModeCatalogue, SpecialModesAndVideoDoorCodes) {
    texts::LanguageTables texts;
    const ModePair k_dimmer{
        .TIPO_COMANDO = "K", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "DIMMER"};
    const ModePair k_relay{
        .TIPO_COMANDO = "K", .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = "RELE"};
    EXPECT_TRUE(select_mode(k_dimmer, offer_modes(k_dimmer, texts), 1).REGOLA_LUMINOSITA);
    EXPECT_FALSE(select_mode(k_relay, offer_modes(k_relay, texts), 1).REGOLA_LUMINOSITA);
    const ModePair event{.TIPO_COMANDO = "E",
                         .CLASSE_COMANDO = "EVENTO",
                         .TIPO_UTILIZZATORE = "DIMMER",
                         .CONSENSO_COMANDI = "E"};
    const ModeOffer offer = offer_modes(event, texts);
    EXPECT_TRUE(select_mode(event, offer, 8).analog_command);
    EXPECT_TRUE(select_mode(event, offer, 9).GESTIONE_EMERGENZA);

    EXPECT_EQ(video_door_code("FFF023", 2), 102);
    EXPECT_EQ(video_door_code("FFF123", 2), 110);
    EXPECT_EQ(video_door_code("FFF223", 3), 119);
    EXPECT_EQ(video_door_code("FFF223", 4), 250);
    EXPECT_EQ(video_door_code("FFF323", 1), 151);
    EXPECT_EQ(video_door_code("001A11", 1), -1);
}

}  // namespace
}  // namespace filo::links
