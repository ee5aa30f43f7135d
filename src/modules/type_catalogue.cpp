#include "modules/type_catalogue.hpp"

#include <algorithm>

namespace filo::modules {
namespace {

using texts::Text;
using D = Description;

constexpr BoxGroup kNone{};
// A box whose caption is the stem alone, without a number.
constexpr BoxGroup single(Text stem, int box) {
    return {stem, box, box, 0};
}
constexpr BoxGroup numbered(Text stem, int first, int last) {
    return {stem, first, last, first};
}

constexpr std::uint8_t kUsual = kDeleteButton | kReplaceButton | kOptionsButton;
constexpr std::uint8_t kRelays = kUsual | kAggregateButton;
constexpr std::uint8_t kRelaysWithFlags = kRelays | kFlagPageButton;

constexpr ModuleType make(std::string_view code, D d, Text name, std::array<BoxGroup, 2> in,
                          int n_in, std::array<BoxGroup, 3> out, int n_out,
                          std::string_view tipologia, int rows, char kind, std::uint8_t buttons) {
    return {code, d, true, name, {}, in, n_in, out, n_out, tipologia, rows, kind, buttons};
}

constexpr BoxGroup kInputs3 = numbered(Text::BOX_INPUT, 1, 3);
constexpr BoxGroup kInputs4 = numbered(Text::BOX_INPUT, 1, 4);
constexpr BoxGroup kInputs6 = numbered(Text::BOX_INPUT, 1, 6);

constexpr ModuleType kTypes[] = {
    make("05", D::DIMMER, Text::OUTPUT_DIMMER, {kInputs4}, 1, {numbered(Text::BOX_OUTPUT, 1, 1)}, 1,
         "DIMMER", 16, 'P', kUsual),
    make("0B", D::LED, Text::MODULE_NAME_6_INPUTS_6_LEDS, {kInputs6}, 1,
         {numbered(Text::BOX_LED, 1, 6), single(Text::BOX_STEP_LIGHT, 7),
          single(Text::BOX_NIGHT, 8)},
         3, "SPIA", 16, 'P', kUsual),
    make("0D", D::LUCE, Text::OUTPUT_DIMMER, {}, 0, {numbered(Text::BOX_OUTPUT, 1, 1)}, 1, "B_LUCE",
         16, 'P', kUsual),
    make("11", D::RELE2, Text::MODULE_NAME_2_RELAYS_3_INPUTS, {kInputs3}, 1,
         {numbered(Text::BOX_RELAY, 1, 2), numbered(Text::BOX_VIRTUAL_RELAY, 3, 8)}, 2, "RELE", 32,
         'P', kRelaysWithFlags),
    make("12", D::RELE2, Text::MODULE_NAME_2_RELAYS_3_INPUTS, {kInputs3}, 1,
         {numbered(Text::BOX_RELAY, 1, 2), numbered(Text::BOX_VIRTUAL_RELAY, 3, 8)}, 2, "RELE", 32,
         'P', kRelaysWithFlags),
    make("14", D::INGRESSI, Text::MODULE_NAME_6_INPUTS, {kInputs6}, 1, {}, 0, "", 8, 'P', kUsual),
    make("15", D::RELE4, Text::MODULE_NAME_4_RELAYS_4_INPUTS, {kInputs4}, 1,
         {numbered(Text::BOX_RELAY, 1, 4), numbered(Text::BOX_VIRTUAL_RELAY, 5, 8)}, 2, "RELE", 32,
         'P', kRelaysWithFlags),
    make("16", D::PILOTA_LED, Text::MODULE_NAME_LED_DRIVER, {kInputs4}, 1,
         {numbered(Text::BOX_OUTPUT, 1, 3)}, 1, "DIMMER", 16, 'P', kUsual),
    make("17", D::PILOTA_LED, Text::MODULE_NAME_LED_DRIVER, {kInputs4}, 1,
         {numbered(Text::BOX_OUTPUT, 1, 3)}, 1, "DIMMER", 16, 'P', kUsual),
    make("19", D::FOTOSENSORE, Text::MODULE_NAME_PHOTOSENSOR, {single(Text::BOX_SENSOR, 1)}, 1, {},
         0, "REGOLATORE", 16, 'K', kUsual),
    make("1A", D::BADGE, Text::MODULE_NAME_CARD_READER, {numbered(Text::BOX_READ_EVENT, 1, 8)}, 1,
         {numbered(Text::BOX_RELAY, 1, 1), numbered(Text::BOX_VIRTUAL_RELAY, 2, 8)}, 2, "RELE", 16,
         'P', kUsual),
    make("1F", D::MODULATORE, Text::MODULE_NAME_POWERLINE, {kInputs4}, 1,
         {numbered(Text::BOX_OUTPUT, 1, 1)}, 1, "MODULATORE", 16, 'P', kUsual),
    // The video door interface: four pages with captions of their own.
    make("23", D::VIDEOCITOFONO, Text::MODULE_NAME_VIDEO_DOOR, {}, 0, {}, 0, "VCITOF", 16, 'v',
         kDeleteButton),
    make("24", D::LAMPADA, Text::OUTPUT_LIGHT, {}, 0, {numbered(Text::BOX_OUTPUT, 1, 2)}, 1,
         "DIMMER", 16, 'P', kUsual),
    make("25", D::RELE4, Text::MODULE_NAME_4_RELAYS_4_INPUTS, {kInputs4}, 1,
         {numbered(Text::BOX_RELAY, 1, 4), numbered(Text::BOX_VIRTUAL_RELAY, 5, 8)}, 2, "RELE", 32,
         'P', kRelaysWithFlags),
    make("26", D::PILOTA_EMERGENZA, Text::MODULE_NAME_LED_DRIVER, {kInputs4}, 1,
         {numbered(Text::BOX_OUTPUT, 1, 3), numbered(Text::BOX_VIRTUAL, 5, 8)}, 2, "DIMMER", 16,
         'P', kUsual),
    make("34", D::TELECOMANDO, Text::RADIO_COMMAND, {numbered(Text::BOX_PUSHBUTTON, 1, 3)}, 1, {},
         0, "", 8, 'R', kUsual),
    // A radio code element shows no boxes. It gets the eight rows of a remote
    // control: row 1 holds its receiver (riserva4) and its code flag
    // (riserva3), and the kind R keeps the programming run off it, as off
    // any remote, since it is no module on the bus.
    {"35", D::CODICE_RADIO, false, {}, {}, {}, 0, {}, 0, "", 8, 'R', 0},
    make("47", D::INGRESSI, Text::MODULE_NAME_6_INPUTS, {kInputs6}, 1, {}, 0, "", 8, 'P', kUsual),
    make("48", D::RELE4_SEMPLICE, Text::MODULE_NAME_4_RELAYS_4_INPUTS, {kInputs4}, 1,
         {numbered(Text::BOX_RELAY, 1, 4), numbered(Text::BOX_VIRTUAL_RELAY, 5, 8)}, 2, "RELE", 16,
         'P', kRelays),
    make("49", D::RELE2_SEMPLICE, Text::MODULE_NAME_2_RELAYS_3_INPUTS, {kInputs3}, 1,
         {numbered(Text::BOX_RELAY, 1, 2), numbered(Text::BOX_VIRTUAL_RELAY, 3, 8)}, 2, "RELE", 16,
         'P', kRelays),
    {"4A",
     D::RADIO,
     false,
     {},
     "RADIO RX  TX",
     {kInputs4},
     1,
     {numbered(Text::BOX_TX_CHANNEL, 1, 8)},
     1,
     "RELE_RADIO",
     16,
     'P',
     kUsual},
    make("4E", D::PILOTA_LED, Text::MODULE_NAME_LED_DRIVER, {kInputs4}, 1,
         {numbered(Text::BOX_OUTPUT, 1, 3)}, 1, "DIMMER", 16, 'P', kUsual),
    make("50", D::SONDA, Text::MODULE_NAME_TEMPERATURE_PROBE, {single(Text::BOX_SENSOR, 1)}, 1, {},
         0, "", 8, 'J', kUsual),
    make("53", D::PILOTA_LED, Text::MODULE_NAME_LED_DRIVER, {kInputs4}, 1,
         {numbered(Text::BOX_OUTPUT, 1, 3)}, 1, "DIMMER", 16, 'P', kUsual),
};

constexpr bool sorted_by_code() {
    for (std::size_t i = 1; i < std::size(kTypes); ++i)
        if (!(kTypes[i - 1].code < kTypes[i].code)) return false;
    return true;
}
static_assert(sorted_by_code(), "kept in code order for the look-up");

constexpr std::array<std::string_view, 19> kDescriptionNames = {
    "DESCRIZIONE_DIMMER",
    "DESCRIZIONE_LED",
    "DESCRIZIONE_LUCE",
    "DESCRIZIONE_RELE2",
    "DESCRIZIONE_INGRESSI",
    "DESCRIZIONE_RELE4",
    "DESCRIZIONE_PILOTA_LED",
    "DESCRIZIONE_FOTOSENSORE",
    "DESCRIZIONE_BADGE",
    "DESCRIZIONE_MODULATORE",
    "DESCRIZIONE_VIDEOCITOFONO",
    "DESCRIZIONE_LAMPADA",
    "DESCRIZIONE_PILOTA_EMERGENZA",
    "DESCRIZIONE_TELECOMANDO",
    "DESCRIZIONE_CODICE_RADIO",
    "DESCRIZIONE_RELE4_SEMPLICE",
    "DESCRIZIONE_RELE2_SEMPLICE",
    "DESCRIZIONE_RADIO",
    "DESCRIZIONE_SONDA",
};

constexpr std::array<InputKind, 23> kKinds = {{
    {'P', Text::INPUT_PUSHBUTTON},
    {'p', Text::INPUT_SAFETY_PUSHBUTTON},
    {'T', Text::INPUT_HELD_PUSHBUTTON},
    {'V', Text::INPUT_DIMMER_PUSHBUTTON},
    {'I', Text::INPUT_SWITCH},
    {'i', Text::INPUT_SAFETY_SWITCH},
    {'A', Text::INPUT_ANALOG},
    {'N', Text::INPUT_PULSES},
    {'B', Text::INPUT_TEMPERATURE_REFERENCE},
    {'b', Text::INPUT_CURRENT_SENSOR},
    {'F', Text::INPUT_LIMIT_SWITCH},
    {'L', Text::INPUT_LIGHT_SENSOR_TIMED},
    {'M', Text::INPUT_LIGHT_SENSOR_ON_CHANGE},
    {'K', Text::INPUT_LIGHT_REGULATOR},
    {'J', Text::INPUT_ROOM_TEMPERATURE_SENSOR},
    {'W', Text::INPUT_INDUSTRIAL_TEMPERATURE_SENSOR},
    {'X', Text::INPUT_EXTENDED_TEMPERATURE_SENSOR},
    {'R', Text::KIND_RADIO_PUSHBUTTON},
    {'v', Text::KIND_VIDEO_DOOR},
    {'z', Text::KIND_VIDEO_TIMER},
    {'G', Text::INPUT_PRESSURE},
    {'S', Text::INPUT_SPEED},
    {'U', Text::INPUT_HUMIDITY},
}};

bool has_limit_switch(std::string_view type) {
    return type == "11" || type == "12" || type == "15" || type == "47" || type == "49";
}

}  // namespace

std::string_view description_name(Description d) {
    return kDescriptionNames[static_cast<std::size_t>(d)];
}

const ModuleType* find_type(std::string_view type_code) {
    if (type_code.size() == 6) type_code = type_code.substr(4, 2);
    auto it = std::lower_bound(std::begin(kTypes), std::end(kTypes), type_code,
                               [](const ModuleType& t, std::string_view c) { return t.code < c; });
    return it != std::end(kTypes) && it->code == type_code ? &*it : nullptr;
}

std::span<const ModuleType> all_types() {
    return kTypes;
}

Opening opening_of(std::string_view type, std::span<const std::string> live_codes) {
    if (type == "33" || type == "34" || type == "35") {
        const bool receiver =
            std::any_of(live_codes.begin(), live_codes.end(), [](const std::string& c) {
                std::string_view t = std::string_view(c).substr(std::min<std::size_t>(4, c.size()));
                return t == "4A" || t == "12";
            });
        if (!receiver) return Opening::RadioModuleRequired;
    }
    if (type == "1E") return Opening::PanelInterface;
    if (!find_type(type)) return Opening::Unsupported;
    return type == "23" ? Opening::VideoDoorPages : Opening::ModuleWindow;
}

bool kind_text(char letter, Text& text) {
    for (const InputKind& k : kKinds)
        if (k.letter == letter) {
            text = k.text;
            return true;
        }
    return false;
}

std::span<const InputKind> standard_input_kinds(std::string_view type_code) {
    // The standard list is the first ten kinds, then the limit switch.
    return std::span<const InputKind>(kKinds).first(has_limit_switch(type_code) ? 11 : 10);
}

Text contact_text(char contact) {
    switch (contact) {
        case kContactClosed:
            return Text::CONTACT_NC;
        case kContactVariator:
            return Text::CONTACT_DIMMER;
        default:
            return Text::CONTACT_NO;
    }
}

}  // namespace filo::modules
