#include <algorithm>
#include <ostream>

#include "bus/checksum.hpp"
#include "bus/frame.hpp"
#include "bus/module_code.hpp"
#include "cli/commands.hpp"

namespace filo::cli {
namespace {

bool is_hex(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
}

}  // namespace

int module_code(Context& context, const std::string& typed) {
    // The typing filter of a code box turns "a"-"f" into capitals.
    std::string code = typed;
    std::transform(code.begin(), code.end(), code.begin(),
                   [](char c) { return c >= 'a' && c <= 'f' ? static_cast<char>(c - 32) : c; });
    const bool hex = std::all_of(code.begin(), code.end(), is_hex);
    if (hex && code.size() == 6) {
        context.out << bus::printed_code(code) << '\n';
        return kExitOk;
    }
    if (!hex || !bus::check_digits_match(code))
        throw UserError(context.texts.text(texts::Text::CODE_NOT_CORRECT));
    context.out << code << '\n';
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
