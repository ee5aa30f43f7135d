#include "cli/row_output.hpp"

#include <ostream>

#include "store/link_row.hpp"

namespace filo::cli {

std::string escaped_field(std::string_view value) {
    std::string s;
    s.reserve(value.size());
    for (char c : value) {
        switch (c) {
            case '\\':
                s += "\\\\";
                break;
            case '\t':
                s += "\\t";
                break;
            case '\n':
                s += "\\n";
                break;
            case '\r':
                s += "\\r";
                break;
            default:
                s += c;
        }
    }
    return s;
}

void print_link_row(std::ostream& out, const store::LinkRow& row) {
    const char* separator = "";
    for (const store::LinkColumn& c : store::kLinkColumns) {
        out << separator << c.name << '=' << escaped_field(row.*c.field);
        separator = "\t";
    }
    out << '\n';
}

}  // namespace filo::cli
