#pragma once
// The changes an installer makes to one module, checked the way the module
// window checks them, on the shared record of the module table; save()
// writes them back and carries renamed points into their links.
#include <string>
#include <string_view>

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
    SafetyInputsNeedInterval,  // save: safety inputs without the analysis time (P2)
};

// The characters a point's name may hold: letters, digits, blank and ".,-_/°".
bool is_name_character(char32_t c);
// The first refused character of a name, as UTF-8; "" when all are allowed.
std::string refused_name_character(std::string_view name);

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
    EditRefusal rename(int row, std::string_view name);
    EditRefusal set_kind(int row, char letter);
    // Contact of output row j + 8: '0' N.A., 'I' N.C., 'V' VARIATORE (which
    // pairs the input of the same index as the output's variator).
    EditRefusal set_contact(int row, char contact);
    // Module parameters P1..P6 (any row names the module), the fields V1..V3
    // of an input's options, ON / OFF / EMERGENCY (a percentage) of an
    // output. Values are held to 0..255.
    EditRefusal set_parameter(int row, std::string_view field, std::string_view value);

    // Writes the module and carries its names into the links.
    EditRefusal save();

    // For messages: the receiver that keeps an input from changing kind.
    const std::string& linked_receiver() const { return linked_receiver_; }

  private:
    bool is_input(int row) const { return row >= 1 && row <= 8; }
    bool is_output(int row) const;
    bool has_row(int row) const;

    store::ModuleTable& table_;
    store::LinkTable& links_;
    const ModuleType* type_ = nullptr;
    std::string linked_receiver_;
};

}  // namespace filo::modules
