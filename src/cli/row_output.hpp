#pragma once
// Rows as the commands print them: column=value pairs separated by TAB, in
// the table's column order, without ID.
#include <iosfwd>
#include <string>
#include <string_view>

namespace filo::store {
struct LinkRow;
}

namespace filo::cli {

// Backslash, TAB, LF and CR written \\, \t, \n, \r, so that a value is one field.
std::string escaped_field(std::string_view value);

void print_link_row(std::ostream& out, const store::LinkRow& row);

}  // namespace filo::cli
