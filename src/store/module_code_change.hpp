#pragma once
// What follows a module that takes the code of its new hardware: the links
// with an end in it, and the remote elements paired with it when it is a
// receiver. Each writes in one transaction.
#include <string_view>

namespace filo::store {

class Project;

// The first characters of identificativoRX and identificativoTX of every
// link with an end in module `old_code` (six characters) become `prefix`, as
// many as it has; the point numbers and names stay. A new number is 4
// characters (the type characters stay); a new code is 6, so that a module
// whose type changed is still found by its six characters.
void rewrite_link_codes(Project& project, std::string_view old_code, std::string_view prefix);

// Remote elements (types 33, 34, 35) keep their receiver's code in
// characters 1 to 6 of riserva4 of row 1: those paired with `old_code`
// are paired with `new_code`.
void move_paired_remotes(Project& project, std::string_view old_code, std::string_view new_code);

}  // namespace filo::store
