#pragma once
// What follows a module that takes the code of its new hardware: the links
// with an end in it, and the remote elements paired with it when it is a
// receiver. Each writes in one transaction.
#include <string_view>

namespace filo::store {

class Project;

// Characters 1 to 6 of identificativoRX and identificativoTX of every link
// of `old_code` become `new_code`; the point numbers and names stay. The
// type characters follow the new code too, so a module whose type changed
// is still found by its six characters.
void move_links_to_code(Project& project, std::string_view old_code, std::string_view new_code);

// Remote elements (types 33, 34, 35) keep their receiver's code in
// characters 1 to 6 of riserva4 of row 1: those paired with `old_code`
// are paired with `new_code`.
void move_paired_remotes(Project& project, std::string_view old_code, std::string_view new_code);

}  // namespace filo::store
