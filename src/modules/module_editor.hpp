#pragma once
// The changes an installer makes to one module, checked the way the module
// window checks them, on the shared record of the module table; save()
// writes them back and carries renamed points into their links.
#include <string>
#include <string_view>
#include <vector>

#include "modules/type_catalogue.hpp"

namespace filo::store {
class ModuleTable;
class LinkTable;
}  // namespace filo::store
namespace filo::texts {
class LanguageTables;
}

namespace filo::modules {

// Why a change was refused; the record is as it was.
enum class EditRefusal {
    None,
    NotAPoint,       // no such row in the module
    NameCharacters,  // a character outside the name set
    NameInUse,       // another live point of the same side has it
    NameLinked,      // a linked point can't lose its name
    NameRequired,    // a contact or an option on an output without a name
    InputLinked,     // the kind of a linked input stays
    KindNotOffered,
    ContactNotOffered,
    ClosedWithReciprocal,  // N.C. on a relay that takes part in a RECIPROCO pair
    ParameterNotOffered,
    SafetyInputsNeedInterval,   // save: safety inputs without the analysis time (P2)
    ValueRefused,               // not a number, or outside the field's range
    NameIsAndCondition,         // another output of the module acts only while this one is on
    NameIsLinkCondition,        // a link's AND condition (CERCA_SE_USATO_COME_AND)
    AndWithReciprocal,          // AND and RECIPROCO on the same relay
    ReciprocalWithClosed,       // RECIPROCO with a normally closed relay
    RelayWithoutName,           // AND or RECIPROCO with a relay that has no name
    ThresholdWithTimedReading,  // a threshold while P2 reads the analogue inputs by time
    ReceiverNotInProject,       // a remote element's receiver that isn't a live receiver
    CardCode,                   // a card number that isn't six hexadecimal digits
};

// The characters a point's name may hold: letters, digits, blank and ".,-_/°".
bool is_name_character(char32_t c);
// The first refused character of a name, as UTF-8; "" when all are allowed.
// Characters that `kept` (the name as stored) holds already are allowed.
std::string refused_name_character(std::string_view name, std::string_view kept = {});

// The message for a refusal, in the language of the tables. detail names
// what was refused (the character, the kind, the parameter).
std::string refusal_text(EditRefusal refusal, const texts::LanguageTables& texts,
                         std::string_view detail, std::string_view linked_receiver = {});

class ModuleEditor {
  public:
    ModuleEditor(store::ModuleTable& table, store::LinkTable& links);

    // Reads the module into the shared record; false when it isn't in the
    // project or its type has no description.
    bool open(const std::string& codice);
    // Starts a new module of the code's type with the rows the type gets; false
    // for a type without description.
    bool create(const std::string& codice);
    const ModuleType& type() const { return *type_; }

    // Row numbers are the module's own: inputs 1..8, outputs 9 up.
    // Inputs are stored trimmed, outputs and flags with one blank behind.
    // The window checks names in use at Salva (CONTROLLA_NOMI), a script at
    // once.
    enum class NameCheck { Now, AtSave };
    EditRefusal rename(int row, std::string_view name, NameCheck check = NameCheck::Now);
    EditRefusal set_kind(int row, char letter);
    // Contact of output row j + 8: '0' N.A., 'I' N.C., 'V' VARIATORE (which
    // pairs the input of the same index as the output's variator).
    EditRefusal set_contact(int row, char contact);
    // Module parameters P1..P6 shown on the module's page (any row names the
    // module), the fields V1..V3 of an input's page, ON / OFF (0..251) and
    // EMERGENCY (a percentage) of an output's page. A value is digits only,
    // within the field's range; the window holds typed values before.
    EditRefusal set_parameter(int row, std::string_view field, std::string_view value);
    // The output page's functions of output row j + 8: 8 characters each,
    // "1" at k for relay k. The output's own relay is dropped.
    EditRefusal set_functions(int row, std::string_view and_bits, std::string_view reciprocal_bits);
    // "Consenti comandi quando emergenza è attiva" of an emergency output.
    EditRefusal set_commands_in_emergency(int row, bool allowed);

    // The module's page: RGB channel, reader model ('E', 'I', 'G'), code flag
    // of the remote elements.
    EditRefusal set_rgb_channel(bool rgb);
    EditRefusal set_reader(char model);
    EditRefusal set_rolling_code(bool rolling);
    // A card entered on read event `input` (1..8) of a reader: added, or
    // removed when the event holds it already. `added` tells which.
    EditRefusal enter_card(int input, std::string_view card, bool* added = nullptr);
    // The receiver a remote element is paired with, one of the live receivers.
    EditRefusal set_receiver(std::string_view code);

    // Does the type's window show this point (row numbering as above; flags
    // are rows 17 to 32)?
    bool shows_row(int row) const;

    // CONTROLLA_NOMI: names repeated in the module or used by another module
    // of the project, on the same side. Fills red_inputs / red_outputs with
    // the rows (1..8, 9 up) that turn red.
    bool names_in_use();
    const std::vector<int>& red_rows() const { return red_rows_; }

    // Writes the module and carries its names into the links.
    EditRefusal save();
    // ELIMINA MODULO: the module with its links (a video door interface with
    // its four pages). A module not yet in the table just isn't saved.
    void delete_module();

    // For messages: the receiver that keeps an input from changing kind.
    const std::string& linked_receiver() const { return linked_receiver_; }
    // The message of a refusal, with what the editor found behind it (the
    // link, the output that uses the name, the fields of the type).
    std::string message(EditRefusal refusal, const texts::LanguageTables& texts,
                        std::string_view detail) const;

  private:
    bool is_input(int row) const { return row >= 1 && row <= 8; }
    bool is_output(int row) const;
    bool has_row(int row) const;
    EditRefusal check_output_name_removal(int row);
    EditRefusal check_functions() const;
    EditRefusal output_page(int row) const;

    store::ModuleTable& table_;
    store::LinkTable& links_;
    const ModuleType* type_ = nullptr;
    std::string linked_receiver_;
    // What the last refusal named beyond the caller's detail, and which
    // refusal that was.
    EditRefusal found_for_ = EditRefusal::None;
    std::string found_;
    std::string found_receiver_;
    std::vector<int> red_rows_;
};

// A typed value of a field: digits only, 0..max; false otherwise.
bool parse_field_value(std::string_view typed, int max, int& value);

}  // namespace filo::modules
