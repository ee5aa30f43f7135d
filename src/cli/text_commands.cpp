#include <ostream>

#include "cli/commands.hpp"

namespace filo::cli {

int print_texts(Context& context) {
    // One entry a line: its number in the table, its key and its text, with a
    // line break inside the text written as \n.
    for (std::size_t i = 0; i < texts::kTextCount; ++i) {
        const auto key = static_cast<texts::Text>(i);
        context.out << (i + 1) << '\t' << texts::key_name(key) << '\t';
        for (char c : context.texts[key]) {
            if (c == '\n')
                context.out << "\\n";
            else if (c == '\\')
                context.out << "\\\\";
            else
                context.out << c;
        }
        context.out << '\n';
    }
    return kExitOk;
}

}  // namespace filo::cli
