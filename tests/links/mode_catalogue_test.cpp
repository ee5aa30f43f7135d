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

// The pairs as the link editor makes them: a command of an input, or an
// event, on a user of the given type; the rest set by the helpers below.
ModePair in(const char* command, const char* user) {
    return {.TIPO_COMANDO = command, .CLASSE_COMANDO = "INPUT", .TIPO_UTILIZZATORE = user};
}
ModePair ev(const char* command, const char* user) {
    return {.TIPO_COMANDO = command, .CLASSE_COMANDO = "EVENTO", .TIPO_UTILIZZATORE = user};
}
ModePair group(ModePair p) {
    p.UTILIZZATORE = "USA GRUPPO";
    return p;
}
ModePair messages(ModePair p) {
    p.TIPO_UTILIZZATORE.clear();
    p.UTILIZZATORE = "MESSAGGI";
    return p;
}
ModePair output_of(ModePair p, const char* module_type, int output) {
    p.user_module_type = module_type;
    p.numero_uscita = output;
    return p;
}
ModePair variator(ModePair p) {
    p.MODO_UTILIZZATORE = "0V";
    return p;
}

TEST(ModeCatalogue, FamilyAndModesOfEachPair) {
    texts::LanguageTables texts;
    ModePair presence = ev("EP", "RELE");
    presence.CLASSE_COMANDO = "PRESENZA";
    ModePair consent = ev("E", "DIMMER");
    consent.CONSENSO_COMANDI = "CONSENTE_COMANDI";
    const OfferCase cases[] = {
        {"pushbutton on a relay", in("P", "RELE"), "MONOSTABILE", "123456"},
        {"safety pushbutton keeps its numbers", in("p", "RELE"), "MONOSTABILE", "1345"},
        {"switch", in("I", "RELE"), "BISTABILE", "1234567"},
        {"held", in("T", "RELE"), "TENUTO_TANTO", "12345"},
        {"short press", in("t", "RELE"), "TENUTO_POCO", "123"},
        {"pulses", in("N", "RELE"), "IMPULSI", "123"},
        {"presence never changes state", presence, "EVENTO_PRESENZA", "12"},
        {"card", in("card", "RELE"), "CARD", "1234567"},
        {"thermostat", in("J", "RELE"), "6", "12345"},
        {"analogue on relay", in("A", "RELE"), "3A", "12"},
        {"analogue on relay group", group(in("A", "RELE")), "3A", "1"},
        {"variator on RGB", in("V", "RGB"), "3B", "12"},
        {"variator on dimmer", in("V", "DIMMER"), "3B", "1"},
        {"analogue on lamp", in("A", "SPIA"), "3D", "12"},
        {"analogue on video door", in("A", "VCITOF"), "", ""},
        {"light sensor", in("L", "RELE"), "7E", "12"},
        {"regulator on a group offers nothing", group(in("K", "DIMMER")), "7G", ""},
        {"current sensor on a group", group(in("b", "RELE")), "CORRENTE", "13"},
        {"event", ev("E", "RELE"), "EVENTO", "1234567"},
        {"event on dimmer with consent", consent, "EVENTO", "123456789"},
        {"event on messages keeps Cambia stato", messages(ev("E", "")), "EVENTO", "1234567"},
        {"event on a flag hides Cambia stato", ev("E", "FLAG"), "EVENTO", "123467"},
        {"aggregate on flag output", output_of(ev("ES", "RELE"), "15", 9), "ASSOCIAZIONI",
         "123567"},
        {"analogue event", ev("EA", "RELE"), "", ""},
        {"pushbutton without timers loses both step modes", output_of(in("P", "RELE"), "11", 10),
         "MONOSTABILE", "1345"},
        {"pushbutton on a low output of the same type keeps them",
         output_of(in("P", "RELE"), "11", 8), "MONOSTABILE", "123456"},
        {"switch on messages", messages(in("I", "")), "BISTABILE", "134567"},
        {"pushbutton on video door", in("P", "VCITOF"), "BISTABILE", "1"},
        {"pushbutton on variator relay", variator(in("P", "RELE")), "MONOSTABILE", "1"},
        {"held on variator relay", variator(in("T", "RELE")), "TENUTO_TANTO", "4"},
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
    EXPECT_EQ(offer_modes(in("P", "VCITOF"), texts).caption[1], "Visualizza messaggio a schermo");
    const ModePair push = in("P", "RELE");
    EXPECT_EQ(offer_modes(push, texts).caption[2],
              "Pulsante passo-passo (un colpo accende e uno spegne)");
    texts.SPAGNOLO();
    EXPECT_EQ(offer_modes(push, texts).caption[1], "Pulsador tipo timbre");
    EXPECT_EQ(offer_modes(ev("E", "RELE"), texts).caption[1], "Segue lo stato del relè");
    EXPECT_EQ(offer_modes(in("J", "RELE"), texts).caption[5], "Solo accende");
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
    const ModePair push = in("P", "RELE"), sw = in("I", "RELE"), card = in("card", "RELE");
    const ModePair event = ev("E", "RELE"), aggregate = ev("ES", "RELE");
    const ModePair thermo = in("J", "RELE"), lamp = in("A", "SPIA"), rgb = in("V", "RGB");
    const ModePair dimmer_push = in("P", "DIMMER"), power = in("b", "RELE");
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
    const ModePair k_dimmer = in("K", "DIMMER"), k_relay = in("K", "RELE");
    EXPECT_TRUE(select_mode(k_dimmer, offer_modes(k_dimmer, texts), 1).REGOLA_LUMINOSITA);
    EXPECT_FALSE(select_mode(k_relay, offer_modes(k_relay, texts), 1).REGOLA_LUMINOSITA);
    ModePair event = ev("E", "DIMMER");
    event.CONSENSO_COMANDI = "E";
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
