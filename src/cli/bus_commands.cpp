#include <ostream>

#include "bus/checksum.hpp"
#include "bus/frame.hpp"
#include "bus/module_code.hpp"
#include "cli/commands.hpp"

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
    const bool framed =
        frame.size() >= 2 &&
        (frame.front() == bus::kStartMark || frame.front() == bus::kSweepStartMark) &&
        frame.back() == bus::kEndMark;
    if (!framed) throw UserError(context.texts.text(texts::Text::FRAME_NOT_VALID));
    context.out << bus::with_checksum(frame) << '\n';
    return kExitOk;
}

}  // namespace filo::cli
