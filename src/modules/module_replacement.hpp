#pragma once
// SOSTITUISCI MODULO: a module of the project takes the serial of the
// hardware that replaces it. Names, kinds, options and links stay; only the
// code changes, in table nick, in the links and in the remote elements
// paired with it. The module window's page and filo-cli replace both go
// through here, so they refuse alike.
#include <optional>
#include <string_view>

#include "texts/text_key.hpp"

namespace filo::store {
class ModuleTable;
class LinkTable;
}  // namespace filo::store

namespace filo::modules {

enum class ReplacementRefusal {
    None,
    TypeNotCompatible,  // another type, but for a 47 that takes a 14
    CodeNotCorrect,     // the check digits don't match the code
    ModuleExists,       // the new code is in the project already
};

// The message of a refusal as the page shows it: no title on two of them,
// and whether the serial box is emptied or keeps what was typed.
struct ReplacementMessage {
    texts::Text text;
    std::optional<texts::Text> title;
    bool empties_box;
};
ReplacementMessage replacement_message(ReplacementRefusal refusal);

// Whether a module of type `old_type` may take hardware of type `new_type`:
// the same type, or the one change allowed, 47 to 14.
bool replacement_type_allowed(std::string_view old_type, std::string_view new_type);

// Replaces the module CODICE_MODULO, whose rows are in RIGHE_MODULO, by the
// 8-character serial `typed` (code set, capitals). With check_digits false
// (CONTROLLO_CODICE "NO") the last two characters aren't tested. The rows
// are written as the record holds them, under the new code, and the
// links, the names in them and the paired remote elements follow, all in
// one transaction. On a refusal nothing is written and the record stays; on
// success CODICE_MODULO is the new code.
ReplacementRefusal replace_module(store::ModuleTable& table, store::LinkTable& links,
                                  std::string_view typed, bool check_digits);

}  // namespace filo::modules
