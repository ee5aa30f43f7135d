#pragma once
// The module types the tool configures: name, boxes of the module window,
// rows of a new module, buttons. Data only, in a constexpr table.
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "texts/text_key.hpp"

namespace filo::modules {

// The description routine that serves a type in the module window.
enum class Description : std::uint8_t {
    DIMMER,
    LED,
    LUCE,
    RELE2,
    INGRESSI,
    RELE4,
    PILOTA_LED,
    FOTOSENSORE,
    BADGE,
    MODULATORE,
    VIDEOCITOFONO,
    LAMPADA,
    PILOTA_EMERGENZA,
    TELECOMANDO,
    CODICE_RADIO,
    RELE4_SEMPLICE,
    RELE2_SEMPLICE,
    RADIO,
    SONDA,
};
// "DESCRIZIONE_RELE2" and so on.
std::string_view description_name(Description d);

// Boxes first..last of one side of the window, captioned stem + number, the
// number of the first box being first_number.
struct BoxGroup {
    texts::Text stem;
    int first = 0;
    int last = 0;
    int first_number = 0;
};

// Buttons of the module window beside Salva and ESCI.
enum Button : std::uint8_t {
    kDeleteButton = 1 << 0,     // 2 "ELIMINA MODULO"
    kReplaceButton = 1 << 1,    // 3 "SOSTITUISCI MODULO"
    kOptionsButton = 1 << 2,    // 4 "OPZIONI"
    kAggregateButton = 1 << 3,  // 5 "ASSOCIAZIONI"
    kFlagPageButton = 1 << 4,   // 7 the flag page
};

struct ModuleType {
    std::string_view code;
    Description description;
    bool has_name;  // the name shown in the window's heading
    texts::Text name;
    std::string_view fixed_name;  // a name that the language tables don't carry
    std::array<BoxGroup, 2> inputs;
    int input_groups;
    std::array<BoxGroup, 3> outputs;
    int output_groups;
    std::string_view output_tipologia;  // "" for a module without output rows
    int rows;                           // of a new module
    char first_kind;                    // kind letter of new input rows
    std::uint8_t buttons;
};

// The relay modules with flags: the flag page, the flag rows 17 to 32 of a
// new module, and the on and off values of their relays' events.
inline bool has_flags(const ModuleType& type) {
    return (type.buttons & kFlagPageButton) != 0;
}

// The type of a code ("1F" or a whole module code's characters 5 and 6);
// null for a type without description.
const ModuleType* find_type(std::string_view type_code);
std::span<const ModuleType> all_types();

// Where a module of a type is opened.
enum class Opening {
    ModuleWindow,         // MODULI
    VideoDoorPages,       // MODULI on the four pages, made when missing
    PanelInterface,       // Form11, for type 1E
    RadioModuleRequired,  // a radio element in a project without receiver
    Unsupported,          // a type without description
};
// live_codes: the codes of the project's live modules (ELENCO_CODICI).
Opening opening_of(std::string_view type_code, std::span<const std::string> live_codes);

// Kinds of input, by the letter in character 1 of modo.
struct InputKind {
    char letter;
    texts::Text text;
};
// The text of a kind letter; false for a letter without text (D, taken
// into account by the option page only, or an unknown letter).
bool kind_text(char letter, texts::Text& text);
// The standard list of kinds offered on inputs, with the limit switch (F)
// on the types that have one.
std::span<const InputKind> standard_input_kinds(std::string_view type_code);

// Contacts of an output, by character 2 of modo.
inline constexpr char kContactOpen = '0';
inline constexpr char kContactClosed = 'I';
inline constexpr char kContactVariator = 'V';
texts::Text contact_text(char contact);

}  // namespace filo::modules
