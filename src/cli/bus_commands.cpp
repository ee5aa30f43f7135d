#include <ostream>

#include "bus/checksum.hpp"
#include "bus/module_code.hpp"
#include "cli/commands.hpp"
#include "cli/line_steps.hpp"

namespace filo::cli {

int module_code(Context& context, const std::string& typed) {
    const std::optional<std::string> code = bus::filtered_code(typed);
    if (code && code->size() == 6) {
        context.out << bus::printed_code(*code) << '\n';
        return kExitOk;
    }
    if (!code || !bus::check_digits_match(*code))
        throw UserError(context.texts.text(texts::Text::CODE_NOT_CORRECT));
    context.out << *code << '\n';
    return kExitOk;
}

int frame_with_checksum(Context& context, const std::string& frame) {
    if (!is_bracketed_frame(frame))
        throw UserError(context.texts.text(texts::Text::FRAME_NOT_VALID));
    context.out << bus::with_checksum(frame) << '\n';
    return kExitOk;
}

}  // namespace filo::cli
