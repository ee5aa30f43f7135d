#pragma once
// A new module entered from its code. Until the module window exists, the
// module gets the rows its type gives a new module, as the window would
// save them when confirmed without a change.
#include <string>

namespace filo::app {

class Session;

enum class ModuleEntry {
    Added,
    Refused,     // the type can't be entered here; the message was shown
    OpenWindow,  // MODULI (Form11 for a panel) is to open on CODICE_MODULO, as STATO_MODULO says
};

// APRI_FORM for a new module: the code's type decides what is made. A
// number already taken by a live module is refused, whatever its type. Every
// refusal and every fault gets its message; the project stays as it was.
ModuleEntry enter_new_module(Session& session, const std::string& code);
// The opening of a module typed, chosen or found by the scan: a stored module
// of that code opens for editing, a new one is prepared for the module window
// (nothing in the table before Salva), the video door pages are made and
// open on the first; the panel interface opens as a new one in its own window.
ModuleEntry open_module_entry(Session& session, const std::string& code);

}  // namespace filo::app
