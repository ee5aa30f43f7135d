#include "links/mode_catalogue.hpp"

#include <algorithm>
#include <cstdint>

#include "texts/language_tables.hpp"

namespace filo::links {
namespace {

using texts::Text;

// Bit n set: mode n offered.
constexpr std::uint16_t modes(std::initializer_list<int> list) {
    std::uint16_t m = 0;
    for (int i : list) m = static_cast<std::uint16_t>(m | (1u << i));
    return m;
}
constexpr std::uint16_t kOneToThree = modes({1, 2, 3});
constexpr std::uint16_t kOneToFive = modes({1, 2, 3, 4, 5});
constexpr std::uint16_t kOneToSix = modes({1, 2, 3, 4, 5, 6});
constexpr std::uint16_t kOneToSeven = modes({1, 2, 3, 4, 5, 6, 7});

// The family of a command kind alone (inputs and presence).
struct KindFamily {
    std::string_view kind;
    std::string_view family;
    std::uint16_t offered;
};
constexpr std::array<KindFamily, 12> kByKind = {{
    {.kind = "P", .family = "MONOSTABILE", .offered = kOneToSix},
    {.kind = "v", .family = "MONOSTABILE", .offered = kOneToSix},
    {.kind = "R", .family = "MONOSTABILE", .offered = kOneToSix},
    {.kind = "p", .family = "MONOSTABILE", .offered = modes({1, 3, 4, 5})},
    {.kind = "I", .family = "BISTABILE", .offered = kOneToSeven},
    {.kind = "i", .family = "BISTABILE", .offered = kOneToSeven},
    {.kind = "z", .family = "BISTABILE", .offered = kOneToSeven},
    {.kind = "T", .family = "TENUTO_TANTO", .offered = kOneToFive},
    {.kind = "t", .family = "TENUTO_POCO", .offered = kOneToThree},
    {.kind = "N", .family = "IMPULSI", .offered = kOneToThree},
    {.kind = "EP", .family = "EVENTO_PRESENZA", .offered = modes({1, 2})},
    {.kind = "card", .family = "CARD", .offered = kOneToSeven},
}};

// The family of a command kind and a user kind; the first row that matches
// wins, "*" matching any user. An empty family offers nothing.
struct PairFamily {
    std::string_view kind;
    std::string_view user;
    std::string_view family;
    std::uint16_t offered;
};
constexpr std::array<PairFamily, 17> kByPair = {{
    {.kind = "J", .user = "*", .family = "6", .offered = kOneToFive},
    {.kind = "W", .user = "*", .family = "6", .offered = kOneToFive},
    {.kind = "X", .user = "*", .family = "6", .offered = kOneToFive},
    {.kind = "AV", .user = "RELE", .family = "3A", .offered = modes({1, 2})},
    {.kind = "AV", .user = "RGB", .family = "3B", .offered = modes({1, 2})},
    {.kind = "AV", .user = "DIMMER", .family = "3B", .offered = modes({1})},
    {.kind = "AV", .user = "B_LUCE", .family = "3E", .offered = modes({1})},
    {.kind = "AV", .user = "SPIA", .family = "3D", .offered = modes({1, 2})},
    {.kind = "AV", .user = "MODULATORE", .family = "3C", .offered = modes({1})},
    {.kind = "AV", .user = "*", .family = "", .offered = 0},
    {.kind = "L", .user = "*", .family = "7E", .offered = modes({1, 2})},
    {.kind = "M", .user = "*", .family = "7E", .offered = modes({1, 2})},
    {.kind = "K", .user = "*", .family = "7G", .offered = modes({1})},
    {.kind = "b", .user = "*", .family = "CORRENTE", .offered = modes({1, 2, 3, 4})},
    // The event rows: only these apply to a command of class "EVENTO".
    {.kind = "E", .user = "*", .family = "EVENTO", .offered = kOneToSeven},
    {.kind = "ES", .user = "*", .family = "ASSOCIAZIONI", .offered = kOneToSeven},
    {.kind = "EA", .user = "*", .family = "", .offered = 0},
}};

bool kind_matches(std::string_view row, std::string_view kind) {
    return row == "AV" ? kind == "A" || kind == "V" : row == kind;
}

// Modes hidden once the family is chosen: on a user without timers (and on a
// message module where `messages` says so), and on a group.
struct HideRule {
    std::string_view family;
    std::uint16_t without_timer = 0;
    bool messages_too = true;
    std::uint16_t group = 0;
};
constexpr std::array<HideRule, 13> kHiding = {{
    {.family = "MONOSTABILE", .without_timer = modes({2, 6})},
    {.family = "BISTABILE", .without_timer = modes({2})},
    {.family = "CARD", .without_timer = modes({2})},
    {.family = "TENUTO_TANTO", .without_timer = modes({3})},
    {.family = "TENUTO_POCO", .without_timer = modes({3})},
    {.family = "IMPULSI", .without_timer = modes({3})},
    {.family = "EVENTO", .without_timer = modes({5}), .messages_too = false},
    {.family = "ASSOCIAZIONI", .without_timer = modes({4}), .messages_too = false},
    {.family = "6", .group = modes({2, 4})},
    {.family = "CORRENTE", .group = modes({2, 4})},
    {.family = "3A", .group = modes({2})},
    {.family = "3D", .group = modes({2})},
    {.family = "7E", .group = modes({2})},
}};
constexpr HideRule kHide7G = {.family = "7G", .group = modes({1})};

// A family's base thresholds (nullptr: left as they were) and whether the
// "Ricaricabile" box belongs to it.
struct FamilyBase {
    std::string_view family;
    const char* on;
    const char* off;
    bool ricaricabile;
};
constexpr std::array<FamilyBase, 19> kBases = {{
    {.family = "BISTABILE", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "CARD", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "MONOSTABILE", .on = "251", .off = "8", .ricaricabile = true},
    {.family = "TENUTO_TANTO", .on = "251", .off = "8", .ricaricabile = true},
    {.family = "TENUTO_POCO", .on = "251", .off = "8", .ricaricabile = true},
    {.family = "IMPULSI", .on = "251", .off = "8", .ricaricabile = true},
    {.family = "EVENTO", .on = "251", .off = "9", .ricaricabile = true},
    {.family = "ASSOCIAZIONI", .on = "251", .off = "9", .ricaricabile = true},
    {.family = "EVENTO_PRESENZA", .on = "251", .off = "9", .ricaricabile = true},
    {.family = "3A", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "3B", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "3C", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "3D", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "3E", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "6", .on = nullptr, .off = nullptr, .ricaricabile = true},
    {.family = "7E", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "7G", .on = "251", .off = "9", .ricaricabile = false},
    {.family = "7F", .on = "251", .off = "8", .ricaricabile = false},
    {.family = "CORRENTE", .on = nullptr, .off = nullptr, .ricaricabile = false},
}};

// One mode of a family: its caption (from the tables, or fixed in every
// language) and what it sets beyond the family's base.
struct Mode {
    std::string_view family;
    int index;
    Text caption = Text{};
    const char* fixed = nullptr;  // a caption with one text in all languages
    const char* on = nullptr;
    const char* off = nullptr;
    bool solo_accende = false;
    bool solo_spegne = false;
    bool passo = false;
    bool invertito = false;
    bool solo_avanzate = false;
    bool varia_colori = false;
    bool emergenza = false;
    bool regola_luminosita = false;  // on a DIMMER or RGB user only
    bool analog_command = false;
    int funzione = 0;  // 0: as it was
};

// clang-format off
constexpr Mode kModes[] = {
    {.family = "BISTABILE", .index = 1, .caption = Text::SWITCH_ON_OFF},
    {.family = "BISTABILE", .index = 2, .caption = Text::SWITCH_TWO_WAY, .passo = true},
    {.family = "BISTABILE", .index = 3, .caption = Text::SWITCH_ON_AT_CLOSE, .off = "8", .solo_accende = true},
    {.family = "BISTABILE", .index = 4, .caption = Text::SWITCH_OFF_AT_OPEN, .on = "252", .solo_spegne = true},
    {.family = "BISTABILE", .index = 5, .caption = Text::SWITCH_ON_OFF_INVERTED, .invertito = true},
    {.family = "BISTABILE", .index = 6, .caption = Text::SWITCH_ON_AT_OPEN, .on = "252", .solo_accende = true, .invertito = true},
    {.family = "BISTABILE", .index = 7, .caption = Text::SWITCH_OFF_AT_CLOSE, .off = "8", .solo_spegne = true, .invertito = true},

    {.family = "CARD", .index = 1, .caption = Text::READER_ACTIVE_WHILE_READING},
    {.family = "CARD", .index = 2, .caption = Text::READER_TOGGLE, .off = "8", .passo = true},
    {.family = "CARD", .index = 3, .caption = Text::READER_ON_WHEN_READING, .off = "8", .solo_accende = true},
    {.family = "CARD", .index = 4, .caption = Text::READER_OFF_WHEN_READING, .off = "8", .solo_spegne = true, .invertito = true},
    {.family = "CARD", .index = 5, .caption = Text::READER_INACTIVE_WHILE_READING, .invertito = true},
    {.family = "CARD", .index = 6, .caption = Text::READER_ON_WHEN_NO_LONGER_READING, .on = "252", .solo_accende = true, .invertito = true},
    {.family = "CARD", .index = 7, .caption = Text::READER_OFF_WHEN_NO_LONGER_READING, .on = "252", .solo_spegne = true},

    {.family = "MONOSTABILE", .index = 1, .caption = Text::MODE_BELL_PUSH, .off = "9"},
    {.family = "MONOSTABILE", .index = 2, .caption = Text::MODE_STEP_PUSH, .passo = true},
    {.family = "MONOSTABILE", .index = 3, .caption = Text::MODE_PUSH_ON_ONLY, .solo_accende = true},
    {.family = "MONOSTABILE", .index = 4, .caption = Text::MODE_PUSH_OFF_ONLY, .solo_spegne = true, .invertito = true},
    {.family = "MONOSTABILE", .index = 5, .caption = Text::MODE_BELL_PUSH_INVERTED, .off = "9", .invertito = true},
    {.family = "MONOSTABILE", .index = 6, .caption = Text::MODE_STEP_PUSH_INVERTED, .on = "252", .off = "9", .passo = true, .invertito = true},

    {.family = "TENUTO_TANTO", .index = 1, .caption = Text::MODE_HELD_ON, .solo_accende = true},
    {.family = "TENUTO_TANTO", .index = 2, .caption = Text::MODE_HELD_OFF, .solo_spegne = true, .invertito = true},
    {.family = "TENUTO_TANTO", .index = 3, .caption = Text::MODE_HELD_STEP, .passo = true},
    {.family = "TENUTO_TANTO", .index = 4, .caption = Text::MODE_HELD_BELL, .off = "9"},
    {.family = "TENUTO_TANTO", .index = 5, .caption = Text::MODE_HELD_BELL_INVERTED, .off = "9", .invertito = true},

    {.family = "TENUTO_POCO", .index = 1, .caption = Text::MODE_PUSH_ON, .solo_accende = true},
    {.family = "TENUTO_POCO", .index = 2, .caption = Text::MODE_PUSH_OFF, .solo_spegne = true, .invertito = true},
    {.family = "TENUTO_POCO", .index = 3, .caption = Text::MODE_PUSH_STEP, .passo = true},

    {.family = "IMPULSI", .index = 1, .caption = Text::MODE_PULSES_ON, .solo_accende = true},
    {.family = "IMPULSI", .index = 2, .caption = Text::MODE_PULSES_OFF, .solo_spegne = true, .invertito = true},
    {.family = "IMPULSI", .index = 3, .caption = Text::MODE_PULSES_STEP, .passo = true},

    {.family = "EVENTO", .index = 1, .fixed = "Segue lo stato del relè"},
    {.family = "EVENTO", .index = 2, .fixed = "Solo accende ", .off = "8", .solo_accende = true},
    {.family = "EVENTO", .index = 3, .fixed = "Solo spegne ", .on = "252", .solo_spegne = true},
    {.family = "EVENTO", .index = 4, .fixed = "Segue lo stato del relè invertendolo", .invertito = true},
    {.family = "EVENTO", .index = 5, .fixed = "Cambia stato", .off = "8", .passo = true},
    {.family = "EVENTO", .index = 6, .fixed = "Solo accende quando si spegne", .on = "252", .solo_accende = true, .invertito = true},
    {.family = "EVENTO", .index = 7, .fixed = "Solo spegne quando si accende", .off = "8", .solo_spegne = true, .invertito = true},
    {.family = "EVENTO", .index = 8, .fixed = "Comando analogico diretto", .solo_avanzate = true, .analog_command = true},
    {.family = "EVENTO", .index = 9, .fixed = "Gestione emergenza", .emergenza = true},

    {.family = "ASSOCIAZIONI", .index = 1, .fixed = "Segue lo stato "},
    {.family = "ASSOCIAZIONI", .index = 2, .fixed = "Solo accende ", .off = "8", .solo_accende = true},
    {.family = "ASSOCIAZIONI", .index = 3, .fixed = "Solo spegne ", .on = "252", .solo_spegne = true},
    {.family = "ASSOCIAZIONI", .index = 4, .fixed = "Cambia stato", .off = "8", .passo = true},
    {.family = "ASSOCIAZIONI", .index = 5, .fixed = "Segue lo stato del relè invertendolo", .invertito = true},
    {.family = "ASSOCIAZIONI", .index = 6, .fixed = "Solo accende quando si spegne", .on = "252", .solo_accende = true, .invertito = true},
    {.family = "ASSOCIAZIONI", .index = 7, .fixed = "Solo spegne quando si accende", .off = "8", .solo_spegne = true, .invertito = true},

    {.family = "EVENTO_PRESENZA", .index = 1, .fixed = "Solo accende ", .off = "8", .solo_accende = true},
    {.family = "EVENTO_PRESENZA", .index = 2, .fixed = "Solo spegne ", .on = "252", .solo_spegne = true},
    {.family = "EVENTO_PRESENZA", .index = 3, .fixed = "Cambia stato", .off = "8", .passo = true},

    {.family = "3A", .index = 1, .caption = Text::MODE_ON_OFF_FIXED, .funzione = 2},
    {.family = "3A", .index = 2, .caption = Text::MODE_ON_OFF_ADJUSTABLE, .funzione = 3},
    {.family = "3B", .index = 1, .caption = Text::MODE_DIMMER_BRIGHTNESS, .solo_avanzate = true},
    {.family = "3B", .index = 2, .caption = Text::MODE_COLOUR_CYCLE, .solo_avanzate = true, .varia_colori = true},
    {.family = "3C", .index = 1, .caption = Text::MODE_DIMMER_BRIGHTNESS, .solo_avanzate = true},
    {.family = "3D", .index = 1, .caption = Text::MODE_ON_OFF_FIXED, .funzione = 10},
    {.family = "3D", .index = 2, .caption = Text::MODE_FLASH_ANALOG_SPEED, .on = "10", .solo_avanzate = true},
    {.family = "3E", .index = 1, .caption = Text::MODE_DIMMER_BRIGHTNESS},
    {.family = "6", .index = 1, .caption = Text::MODE_HEATING_FIXED, .invertito = true, .funzione = 4},
    {.family = "6", .index = 2, .caption = Text::MODE_HEATING_ADJUSTABLE, .invertito = true, .funzione = 5},
    {.family = "6", .index = 3, .caption = Text::MODE_COOLING_FIXED, .funzione = 4},
    {.family = "6", .index = 4, .caption = Text::MODE_COOLING_ADJUSTABLE, .funzione = 5},
    {.family = "6", .index = 5, .fixed = "Solo accende", .on = "10", .off = "8", .solo_accende = true},
    {.family = "7E", .index = 1, .caption = Text::MODE_ON_OFF_FIXED, .funzione = 20},
    {.family = "7E", .index = 2, .caption = Text::MODE_ON_OFF_ADJUSTABLE, .funzione = 21},
    {.family = "7G", .index = 1, .fixed = "Regola la luminosità ambiente", .regola_luminosita = true},
    {.family = "CORRENTE", .index = 1, .caption = Text::MODE_POWER_ABOVE_FIXED_ON, .funzione = 8},
    {.family = "CORRENTE", .index = 2, .caption = Text::MODE_POWER_ABOVE_ADJUSTABLE_ON, .funzione = 9},
    {.family = "CORRENTE", .index = 3, .caption = Text::MODE_POWER_ABOVE_FIXED_OFF, .invertito = true, .funzione = 8},
    {.family = "CORRENTE", .index = 4, .caption = Text::MODE_POWER_ABOVE_ADJUSTABLE_OFF, .invertito = true, .funzione = 9},
};
// clang-format on

const Mode* find_mode(std::string_view family, int index) {
    for (const Mode& m : kModes)
        if (m.family == family && m.index == index) return &m;
    return nullptr;
}

const FamilyBase* find_base(std::string_view family) {
    for (const FamilyBase& b : kBases)
        if (b.family == family) return &b;
    return nullptr;
}

void hide(ModeOffer& offer, std::uint16_t mask) {
    for (int i = 1; i <= kModeCount; ++i)
        if (mask & (1u << i)) offer.shown[i] = false;
}

}  // namespace

std::string SENZA_TIMER(const ModePair& p) {
    if (p.TIPO_UTILIZZATORE == "FLAG") return "SI";
    const std::string_view t = p.user_module_type;
    if ((t == "15" || t == "11" || t == "12" || t == "25") && p.numero_uscita > 8) return "SI";
    return "";
}

bool ModeOffer::empty() const {
    return std::none_of(shown.begin(), shown.end(), [](bool b) { return b; });
}

ModeOffer offer_modes(const ModePair& pair, const texts::LanguageTables& texts) {
    ModeOffer offer;
    offer.SENZA_TIMER = SENZA_TIMER(pair);
    const std::string& kind = pair.TIPO_COMANDO;
    std::uint16_t offered = 0;
    bool by_kind_alone = false;

    if (pair.CLASSE_COMANDO != "EVENTO") {
        for (const KindFamily& k : kByKind) {
            if (k.kind != kind) continue;
            offer.FAMIGLIA = std::string(k.family);
            offered = k.offered;
            by_kind_alone = true;
        }
    }
    for (const PairFamily& p : kByPair) {
        const bool event_row = p.kind == "E" || p.kind == "ES" || p.kind == "EA";
        if (pair.CLASSE_COMANDO == "EVENTO" && !event_row) continue;
        if (!kind_matches(p.kind, kind)) continue;
        if (p.user != "*" && p.user != pair.TIPO_UTILIZZATORE) continue;
        offer.FAMIGLIA = std::string(p.family);
        offered = p.offered;
        if (p.kind == "E") {
            if (pair.TIPO_UTILIZZATORE == "DIMMER") offered |= modes({8});
            if (!pair.CONSENSO_COMANDI.empty()) offered |= modes({9});
        }
        by_kind_alone = false;
        break;
    }
    for (int i = 1; i <= kModeCount; ++i) offer.shown[i] = (offered & (1u << i)) != 0;
    for (int i = 1; i <= kModeCount; ++i) {
        if (const Mode* m = find_mode(offer.FAMIGLIA, i))
            offer.caption[i] = m->fixed ? std::string(m->fixed) : texts.text(m->caption);
    }

    if (by_kind_alone) {
        if (pair.TIPO_UTILIZZATORE == "VCITOF") {
            offer.FAMIGLIA = "BISTABILE";
            offered = kOneToSeven;
            for (int i = 1; i <= kModeCount; ++i) {
                offer.shown[i] = (offered & (1u << i)) != 0;
                if (const Mode* m = find_mode("BISTABILE", i))
                    offer.caption[i] = texts.text(m->caption);
            }
            offer.caption[1] = texts.text(Text::MODE_SHOW_MESSAGE);
            hide(offer, modes({2, 3, 4, 5, 6, 7, 8}));
        }
        if (pair.MODO_UTILIZZATORE.size() >= 2 && pair.MODO_UTILIZZATORE[1] == 'V') {
            hide(offer, modes({2, 3, 4, 5, 6, 7, 8}));
            if (kind == "T") {
                offer.shown[1] = false;
                offer.shown[4] = true;
                offer.caption[4] = texts.text(Text::MODE_HELD_BELL);
            }
        }
    }

    const bool no_timer = offer.SENZA_TIMER == "SI";
    const bool messages = pair.UTILIZZATORE == "MESSAGGI";
    const bool group = pair.UTILIZZATORE == "USA GRUPPO";
    for (const HideRule& r : kHiding) {
        if (r.family != offer.FAMIGLIA) continue;
        if (no_timer || (messages && r.messages_too)) hide(offer, r.without_timer);
        if (group) hide(offer, r.group);
    }
    if (offer.FAMIGLIA == kHide7G.family && group) hide(offer, kHide7G.group);

    if (const FamilyBase* b = find_base(offer.FAMIGLIA)) offer.ricaricabile_shown = b->ricaricabile;
    return offer;
}

ModeFields select_mode(const ModePair& pair, const ModeOffer& offer, int index) {
    ModeFields f;
    f.FAMIGLIA = offer.FAMIGLIA;
    f.INDICE_MODO = index;
    f.SENZA_TIMER = offer.SENZA_TIMER;
    if (const FamilyBase* b = find_base(offer.FAMIGLIA)) {
        if (b->on) f.LK_ON = b->on;
        if (b->off) f.LK_OFF = b->off;
    }
    if (const Mode* m = find_mode(offer.FAMIGLIA, index)) {
        if (m->on) f.LK_ON = m->on;
        if (m->off) f.LK_OFF = m->off;
        if (m->solo_accende) f.SOLO_ACCENDE = "SI";
        if (m->solo_spegne) f.SOLO_SPEGNE = "SI";
        if (m->passo) f.PASSO_PASSO = "1";
        if (m->invertito) f.INVERTITO = "1";
        f.SOLO_AVANZATE = m->solo_avanzate;
        if (m->varia_colori) f.VARIA_COLORI = "SI";
        f.GESTIONE_EMERGENZA = m->emergenza;
        f.REGOLA_LUMINOSITA = m->regola_luminosita && (pair.TIPO_UTILIZZATORE == "DIMMER" ||
                                                       pair.TIPO_UTILIZZATORE == "RGB");
        f.analog_command = m->analog_command;
        if (m->funzione != 0) f.FUNZIONE = m->funzione;
    }
    if (f.SOLO_SPEGNE == "SI") f.LAMPEGGIO_AMMESSO = false;
    if (pair.TIPO_UTILIZZATORE == "RGB") f.FUNZIONE = 6;
    if (pair.TIPO_UTILIZZATORE == "DIMMER") f.FUNZIONE = 7;
    return f;
}

int video_door_code(std::string_view user_module, int n) {
    if (user_module == "FFF023") return n + 100;
    if (user_module == "FFF123") return n + 108;
    if (user_module == "FFF223") return n < 4 ? n + 116 : n + 246;
    if (user_module == "FFF323") return n + 150;
    return -1;
}

bool opens_advanced_options(int funzione) {
    return (funzione >= 4 && funzione <= 9) || (funzione >= 20 && funzione <= 22);
}

bool needs_reference_point(int funzione) {
    return funzione == 3 || funzione == 5 || funzione == 9 || funzione == 21;
}

}  // namespace filo::links
