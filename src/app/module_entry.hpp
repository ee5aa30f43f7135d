#pragma once
// A new module entered from its code. Until the module window exists, the
// module gets the rows its type gives a new module, as the window would
// save them when confirmed without a change.
#include <string>

namespace filo::app {

class Session;

enum class ModuleEntry {
    Added,
    Refused,  // the type can't be entered here; the message was shown
};

// APRI_FORM for a new module: the code's type decides what is made. A
// number already taken by a live module is refused, whatever its type. Every
// refusal and every fault gets its message; the project stays as it was.
ModuleEntry enter_new_module(Session& session, const std::string& code);

}  // namespace filo::app
